// Two days of an account, changed: everything that shows whose they are is gone, everything that must agree agrees.
#include "anonymise/account_anonymiser.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "base/decimal.h"
#include "base/text.h"
#include "report/request_copy.h"
#include "support/gbk_text.h"
#include "support/temp_folder.h"

namespace tradebill::account_anonymiser_test {
namespace {

/// A statement of format 1: two trades, one of which closes a position, and one that stays open.
std::string Day(std::string_view day, std::string_view opening, std::string_view closing) {
    const std::string made = "                制表时间：" + std::string(day) + " 16:05:11";
    const std::string head = "日  期:" + std::string(day);
    const std::string first = "上日结存: " + std::string(opening) + "          当日结存:  " + std::string(closing);
    const std::string money = "手续费:      12.34          可用资金:  " + std::string(closing);
    const std::string trade = std::string(day) + "  大商所  i  2405  卖  平  990.5  4  396200.00   9.88  7400.00 投";
    const std::string other = std::string(day) + "  大商所  i  2405  买  开  987.5  1   98750.00   2.46     0.00 投";
    const std::string closed =
        std::string(day) + "  大商所  i  2405  00044638  卖  990.5  20240102  972.0  4  972.0  7400.00";
    return Statement(
        {"            云母山期货有限公司（示例）",
         "                交易结算单（盯市）",
         made,
         "客户号: 90010002          客户名称: 李小龙",
         head,
         "",
         "              资金状况",
         "----------",
         first,
         "出入金:      0.00          客户权益:  " + std::string(closing),
         "平仓盈亏: 7400.00          保证金占用:      0.00",
         "持仓盯市盈亏: 0.00          风险度: 0.00%",
         money,
         "----------",
         "",
         "          成交记录",
         "----------",
         "成交日期  交易所  品种  交割期  买卖  开平  成交价  手数  成交额  手续费  平仓盈亏 投保",
         trade,
         other,
         "----------",
         "共 2条      5    494950.00     12.34   7400.00",
         "----------",
         "",
         "          平仓明细",
         "----------",
         "平仓日期  交易所  品种  交割期  成交编号  买卖  平仓价  开仓日期  开仓价  手数  昨结算价  平仓盈亏",
         closed,
         "----------",
         "共 1条        4       7400.00",
         "----------",
         "",
         "李小龙女士如有异议，请在下一交易日与云母山期货有限公司联系（账号90010002）。"});
}

GenerateBillRequest Request() {
    GenerateBillRequest request = ClearedRequest();
    request.StatementKind = 1;
    request.StatementFormat = 1;
    CopyField(request.Account, "90010002");
    return request;
}

std::vector<AnonymisedStatement> Anonymised(std::uint64_t seed = 1, int weeks = 0) {
    CAccountAnonymiser anonymiser(Request(), {}, {.seed = seed, .shiftWeeks = weeks}, "71234567");
    anonymiser.Add({"20240103", Day("20240103", "500824.20", "508211.86")});
    anonymiser.Add({"20240104", Day("20240104", "508211.86", "515599.52")});
    AnonymisedAccount made = anonymiser.Make();
    EXPECT_TRUE(made.leftOut.empty());
    return std::move(made.statements);
}

/// The number behind a label, in 1/10000.
std::int64_t Behind(std::string_view text, std::string_view label) {
    const std::string word = Gbk(label);
    const std::size_t at = text.find(word);
    if (at == std::string_view::npos) return -1;
    const std::string_view rest = TrimLeft(text.substr(at + word.size()));
    const auto amount = ParseDecimal(rest.substr(0, rest.find_first_of(" \r")));
    return amount ? amount->steps : -1;
}

/// The words of the row that begins, behind blanks, with `start`, the `number`th of them from 0.
std::vector<std::string> RowWith(std::string_view text, std::string_view start, int number = 0) {
    for (std::string_view rest = text; !rest.empty();) {
        const std::string_view line = Trim(TakeLine(rest));
        if (!line.starts_with(Gbk(start)) || number-- > 0) continue;
        std::vector<std::string_view> parts;
        SplitText(line, " ", parts);
        return {parts.begin(), parts.end()};
    }
    return {};
}

std::int64_t Steps(const std::string& text) {
    const auto amount = ParseDecimal(text);
    return amount ? amount->steps : -1;
}

TEST(AccountAnonymiser, KeepsLinesAndTheirWidth) {
    const auto copies = Anonymised();
    ASSERT_EQ(copies.size(), 2u);
    const std::string original = Day("20240103", "500824.20", "508211.86");
    ASSERT_EQ(copies[0].text.size(), original.size());
    for (std::size_t i = 0; i < original.size(); ++i) {
        EXPECT_EQ(original[i] == '\n', copies[0].text[i] == '\n') << i;
    }
}

TEST(AccountAnonymiser, HidesAccountNameBrokerAndTradeNumbers) {
    for (const AnonymisedStatement& copy : Anonymised()) {
        for (const std::string_view word :
             {"90010002", "00044638", "李小龙", "云母山", "396200.00", "990.5", "7400.00"}) {
            EXPECT_EQ(copy.text.find(Gbk(word)), std::string::npos) << word;
        }
        EXPECT_NE(copy.text.find(Gbk("客户号: 71234567          客户名称: 某某某")), std::string::npos);
        EXPECT_NE(copy.text.find(Gbk("某某某期货有限公司（示例）")), std::string::npos);
        EXPECT_NE(copy.text.find(Gbk("与某某某期货有限公司联系（账号71234567）")), std::string::npos);
    }
}

/// The first statement breaks off within a table, whose end is then that of the second one's.
TEST(AccountAnonymiser, HidesThemInATableThatGoesOnIntoAnotherStatement) {
    const std::string whole = Day("20240103", "500824.20", "508211.86");
    const std::string broken = whole.substr(0, whole.find(Gbk("共 2条"))) + whole;
    CAccountAnonymiser anonymiser(Request(), {}, {.seed = 1}, "71234567");
    anonymiser.Add({"20240103", broken});
    const AnonymisedAccount made = anonymiser.Make();
    ASSERT_EQ(made.statements.size(), 1u);
    for (const std::string_view word : {"90010002", "李小龙", "云母山"}) {
        EXPECT_EQ(made.statements[0].text.find(Gbk(word)), std::string::npos) << word;
    }
}

TEST(AccountAnonymiser, KeepsContractsLotsAndDays) {
    const auto copies = Anonymised();
    const auto trade = RowWith(copies[0].text, "20240103");
    ASSERT_EQ(trade.size(), 12u);
    EXPECT_EQ(trade[2] + " " + trade[3] + " " + trade[7], "i 2405 4");
    EXPECT_EQ(copies[0].from, "20240103");
    EXPECT_EQ(copies[0].day, "20240103");
}

TEST(AccountAnonymiser, KeepsUnitsAndTotals) {
    const std::string text = Anonymised()[0].text;
    const auto trade = RowWith(text, "20240103");
    const auto other = RowWith(text, "20240103", 1);
    const auto total = RowWith(text, "共 2条");
    ASSERT_EQ(total.size(), 6u);
    EXPECT_EQ(Steps(trade[8]), Steps(trade[6]) * 4 * 100);  // 100 tons a lot
    EXPECT_EQ(Steps(other[8]), Steps(other[6]) * 100);
    EXPECT_EQ(total[2], "5");
    EXPECT_EQ(Steps(total[3]), Steps(trade[8]) + Steps(other[8]));
    EXPECT_EQ(Steps(total[4]), Steps(trade[9]) + Steps(other[9]));
    EXPECT_EQ(Steps(total[5]), Steps(trade[10]));
}

TEST(AccountAnonymiser, KeepsTheProfitBetweenPrices) {
    const auto closed = RowWith(Anonymised()[0].text, "20240103", 2);
    ASSERT_EQ(closed.size(), 12u);
    EXPECT_EQ(Steps(closed[11]), (Steps(closed[6]) - Steps(closed[8])) * 4 * 100);
    EXPECT_EQ(closed[8], closed[10]);  // both were 972.0
}

TEST(AccountAnonymiser, KeepsTheBalanceAndHandsItOver) {
    const auto copies = Anonymised();
    for (const AnonymisedStatement& copy : copies) {
        const std::int64_t closing = Behind(copy.text, "当日结存:");
        EXPECT_EQ(closing,
                  Behind(copy.text, "上日结存:") + Behind(copy.text, "平仓盈亏:") - Behind(copy.text, "手续费:"));
        EXPECT_EQ(closing, Behind(copy.text, "客户权益:"));
        EXPECT_EQ(closing, Behind(copy.text, "可用资金:"));
        EXPECT_GT(closing, 0);
    }
    EXPECT_EQ(Behind(copies[0].text, "当日结存:"), Behind(copies[1].text, "上日结存:"));
}

/// Tables that no layout has, with what leads to a person in them.
constexpr std::string_view kSideTables =
    "出入金明细 Deposit/Withdrawal\r\n"
    "|发生日期|出入金类型|     入金|    出金|说明                    |\r\n"
    "|20240103|银期转账  | 50000.01|    0.00|李小龙工行6222021234567 |\r\n"
    "|20240103|银期转账  |     0.00|20000.03|                        |\r\n"
    "|共   2条|          | 50000.01|20000.03|                        |\r\n"
    "\r\n"
    "行权明细 Exercise Statement\r\n"
    "|成交日期|投资单元|交易编码|合约      |行权数量|行权盈亏|行权手续费|资金账号|\r\n"
    "|20240103|UNIT7788|CODE9911|m2405-C-30|       3| 1500.00|      6.00|90010002|\r\n"
    "|共   1条|        |        |          |       3| 1500.00|      6.00|        |\r\n";

/// What `check` looks at: the cash flow, and the rows and totals beside the page's own.
struct SideAmounts {
    std::int64_t flow;
    std::vector<std::string> rows;
    std::vector<std::string> totals;
};

SideAmounts SideAmountsOf(const std::string& text) {
    const auto amounts = [&](std::string_view start) {
        std::vector<std::string> cells;
        for (int number = 0;; ++number) {
            const std::vector<std::string> row = RowWith(text, start, number);
            if (row.empty()) return cells;
            for (const std::string& cell : row) {
                std::vector<std::string_view> parts;
                SplitText(cell, "|", parts);
                cells.insert(cells.end(), parts.begin(), parts.end());
            }
        }
    };
    return {Behind(text, "出入金:"), amounts("|2024010"), amounts("|共")};
}

TEST(AccountAnonymiser, ChangesTheTablesThatNoLayoutHas) {
    std::string day = Day("20240103", "500824.20", "538211.84");
    const std::string flow = Gbk("出入金:      0.00");
    day.replace(day.find(flow), flow.size(), Gbk("出入金:  29999.98"));
    CAccountAnonymiser anonymiser(Request(), {}, {.seed = 1}, "71234567");
    anonymiser.Add({"20240103", day + Gbk(kSideTables)});
    const AnonymisedAccount made = anonymiser.Make();
    ASSERT_EQ(made.statements.size(), 1U);
    const std::string& text = made.statements.front().text;
    for (const std::string_view gone :
         {"李小龙", "工行", "6222021234567", "UNIT7788", "CODE9911", "90010002", "50000.01"}) {
        EXPECT_EQ(text.find(Gbk(gone)), std::string::npos) << gone;
    }
    const SideAmounts side = SideAmountsOf(text);
    ASSERT_GE(side.rows.size(), 15U);
    ASSERT_GE(side.totals.size(), 3U);
    EXPECT_EQ(side.flow, Steps(side.totals[2]) - Steps(side.totals[3]));
    EXPECT_NE(text.find(Gbk("|m2405-C-30|       3|")), std::string::npos);
}

TEST(AccountAnonymiser, MakesTheSameOfTheSameSeed) {
    EXPECT_EQ(Anonymised(5)[1].text, Anonymised(5)[1].text);
    EXPECT_NE(Anonymised(5)[1].text, Anonymised(6)[1].text);
}

TEST(AccountAnonymiser, KeepsARepeatedFileRepeated) {
    CAccountAnonymiser anonymiser(Request(), {}, {.seed = 1, .shiftWeeks = 1}, "71234567");
    const std::string text = Day("20240104", "508211.86", "515599.52");
    anonymiser.Add({"20240102", text});
    anonymiser.Add({"20240103", Day("20240103", "500824.20", "508211.86")});
    anonymiser.Add({"20240104", text});
    anonymiser.Add({"20240105", text});
    anonymiser.Add({"20240108", Day("20240108", "515599.52", "522987.18")});
    const auto copies = anonymiser.Make().statements;
    ASSERT_EQ(copies.size(), 5u);
    EXPECT_EQ(copies[3].day, "20240112");
    EXPECT_EQ(copies[0].text, copies[2].text);
    EXPECT_EQ(copies[3].text, copies[2].text);
    EXPECT_EQ(Behind(copies[2].text, "上日结存:"), Behind(copies[1].text, "当日结存:"));
    EXPECT_EQ(Behind(copies[4].text, "上日结存:"), Behind(copies[2].text, "当日结存:"));
}

TEST(AccountAnonymiser, MovesDaysByWeeks) {
    const auto copies = Anonymised(1, 2);
    EXPECT_EQ(copies[0].from, "20240103");
    EXPECT_EQ(copies[0].day, "20240117");
    EXPECT_NE(copies[0].text.find(Gbk("日  期:20240117")), std::string::npos);
    EXPECT_NE(copies[0].text.find(Gbk("制表时间：20240117 16:05:11")), std::string::npos);
    EXPECT_EQ(copies[0].text.find("20240103"), std::string::npos);
    EXPECT_EQ(RowWith(copies[0].text, "20240117", 2)[7], "20240116");  // opened on 2 January
}

/// `text` without its first line that begins, behind blanks, with `start`.
std::string Without(std::string text, std::string_view start) {
    const std::size_t at = text.find(Gbk(start));
    return text.erase(at, text.find('\n', at) + 1 - at);
}

TEST(AccountAnonymiser, CopiesNothingWithoutItsTemplate) {
    CTempFolder folder;
    const std::string path = folder.Write("broker.ini", "[BILLFORMAT]\nBILLFORMAT_NEWDATE=20300101\n");
    const DayStatement day{"20240103", Day("20240103", "500824.20", "508211.86")};
    CAccountAnonymiser anonymiser(Request(), {.path = path}, {.seed = 1}, "71234567");
    anonymiser.Add(day);
    std::filesystem::remove(path);
    EXPECT_THROW(anonymiser.Add(day), CLostTemplate);
    EXPECT_THROW(static_cast<void>(anonymiser.Make()), CLostTemplate);
    std::filesystem::create_directory(path);
    EXPECT_THROW(anonymiser.Add(day), CLostTemplate);
    GenerateBillRequest foreign = Request();
    foreign.StatementKind = kForeignKind;
    EXPECT_NO_THROW(CAccountAnonymiser(foreign, {.path = path}, {.seed = 1}, "71234567").Add(day)) << "it isn't asked";
}

TEST(AccountAnonymiser, LeavesOutWhatItCannotRead) {
    struct Damage {
        std::string text;
        const char* reason;
    };
    const std::string whole = Day("20240103", "500824.20", "508211.86");
    const Damage kDamages[] = {
        {"", "holds nothing"},
        {" \r\n", "holds nothing"},
        {"hello, world\r\n", "nothing in it is recognised"},
        {whole.substr(0, whole.find(Gbk("平仓明细")) + 30), "begins and doesn't end"},
        {Without(whole, "共 2条"), "its section of trades begins and doesn't end"},  // rows of the next are trades then
        {whole + "\xFF\xFF", "isn't plain GBK text"},
        {whole + std::string(1, '\0'), "a zero byte"},
    };
    for (const Damage& damage : kDamages) {
        CAccountAnonymiser anonymiser(Request(), {}, {.seed = 1}, "71234567");
        anonymiser.Add({"20240103", damage.text});
        const AnonymisedAccount made = anonymiser.Make();
        EXPECT_TRUE(made.statements.empty()) << damage.reason;
        ASSERT_EQ(made.leftOut.size(), 1u) << damage.reason;
        EXPECT_NE(made.leftOut[0].reason.find(damage.reason), std::string::npos) << made.leftOut[0].reason;
    }
}

}  // namespace
}  // namespace tradebill::account_anonymiser_test
