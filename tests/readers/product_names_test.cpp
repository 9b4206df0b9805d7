// Under which product an open position enters the daily series: by name in one format, by code in all others.
#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "readers/record_sink.h"
#include "report/record_makers.h"
#include "report/report.h"
#include "support/gbk_text.h"

namespace tradebill::product_names_test {
namespace {

/// Knows copper by its name.
class CCopperSource final : public CProductSource {
public:
    std::int32_t UnitOf(std::string_view /*contract*/, std::string_view /*delivery*/) const override { return 1; }
    std::optional<std::string> CodeOf(std::string_view name) const override {
        asked_.emplace_back(name);
        return name == Gbk("铜") ? std::optional<std::string>("cu99") : std::nullopt;
    }

    mutable std::vector<std::string> asked_;
};

class ProductNamesRead : public testing::Test {
protected:
    /// The product of a detail row alone in its format.
    std::string DetailProduct(std::int32_t format, std::string_view contract) {
        CReport report;
        Prepare(report, format);
        CRecordSink sink(report, nullptr);
        OpiDetail& row = sink.NewRow<OpiDetail>();
        row = Open({{"BILL_DATE", "20240102"}, {"CONTRACT", contract}});
        sink.Add(row);
        return OnlyProduct(report);
    }
    std::string SumProduct(std::int32_t format, std::string_view contract) {
        CReport report;
        Prepare(report, format);
        CRecordSink sink(report, nullptr);
        OpiSum& row = sink.NewRow<OpiSum>();
        row = OpenSum({{"BILL_DATE", "20240102"}, {"CONTRACT", contract}});
        sink.AddOnlyPosition(row);
        return OnlyProduct(report);
    }

    CCopperSource source_;

private:
    void Prepare(CReport& report, std::int32_t format) const {
        report.Products = &source_;
        report.Request.StatementFormat = format;
    }
    [[nodiscard]] static std::string OnlyProduct(const CReport& report) {
        const CDayUsage* const usage = report.TradeStatistics.DayUsages.Find("20240102");
        return usage == nullptr || usage->Positions.size() != 1 ? "none" : usage->Positions.front()->Product;
    }
};

TEST_F(ProductNamesRead, AreAskedForInDetailsOfFormatZeroAlone) {
    EXPECT_EQ(SumProduct(0, Gbk("　铜")), Gbk("　铜"));
    for (const std::int32_t format : {1, 2, 3, 6, 201}) {
        EXPECT_EQ(DetailProduct(format, Gbk("　铜")), Gbk("　铜")) << format;
    }
    EXPECT_TRUE(source_.asked_.empty());
    EXPECT_EQ(DetailProduct(0, Gbk("　铜")), "cu");
    EXPECT_EQ(source_.asked_, (std::vector<std::string>{Gbk("铜")}));
}

}  // namespace
}  // namespace tradebill::product_names_test
