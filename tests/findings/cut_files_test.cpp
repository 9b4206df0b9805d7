// Files that end too early, at any byte: what is lost is told.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "base/decimal.h"
#include "findings/account_check.h"
#include "findings/account_maker.h"
#include "findings/account_pages.h"
#include "findings/finding.h"
#include "findings/finding_table.h"
#include "findings/made_accounts.h"
#include "platform/text_encoding.h"
#include "report/record_fields.h"
#include "report/records.h"
#include "report/report.h"

namespace tradebill::cut_files_test {
namespace {

template <class Record>
void AddTexts(const Record& row, std::string& all) {
    for (const TextField<Record>& field : FieldsOf<Record>()) {
        // The total of an empty table says as much as a table that isn't there, and an amount as much as without its
        // last zeros.
        const auto amount = field.isAmount ? ParseDecimal(field.Text(row)) : std::nullopt;
        if (!amount) all.append(field.Text(row));
        if (amount && amount->steps != 0) all.append(DecimalText(amount->steps));
        all.append("|");
    }
    all.append("\n");
}

/// All texts of all records.
std::string RecordsOf(const CReport& report) {
    std::string all;
    for (const auto& row : report.MoneyStore.Records) AddTexts(*row, all);
    for (const MatchRecord& row : report.MatchStore.Rows) AddTexts(row, all);
    for (const PingDetail& row : report.PingDetailStore.Rows) AddTexts(row, all);
    for (const OpiDetail& row : report.OpiDetailStore.Rows) AddTexts(row, all);
    for (const OpiSum& row : report.OpiSumStore.Rows) AddTexts(row, all);
    return all;
}

bool IsErrorOf(const Finding& finding, const std::string& day) {
    return finding.severity != Severity::Note && finding.day == day;
}

/// Cuts a day's file at each of its last bytes, which are those of totals, and then at every `step`th.
void CutEverywhere(const MadeStatements& made, std::size_t day, std::size_t step) {
    std::vector<DayFile> files = made.Files();
    const std::string whole = files[day].bytes;
    const std::string records = RecordsOf(CCheckedRun(files, AskedFor(made.layout)).report);
    const FindingKeys clean = made.PairKeys();
    constexpr std::size_t kLastBytes = 250;
    for (std::size_t cut = 1; cut < whole.size(); cut += cut < kLastBytes ? 1 : step) {
        files[day].bytes = whole.substr(0, whole.size() - cut);
        const CCheckedRun run(files, AskedFor(made.layout));
        const bool isTold = std::ranges::any_of(
            run.findings, [&](const Finding& finding) { return IsErrorOf(finding, made.Day(day)); });
        const bool isLost = RecordsOf(run.report) != records;
        EXPECT_TRUE(isTold || !isLost) << cut << " bytes from the end, behind ..."
                                       << GbkToUtf8(files[day].bytes.substr(files[day].bytes.rfind('\n') + 1));
        for (const Finding& finding : run.findings) {
            const bool isLater = finding.day > made.Day(day);
            const bool isOfPair = finding.code == FindingCode::Lots || finding.code == FindingCode::Continuity ||
                                  finding.code == FindingCode::Gap;
            EXPECT_TRUE(isOfPair || !isLater) << cut << ": " << KindOf(finding.code).name << " " << finding.day;
        }
        for (const std::string& key : clean) EXPECT_TRUE(KeysOf(run.findings).contains(key)) << cut << ": " << key;
    }
}

TEST(CutFiles, AreFoundInTheMiddle) {
    for (const MadeLayout layout : kMadeLayouts) {
        const MadeStatements made(8, layout, {.days = 6, .hasHoliday = false, .hasQuietDays = false});
        std::vector<DayFile> files = made.Files();
        files[3].bytes.resize(files[3].bytes.size() / 2);
        EXPECT_TRUE(KeysOf(files, layout).contains(KeyOf("cut-off", made.Day(3)))) << NameOf(layout);
    }
}

TEST(CutFiles, LoseNothingWithoutAWord) {
    for (const MadeLayout layout : kMadeLayouts) {
        for (const unsigned seed : {2U, 5U}) {
            const MadeStatements made(seed, layout, {.days = 7, .hasOptions = layout != MadeLayout::FundStatus});
            SCOPED_TRACE(TraceOf(made, seed));
            std::size_t day = 1;
            while (made.account.days[day].closings.empty()) ++day;
            CutEverywhere(made, day, 17 + seed);
        }
    }
}

}  // namespace
}  // namespace tradebill::cut_files_test
