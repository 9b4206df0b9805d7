// The sample accounts day by day: what is read agrees with the totals that each statement prints.
#include "readers/statement_loader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <ostream>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/number.h"
#include "readers/reader_fixture.h"
#include "support/temp_folder.h"

namespace tradebill::sample_statements_test {
namespace {

constexpr double kCent = 0.01;
constexpr double kRounding = 1e-4;
constexpr std::size_t kDays = 25;

/// A sample and the fields whose sums its total rows print behind the count, in their order; "" is not kept.
struct Sample {
    const char* name;
    std::int32_t format;
    std::vector<const char*> trades;
    std::vector<const char*> closed;
    std::vector<const char*> open;
    std::size_t summaryPL;  ///< which number of the summary's total is DSYK; 0 without a summary
};

void PrintTo(const Sample& sample, std::ostream* out) {
    *out << sample.name;
}

const Sample kSamples[] = {
    {"fund-class",
     0,
     {"MATCH_VOL", "TURNOVER", "POUNDAGE", "OFFSETPL"},
     {"MATCH_VOL", "OFFSETPL"},
     {"POSITION_VOL", "FLOATPL", "DSYK", "DEPOSIT"},
     0},
    {"fund-status",
     1,
     {"MATCH_VOL", "TURNOVER", "POUNDAGE", "OFFSETPL"},
     {"MATCH_VOL", "OFFSETPL"},
     {"POSITION_VOL", "FLOATPL", "DSYK", "DEPOSIT"},
     3},
    {"fund-status-premium",
     1,
     {"MATCH_VOL", "TURNOVER", "ROYALTY", "POUNDAGE"},
     {"MATCH_VOL", "OFFSETPL"},
     {"POSITION_VOL", "FLOATPL", "DSYK", "DEPOSIT"},
     0},
    {"tabulated",
     3,
     {"MATCH_VOL", "TURNOVER", "POUNDAGE", "OFFSETPL"},
     {"MATCH_VOL", "OFFSETPL"},
     {"POSITION_VOL", "FLOATPL", "DSYK", "DEPOSIT"},
     2},
};

/// What the row of totals of a section prints. A day without rows may do without the section.
struct Totals {
    std::int32_t count = 0;
    std::vector<double> numbers;
};

Totals TotalsOf(std::string_view text, const char* title) {
    const std::size_t section = text.find(Gbk(title));
    if (section == std::string_view::npos) return {};
    const std::size_t begin = text.find(Gbk("共"), section);
    if (begin == std::string_view::npos) {
        ADD_FAILURE() << "no totals: " << title;
        return {};
    }
    const std::string_view row = text.substr(begin, text.find('\n', begin) - begin);
    Totals totals;
    totals.count = ParseInteger(row.substr(Gbk("共").size()));
    constexpr std::string_view kNumber = "-.0123456789";
    std::size_t at = row.find(Gbk("条"));
    while ((at = row.find_first_of(kNumber, at)) != std::string_view::npos) {
        totals.numbers.push_back(ParseAmount(row.substr(at)));
        at = row.find_first_not_of(kNumber, at);
    }
    return totals;
}

template <class List>
double SumOf(const List& rows, const char* field) {
    double sum = 0;
    for (const std::string& text : TextsOf(rows, field)) sum += ParseAmount(text);
    return sum;
}

template <class List>
void ExpectTotals(const List& rows, const Totals& totals, const std::vector<const char*>& fields) {
    EXPECT_EQ(static_cast<std::int32_t>(rows.size()), totals.count);
    if (rows.empty()) return;
    ASSERT_GE(totals.numbers.size(), fields.size());
    for (std::size_t i = 0; i < fields.size(); ++i) {
        EXPECT_NEAR(SumOf(rows, fields[i]), totals.numbers[i], kRounding) << fields[i];
    }
}

class SampleStatements : public ReaderFixture, public testing::WithParamInterface<Sample> {
protected:
    struct Day {
        std::string day;
        std::string text;
    };

    static std::vector<Day> Days() {
        const std::string folder = std::string(TRADEBILL_SAMPLES "/") + GetParam().name + "/root/Users/demo/Data/Bill";
        std::vector<Day> days;
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            const std::string name = entry.path().filename().string();  // D90010001.20240102o.txt
            if (name.ends_with("o.txt"))
                days.push_back({name.substr(name.find('.') + 1, 8), ReadFile(entry.path().string())});
        }
        std::ranges::sort(days, {}, &Day::day);
        EXPECT_EQ(days.size(), kDays);
        return days;
    }

    void Read(const Day& day) {
        MakeReport(GetParam().format);
        ReadStatement(day.day, day.text);
    }
};

TEST_P(SampleStatements, CloseWithWhatTheDayBrought) {
    std::string formerClosing;
    for (const Day& day : Days()) {
        Read(day);
        ASSERT_EQ(report.MoneyStore.Count(), 1) << day.day;
        const MoneyRecord& money = *report.MoneyStore.Records.front();
        EXPECT_EQ(money.BILL_DATE, day.day);
        const double brought = AmountIn(money.QCQY) + AmountIn(money.CRJ) + AmountIn(money.PCYK) +
                               AmountIn(money.CCDSYK) + AmountIn(money.QLJSZ) - AmountIn(money.SXF) -
                               AmountIn(money.XQSXF);
        EXPECT_NEAR(AmountIn(money.QMJC), brought, kCent) << day.day;
        EXPECT_GT(AmountIn(money.QMJC), 0) << day.day;
        EXPECT_STREQ(money.KHQY, money.QMJC) << day.day;
        EXPECT_TRUE(formerClosing.empty() || money.QCQY == formerClosing) << day.day;
        formerClosing = money.QMJC;
    }
}

TEST_P(SampleStatements, HaveTheRowsThatTheirTotalsCount) {
    const Sample& sample = GetParam();
    std::int32_t rows = 0;
    for (const Day& day : Days()) {
        SCOPED_TRACE(day.day);
        Read(day);
        ExpectTotals(report.MatchStore.Rows, TotalsOf(day.text, "成交记录"), sample.trades);
        ExpectTotals(report.PingDetailStore.Rows, TotalsOf(day.text, "平仓明细"), sample.closed);
        ExpectTotals(report.OpiDetailStore.Rows, TotalsOf(day.text, "持仓明细"), sample.open);
        rows += report.MatchStore.Count() + report.PingDetailStore.Count() + report.OpiDetailStore.Count();
    }
    EXPECT_GT(rows, 400);
}

TEST_P(SampleStatements, HaveMoneyThatAgreesWithTheirRows) {
    for (const Day& day : Days()) {
        SCOPED_TRACE(day.day);
        Read(day);
        ASSERT_EQ(report.MoneyStore.Count(), 1);
        const MoneyRecord& money = *report.MoneyStore.Records.front();
        EXPECT_NEAR(SumOf(report.MatchStore.Rows, "POUNDAGE"), AmountIn(money.SXF), kRounding);
        EXPECT_NEAR(SumOf(report.PingDetailStore.Rows, "OFFSETPL"), AmountIn(money.PCYK), kRounding);
        EXPECT_NEAR(SumOf(report.OpiDetailStore.Rows, "DSYK"), AmountIn(money.CCDSYK), kRounding);
        EXPECT_NEAR(SumOf(report.OpiDetailStore.Rows, "DEPOSIT"), AmountIn(money.BZJZY), kRounding);
        EXPECT_NEAR(AmountIn(money.QMJC) - AmountIn(money.BZJZY), AmountIn(money.KYZJ), kCent);
    }
}

TEST_P(SampleStatements, HaveASummaryThatAgreesWithItsTotals) {
    for (const Day& day : Days()) {
        SCOPED_TRACE(day.day);
        Read(day);
        if (GetParam().summaryPL == 0) {
            EXPECT_EQ(report.OpiSumStore.Count(), 0);
            continue;
        }
        std::set<std::pair<std::string, std::string>> contracts;
        double lots[2] = {};
        for (const auto& row : report.OpiSumStore.Rows) {
            contracts.emplace(row.CONTRACT, row.DELIVERY);
            const bool isLong = row.BID == Gbk("买");
            lots[isLong ? 0 : 1] +=
                AmountIn(row.BID_POSITION_VOL) + AmountIn(row.ASK_POSITION_VOL) + AmountIn(row.POSITION_VOL);
        }
        const Totals totals = TotalsOf(day.text, "持仓汇总");
        EXPECT_EQ(static_cast<std::int32_t>(contracts.size()), totals.count);
        ASSERT_GE(totals.numbers.size(), GetParam().summaryPL + 2);
        EXPECT_EQ(lots[0], totals.numbers[0]);
        EXPECT_EQ(lots[1], totals.numbers[1]);
        if (report.OpiSumStore.Count() != totals.count)
            continue;  // a contract held on both sides prints one P/L for two
        EXPECT_NEAR(SumOf(report.OpiSumStore.Rows, "DSYK"), totals.numbers[GetParam().summaryPL], kRounding);
        EXPECT_NEAR(SumOf(report.OpiSumStore.Rows, "DEPOSIT"), totals.numbers[GetParam().summaryPL + 1], kRounding);
    }
}

TEST_P(SampleStatements, ShowEveryColumnOfTheirRows) {
    std::set<std::string> empty;
    for (const Day& day : Days()) {
        Read(day);
        for (const char* const field :
             {"EXCH_NAME", "CONTRACT", "BID", "MATCH_DATE", "MATCH_PRICE", "OFFSET", "HEDGE"}) {
            if (std::ranges::count(TextsOf(report.MatchStore.Rows, field), "") != 0) empty.insert(field);
        }
        EXPECT_EQ(report.MatchStore.Rows.empty() ? day.day : report.MatchStore.Rows.front().MATCH_DATE, day.day);
        for (const std::string& date : TextsOf(report.OpiDetailStore.Rows, "OPEN_DATE")) EXPECT_LE(date, day.day);
        for (const std::string& date : TextsOf(report.PingDetailStore.Rows, "OPEN_DATE")) EXPECT_LE(date, day.day);
    }
    EXPECT_EQ(empty, std::set<std::string>{});
}

INSTANTIATE_TEST_SUITE_P(FixedLayouts, SampleStatements, testing::ValuesIn(kSamples), [](const auto& sample) {
    std::string name = sample.param.name;
    std::erase(name, '-');
    return name;
});

}  // namespace
}  // namespace tradebill::sample_statements_test
