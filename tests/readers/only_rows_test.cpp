// A reading that wants the rows of one kind of table finds the same of them as one that wants all.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "platform/file.h"
#include "readers/reader_fixture.h"
#include "support/temp_folder.h"

namespace tradebill::only_rows_test {
namespace {

namespace fs = std::filesystem;

class OnlyRows : public testing::TestWithParam<const char*> {
protected:
    OnlyRows() {
        const CIniFile ini = LoadIniFile(folder_ + "/request.ini").file;
        EXPECT_NE(ini.FindSection("REQUEST"), nullptr);
        for (CReport* const report : {&all_, &few_}) {
            report->Request.StatementFormat = ini.Integer("REQUEST", "format", 0);
            report->Request.StatementKind = ini.Text("REQUEST", "kind") == "foreign" ? kForeignKind : 1;
            const std::string name(ini.Text("REQUEST", "template"));
            report->TemplatePath = name.empty() ? "" : folder_ + "/root/BillTemplate/" + name + ".ini";
        }
    }
    /// Day and path of each statement, the last days of all once more under days of their own: some layouts know by
    /// what a statement prints that its day has been read.
    [[nodiscard]] std::vector<std::pair<std::string, std::string>> Statements() const {
        std::vector<std::pair<std::string, std::string>> statements;
        for (const auto& entry : fs::directory_iterator(folder_ + "/root/Users/demo/Data/Bill")) {
            const std::string name = entry.path().filename().string();  // D90010001.20240102o.txt
            if (name.ends_with("o.txt"))
                statements.emplace_back(name.substr(name.find('.') + 1, 8), entry.path().string());
        }
        std::ranges::sort(statements);
        EXPECT_GT(statements.size(), 20U);
        for (int i = 0; i < 3; ++i) {
            statements.emplace_back("2025040" + std::to_string(i + 1), statements[statements.size() - 3].second);
        }
        return statements;
    }
    void ReadBoth(SectionKind kind) {
        CStatementLoader all(all_, StatementAccess::ReadAlone);
        CStatementLoader few(few_, StatementAccess::ReadAlone);
        few.WantOnlyRows(kind);
        for (const auto& [day, path] : Statements()) {
            EXPECT_EQ(all.Load(day, path).state, StatementState::Read) << path;
            EXPECT_EQ(few.Load(day, path).state, StatementState::Read) << path;
        }
    }
    static std::vector<std::string> Days(const CReport& report) {
        std::vector<std::string> days;
        for (const auto& record : report.MoneyStore.Records) days.emplace_back(FieldText(record->BILL_DATE));
        return days;
    }

    CReport all_;
    CReport few_;

private:
    std::string folder_ = std::string(TRADEBILL_SAMPLES "/") + GetParam();
};

TEST_P(OnlyRows, OfTradesAreAllTradesOfAllDays) {
    ReadBoth(SectionKind::Trades);
    EXPECT_GT(all_.MatchStore.Count(), 50);
    EXPECT_EQ(FieldsOfAll(few_.MatchStore.Rows), FieldsOfAll(all_.MatchStore.Rows));
    EXPECT_EQ(few_.PingDetailStore.Count() + few_.OpiDetailStore.Count() + few_.OpiSumStore.Count(), 0);
    EXPECT_TRUE(few_.ReportDocument.Offsets.empty());
    EXPECT_EQ(Days(few_), Days(all_));
}

TEST_P(OnlyRows, OfOpenPositionsAreAllOfThem) {
    ReadBoth(SectionKind::Open);
    EXPECT_GT(all_.OpiDetailStore.Count() + all_.OpiSumStore.Count(), 20);
    EXPECT_EQ(FieldsOfAll(few_.OpiDetailStore.Rows), FieldsOfAll(all_.OpiDetailStore.Rows));
    EXPECT_EQ(few_.MatchStore.Count() + few_.PingDetailStore.Count(), 0);
    EXPECT_EQ(Days(few_), Days(all_));
}

INSTANTIATE_TEST_SUITE_P(Samples, OnlyRows,
                         testing::Values("fund-class", "fund-status", "fund-status-premium", "tabulated", "client-bill",
                                         "client-bill-premium", "spaced-title", "spaced-title-premium", "bilingual",
                                         "bilingual-new", "template-pairs", "template-row", "foreign"),
                         [](const auto& sample) {
                             std::string name = sample.param;
                             std::ranges::replace(name, '-', '_');
                             return name;
                         });

}  // namespace
}  // namespace tradebill::only_rows_test
