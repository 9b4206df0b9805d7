// Money figures by their printed labels, whatever the layout does with spaces, colons, bars and English.
#include "readers/printed_money_reader.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

#include "base/decimal.h"
#include "base/text.h"
#include "report/money_record.h"
#include "report/printed_money.h"
#include "report/records.h"
#include "report/statement_format.h"
#include "support/gbk_text.h"

namespace tradebill::printed_money_reader_test {
namespace {

using enum PrintedFigure;
using Lines = std::initializer_list<std::string_view>;

/// Reads the block that begins at the line with `title` and ends, for its reader, at the one with `end`.
PrintedMoney ReadBlock(Lines lines, std::string_view title, std::string_view end) {
    const std::string text = Statement(lines);
    const auto lineWith = [&](std::string_view word) {
        if (word.empty()) return std::string_view();
        const std::size_t at = text.find(Gbk(word));
        EXPECT_NE(at, std::string::npos) << word;
        const std::size_t begin = text.rfind('\n', at) + 1;
        return std::string_view(text).substr(begin, text.find('\r', at) - begin);
    };
    PrintedMoney money;
    ReadPrintedMoney({text, lineWith(title), lineWith(end)}, money);
    return money;
}

/// In cents; nothing for a figure that isn't printed.
std::optional<std::int64_t> Cents(const PrintedMoney& money, PrintedFigure figure) {
    if (!money[figure]) return std::nullopt;
    return *money[figure] / (kDecimalSteps / 100);
}

TEST(PrintedMoneyReader, ReadsPairsOfLabelAndValue) {
    const PrintedMoney money =
        ReadBlock({"head", "", "  资金状况", "-----", "上日结存:  1000.00   当日结存: 1110.50",
                   "出入金:     100.00   客户权益: 1110.50", "平仓盈亏:    20.00   保证金占用: 300.00",
                   "持仓盯市盈亏: -5.50 可用资金:  810.50", "手续费:  4.00   行权手续费: 1.00",
                   "交割手续费: 2.00   风险度: 27.01%", "-----"},
                  "资金状况", "客户权益");
    EXPECT_EQ(money.Row, 3);
    EXPECT_EQ(Cents(money, Opening), 100000);
    EXPECT_EQ(Cents(money, Closing), 111050);
    EXPECT_EQ(Cents(money, CashFlow), 10000);
    EXPECT_EQ(Cents(money, Equity), 111050);
    EXPECT_EQ(Cents(money, ClosedPL), 2000);
    EXPECT_EQ(Cents(money, Margin), 30000);
    EXPECT_EQ(Cents(money, PositionPL), -550);
    EXPECT_EQ(Cents(money, PrintedFigure::Available), 81050);
    EXPECT_EQ(Cents(money, Fees), 400);
    EXPECT_EQ(Cents(money, ExerciseFees), 100);
    EXPECT_EQ(Cents(money, DeliveryFees), 200);
    EXPECT_EQ(Cents(money, Deposits), std::nullopt);
}

TEST(PrintedMoneyReader, TellsWhereFiguresStand) {
    const std::string text = Statement({"资金状况", "上日结存:  1000.00   当日结存: 1110.50", "-----", ""});
    PrintedMoney money;
    FigurePlaces places;
    ReadPrintedMoney({text, std::string_view(text).substr(0, 8), {}}, money, &places);
    const auto placeOf = [&](PrintedFigure figure) { return places[static_cast<std::size_t>(figure)]; };
    EXPECT_EQ(placeOf(Opening), "1000.00");
    EXPECT_EQ(placeOf(Closing).data(), text.data() + text.find("1110.50"));
    EXPECT_TRUE(placeOf(Margin).empty());
}

TEST(PrintedMoneyReader, ReadsLabelsWithBlanksAndEnglish) {
    const PrintedMoney money =
        ReadBlock({"资金状况  币种：人民币  Account Summary", "-----",
                   "期初结存 Balance b/f：      1000.00  期末结存 Balance c/f：  970.00",
                   "出 入 金 Deposit/Withdrawal：  0.00  客户权益 Client Equity：：  970.00",
                   "期权执行盈亏 Exercise P/L：  8.00  货币质押变化金额 Chg in FX Pledge:  2.00",
                   "手 续 费 Commission：  12.00  质押变化金额 Chg in Pledge Amt：  1.00",
                   "权利金收入 Premium received：  50.00", "权利金支出 Premium paid：  68.00", "-----"},
                  "资金状况", "权利金支出");
    EXPECT_EQ(Cents(money, Opening), 100000);
    EXPECT_EQ(Cents(money, Closing), 97000);
    EXPECT_EQ(Cents(money, CashFlow), 0);
    EXPECT_EQ(Cents(money, Equity), 97000);
    EXPECT_EQ(Cents(money, ExercisePL), 800);
    EXPECT_EQ(Cents(money, FxPledgeChange), 200);
    EXPECT_EQ(Cents(money, PledgeChange), 100);
    EXPECT_EQ(Cents(money, Fees), 1200);
    EXPECT_EQ(Cents(money, PremiumReceived), 5000);
    EXPECT_EQ(Cents(money, PremiumPaid), 6800);  // in the row that ends the block for its reader
}

TEST(PrintedMoneyReader, ReadsValuesBelowTheirHeadings) {
    const PrintedMoney money = ReadBlock(
        {"资 金 清 单", "-----", "  上日结存   当日出入金  持仓盈亏  手续费", "  1000.00   50.00  -3.00   2.00",
         "-----", "  当日结存   保证金占用  可用资金   风险度", "  1045.00  300.00  745.00  28.71%", "-----"},
        "资 金 清 单", "当日结存");
    EXPECT_EQ(Cents(money, Opening), 100000);
    EXPECT_EQ(Cents(money, CashFlow), 5000);
    EXPECT_EQ(Cents(money, PositionPL), -300);
    EXPECT_EQ(Cents(money, Fees), 200);
    EXPECT_EQ(Cents(money, Closing), 104500);
    EXPECT_EQ(Cents(money, Margin), 30000);
    EXPECT_EQ(Cents(money, PrintedFigure::Available), 74500);
}

TEST(PrintedMoneyReader, ReadsDepositsApartFromWithdrawals) {
    const PrintedMoney money = ReadBlock({"客户帐单_资金清单", "-----", "上日结存 入金 出金 手续费 当日盈亏 当日结存",
                                          "1000.00 70.00 20.00 1.00 9.00 1058.00", "-----"},
                                         "客户帐单_资金清单", "");
    EXPECT_EQ(Cents(money, Deposits), 7000);
    EXPECT_EQ(Cents(money, Withdrawals), 2000);
    EXPECT_EQ(Cents(money, DayPL), 900);
    EXPECT_EQ(Cents(money, CashFlow), std::nullopt);
}

TEST(PrintedMoneyReader, ReadsNoFigureOfTheSectionsBelow) {
    const PrintedMoney money =
        ReadBlock({"资金状况", "-----", "上日结存: 1000.00", "-----", "", "成交记录", "-----", "手续费: 99.00"},
                  "资金状况", "上日结存");
    EXPECT_EQ(Cents(money, Opening), 100000);
    EXPECT_EQ(Cents(money, Fees), std::nullopt);
}

TEST(PrintedMoneyReader, TakesAmountsAlone) {
    const PrintedMoney money =
        ReadBlock({"资金状况", "-----", "上日结存: abc 当日结存: 12x 手续费: 5", "-----"}, "资金状况", "手续费");
    EXPECT_EQ(Cents(money, Opening), std::nullopt);
    EXPECT_EQ(Cents(money, Closing), std::nullopt);
    EXPECT_EQ(Cents(money, Fees), 500);
}

MoneyRecord FullRecord() {
    MoneyRecord record = ClearedMoneyRecord();
    CopyField(record.QCQY, "1000.00");
    CopyField(record.QMJC, "1200.00");
    CopyField(record.CRJ, "100.00");
    CopyField(record.SXF, "3.00");
    CopyField(record.QLJSZ, "7.00");
    CopyField(record.KHQY, "1200.00");
    CopyField(record.BZJZY, "400.00");
    CopyField(record.KYZJ, "800.00");
    CopyField(record.HOST_CURRENT, "55.00");
    return record;
}

TEST(PrintedMoneyReader, FillsWhatIsntPrintedFromTheRecord) {
    PrintedMoney money;
    money[Fees] = 9 * kDecimalSteps;
    CompleteFromRecord(FullRecord(), EquityRule::AsPrinted, money);
    EXPECT_EQ(Cents(money, Opening), 100000);
    EXPECT_EQ(Cents(money, Fees), 900);
    EXPECT_EQ(Cents(money, Equity), 120000);
    EXPECT_EQ(Cents(money, Premium), 700);
    EXPECT_EQ(Cents(money, CashFlow), 10000);
    EXPECT_EQ(Cents(money, ClosedPL), std::nullopt);
}

TEST(PrintedMoneyReader, TakesNoFigureThatTheReaderMadeOfOthers) {
    PrintedMoney money;
    money[Deposits] = 100 * kDecimalSteps;
    money[PremiumPaid] = 0;
    CompleteFromRecord(FullRecord(), EquityRule::MarginAndAvailable, money);
    EXPECT_EQ(Cents(money, Equity), std::nullopt);
    EXPECT_EQ(Cents(money, Premium), std::nullopt);
    EXPECT_EQ(Cents(money, CashFlow), std::nullopt);
    EXPECT_EQ(Cents(money, Closing), 120000);
}

TEST(PrintedMoneyReader, TakesTheFiguresOfAForeignCurrency) {
    PrintedMoney money;
    TakeForeignMoney(FullRecord(), money);
    EXPECT_EQ(Cents(money, FloatingPL), 5500);
    EXPECT_EQ(Cents(money, Equity), 120000);
    EXPECT_EQ(Cents(money, Closing), std::nullopt);
    EXPECT_EQ(Cents(money, Premium), std::nullopt);
}

TEST(PrintedMoneyReader, ReadsSignsTabsAndBars) {
    const PrintedMoney money = ReadBlock(
        {"资金状况", "-----", "上日结存:\t+1000.00|当日结存|-5.00", "手续费: - 可用资金: +", "保证金占用:", "-----"},
        "资金状况", "保证金占用");
    EXPECT_EQ(Cents(money, Opening), 100000);
    EXPECT_EQ(Cents(money, Closing), -500);
    EXPECT_EQ(Cents(money, Fees), std::nullopt);
    EXPECT_EQ(Cents(money, PrintedFigure::Available), std::nullopt);
    EXPECT_EQ(Cents(money, Margin), std::nullopt);
}

TEST(PrintedMoneyReader, ReadsLabelsPastTheSignsAmongThem) {
    // 丂 begins with a byte below those of the signs, and is a part of its label.
    const PrintedMoney money =
        ReadBlock({"资金状况", "-----", "“上日结存”：5.00 丂手续费: 2.00", "-----"}, "资金状况", "上日结存");
    EXPECT_EQ(Cents(money, Opening), 500);
    EXPECT_EQ(Cents(money, Fees), std::nullopt);
}

TEST(PrintedMoneyReader, TakesARowOfOtherColumnsThanItsHeadingForNoFigures) {
    const PrintedMoney money =
        ReadBlock({"资 金 清 单", "-----", "  上日结存   手续费", "  1000.00   50.00  -3.00", "  1.00  2.00", "-----"},
                  "资 金 清 单", "");
    EXPECT_EQ(Cents(money, Opening), 100);
    EXPECT_EQ(Cents(money, Fees), 200);
}

TEST(PrintedMoneyReader, LooksAtSixtyLinesBelowItsTitle) {
    for (const int others : {58, 59, 60}) {
        std::string text = Gbk("资金状况\r\n");
        for (int i = 0; i < others; ++i) text += "-----\r\n";
        text += Gbk("手续费: 5.00\r\n");
        PrintedMoney money;
        const std::string_view title = std::string_view(text).substr(0, text.find('\r'));
        ReadPrintedMoney({text, title, {}}, money);
        EXPECT_EQ(Cents(money, Fees), others < 60 ? std::optional<std::int64_t>(500) : std::nullopt) << others;
    }
}

TEST(PrintedMoneyReader, TakesNoNetDepositsBesideEitherOfTheTwo) {
    for (const PrintedFigure figure : {Deposits, Withdrawals}) {
        PrintedMoney money;
        money[figure] = 0;
        CompleteFromRecord(FullRecord(), EquityRule::AsPrinted, money);
        EXPECT_EQ(Cents(money, CashFlow), std::nullopt);
    }
}

TEST(PrintedMoneyReader, TakesNoPremiumBesideEitherPartOfIt) {
    for (const PrintedFigure figure : {PremiumReceived, PremiumPaid}) {
        PrintedMoney money;
        money[figure] = 0;
        CompleteFromRecord(FullRecord(), EquityRule::AsPrinted, money);
        EXPECT_EQ(Cents(money, Premium), std::nullopt);
    }
}

}  // namespace
}  // namespace tradebill::printed_money_reader_test
