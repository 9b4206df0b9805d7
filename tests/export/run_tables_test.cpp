#include "export/run_tables.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "export/tables_fixture.h"
#include "findings/finding.h"
#include "readers/scan_listener.h"
#include "report/product_source.h"
#include "report/product_unit.h"
#include "support/gbk_text.h"

namespace tradebill::run_tables_test {
namespace {

class RunTables : public TablesFixture {};

class CKnownUnits final : public CProductSource {
public:
    [[nodiscard]] std::int32_t UnitOf(std::string_view, std::string_view) const override { return 1; }
    [[nodiscard]] std::optional<std::string> CodeOf(std::string_view) const override { return {}; }
    [[nodiscard]] std::vector<ProductUnit> UsedUnits() const override {
        return {{"m", 10, UnitSource::Trades}, {Gbk("沪金"), 1000, UnitSource::File}};
    }
};

TEST_F(RunTables, TellEachUnitAndItsSource) {
    EXPECT_EQ(RowsOf("units", {"product"}), TextRows());
    const CKnownUnits units;
    report.Products = &units;
    EXPECT_EQ(RowsOf("units", {"product", "unit", "source"}),
              (TextRows{{"m", "10", "trades"}, {"沪金", "1000", "file"}}));
}

TEST_F(RunTables, TellFiguresByTheirPaths) {
    report.MoneyStore.ClosingEquity = -12.5;
    report.AccountStatistics.WinCount = 3;
    const TextRows rows = RowsOf("figures", {"name", "value", "reason"});
    EXPECT_NE(std::ranges::find(rows, std::vector<std::string>{"money.ClosingEquity", "-12.5", "-"}), rows.end());
    EXPECT_NE(std::ranges::find(rows, std::vector<std::string>{"account.inner.WinCount", "3.0", "-"}), rows.end());
}

TEST_F(RunTables, TellWhatWasFound) {
    findings.push_back({.code = FindingCode::RowSkipped,
                        .severity = Severity::Warning,
                        .day = "20240103",
                        .file = "D1.20240103o.txt",
                        .row = 7,
                        .section = SectionKind::Trades,
                        .expected = "12 columns",
                        .found = "3, in \"a,b\"",
                        .text = "A row was passed over."});
    findings.push_back({.code = FindingCode::Gap, .severity = Severity::Note});
    const TextRows rows =
        RowsOf("findings", {"code", "severity", "day", "file", "row", "section", "expected", "found"});
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0], (std::vector<std::string>{"row-skipped", "warning", "2024-01-03", "D1.20240103o.txt", "7",
                                                 "trades", "12 columns", "3, in \"a,b\""}));
    EXPECT_EQ(rows[1], (std::vector<std::string>{"gap", "note", "-", "-", "-", "-", "-", "-"}));
    EXPECT_TRUE(RowsOf("findings", {"text"})[0][0].starts_with("A row was passed over."));
}

}  // namespace
}  // namespace tradebill::run_tables_test
