// Headings, labels and fields, and what stands below or behind them.
#include "anonymise/cell_meaning.h"

#include <gtest/gtest.h>

#include <string_view>

#include "anonymise/table_heading.h"
#include "support/gbk_text.h"

namespace tradebill::cell_meaning_test {
namespace {

using enum Meaning;

struct Row {
    std::string_view word;
    Meaning meaning;
};

TEST(CellMeaning, IsToldByHeadings) {
    constexpr Row kRows[] = {
        {"手续费", Money},      {"手数", Lots},         {"成交额", Turnover},         {"成交价", Price},
        {"原成交号", Identity}, {"成交日期", Date},     {"持仓盯市盈亏", ProfitLoss}, {"昨结算", Price},
        {"手 续 费", Money},    {"交易编码", Identity}, {"期权市值", Money},          {"Trans.No.", Identity},
        {"投保", Unknown},      {"说明", Name},         {"备注 Note", Name},          {"手续费说明", Money}};
    for (const Row& row : kRows) EXPECT_EQ(MeaningOfHeading(Gbk(row.word)), row.meaning) << row.word;
}

TEST(CellMeaning, IsToldByLabels) {
    constexpr Row kRows[] = {{"客户号 Client ID", Identity},
                             {"客户名称 Client Name", Name},
                             {"客户", Identity},
                             {"客户代码", Identity},
                             {"联系电话", Name},
                             {"经办人", Name},
                             {"客户签字", Name},
                             {"客户权益", Money},
                             {"日期 Date", Date},
                             {"币种", Currency}};
    for (const Row& row : kRows) EXPECT_EQ(MeaningOfLabel(Gbk(row.word)), row.meaning) << row.word;
}

TEST(CellMeaning, IsToldByFields) {
    EXPECT_EQ(MeaningOfField("MATCHNO"), Identity);
    EXPECT_EQ(MeaningOfField("MATCH_VOL"), Lots);
    EXPECT_EQ(MeaningOfField("POUNDAGE"), Money);
    EXPECT_EQ(MeaningOfField("OPEN_PRICE"), Price);
}

TEST(TableHeading, GoesByNumberAndElseByPlace) {
    CTableHeading heading;
    heading.AddLine(Gbk("日期      价    手数"));  // bytes 0-3, 10-11, 16-19
    EXPECT_EQ(heading.AtWord({0, 8}, 0, 3), Date);
    EXPECT_EQ(heading.AtWord({16, 17}, 2, 3), Lots);
    EXPECT_EQ(heading.AtWord({8, 12}, 1, 2), Price);  // a cell is missing: what stands above counts
    EXPECT_EQ(heading.AtWord({24, 28}, 1, 2), Unknown);
}

TEST(TableHeading, CountsBars) {
    CTableHeading heading;
    heading.AddLine(Gbk("|成交价||手数|"));
    heading.AddLine(Gbk("|Price|Fee|Lots|"));
    EXPECT_EQ(heading.AtBar(0), Price);
    EXPECT_EQ(heading.AtBar(1), Money);
    EXPECT_EQ(heading.AtBar(2), Lots);
    EXPECT_EQ(heading.AtBar(3), Unknown);
}

}  // namespace
}  // namespace tradebill::cell_meaning_test
