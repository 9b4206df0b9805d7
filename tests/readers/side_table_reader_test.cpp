#include "readers/side_table_reader.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/text_encoding.h"
#include "readers/scan_listener.h"
#include "support/gbk_text.h"

namespace tradebill::side_table_reader_test {

using Events = std::vector<std::string>;

/// What is told, a line each: fields that a table has are joined by "/", "-" stands for one that it lacks.
class CRecorder final : public CSideTableListener {
public:
    Events events;

    void OnTable(const SideTableSeen& table) override {
        events.push_back("table " + std::string(SectionName(table.kind)) + " " + std::to_string(table.columns));
    }
    void OnHeading(std::span<const bool> known) override { known_.assign(known.begin(), known.end()); }
    void OnRow(const SideRow& row) override {
        std::string text = "row";
        for (std::size_t i = 1; i < row.fields.size(); ++i) {
            text += known_[i] ? "/" + FromGbk(row.fields[i]) : "/-";
        }
        if (!row.currency.empty()) text += " in " + FromGbk(row.currency);
        events.push_back(text);
    }
    void OnOddRow(std::string_view row, std::size_t cells) override {
        events.push_back("odd " + std::to_string(cells) + " " + FromGbk(row));
    }
    void OnTotal(std::string_view row) override { events.push_back("total " + FromGbk(row)); }
    void OnTableEnd() override { events.emplace_back("end"); }

private:
    static std::string FromGbk(std::string_view text) { return GbkToUtf8(text); }
    std::vector<bool> known_;
};

Events EventsOf(std::string_view text) {
    CRecorder recorder;
    ReadSideTables(Gbk(text), recorder);
    return recorder.events;
}

constexpr std::string_view kCash =
    "                 出入金明细 Deposit/Withdrawal \n"
    "------------------------------------------------\n"
    "|发生日期|  出入金类型  |   入金   |   出金  | 说明 |\n"
    "|  Date  |     Type     | Deposit  |Withdrawal| Note |\n"
    "------------------------------------------------\n"
    "|20210915|银期转账      |  50000.00|     0.00|      |\n"
    "|20210915|手续费返还    |      0.00|20000.00| 返还 |\n"
    "------------------------------------------------\n"
    "|共   2条|              |  50000.00|20000.00|      |\n"
    "------------------------------------------------\n";

TEST(SideTableReader, ReadsRowsFromTheHeadingToTheTotal) {
    EXPECT_EQ(EventsOf(kCash), (Events{"table cash 5", "row/20210915/银期转账/50000.00/0.00/",
                                       "row/20210915/手续费返还/0.00/20000.00/返还",
                                       "total |共   2条|              |  50000.00|20000.00|      |", "end"}));
}

TEST(SideTableReader, NeedsNoRulesNoSecondHeadingAndNoPadding) {
    EXPECT_EQ(EventsOf("行权明细  Exercise Statement\n"
                       "|成交日期|投资单元|交易所|交易编码|品种|合约|投/保|买/卖|是否行权|行权数量|行权价格|行权金额|"
                       "行权盈亏|行权手续费|资金账号|\n"
                       "|20260529|U1|大商所|C1|铁矿石|i2609-C-800|投机|买|行权|3|800.000|240000.00|1500.00|6.00|A1|\n"
                       "|共 1条|||||||||3||240000.00|1500.00|6.00||\n"),
              (Events{"table exercises 15",
                      "row/20260529/大商所/铁矿石/i2609-C-800/投机/买/行权/3/800.000/240000.00/1500.00/6.00",
                      "total |共 1条|||||||||3||240000.00|1500.00|6.00||", "end"}));
}

TEST(SideTableReader, TakesTheMonthOfDeliveryForTheContractWhereThatLacks) {
    const Events months = EventsOf(
        "交割明细  Delivery\n"
        "|交割日期|交易所|品种|交割期|投/保|买/卖|实提数量|剩余数量|交割价格|交割金额|交割手续费|"
        "开仓均价|交割盈亏|\n"
        "|20260529|上期所|铜|2605|投机|卖|25|0|78000.00|1950000.00|50.00|77000.00|-25000.00|\n"
        "|共 1条||||||25|0||1950000.00|50.00||-25000.00|\n");
    ASSERT_EQ(months.size(), 4U);
    EXPECT_EQ(months[1], "row/20260529/上期所/铜/2605/投机/卖/25/0/78000.00/1950000.00/50.00/77000.00/-25000.00");
    const Events both = EventsOf("交割明细\n|交割日期|交割期|合约|\n|20260529|2605|cu2605|\n|共 1条|||\n");
    ASSERT_EQ(both.size(), 4U);
    EXPECT_EQ(both[1], "row/20260529/-/-/cu2605/-/-/-/-/-/-/-/-/-");
}

TEST(SideTableReader, FindsColumnsInAnyOrderAndPassesOverThoseItDoesNotKnow) {
    EXPECT_EQ(
        EventsOf("出 入 金 明 细\n|摘要|汇率|出金|账户币种|入金|发生日期|\n|转入|7.1|0.00|USD|5.00|20260529|\n|共1条|"
                 "|0.00||5.00||\n"),
        (Events{"table cash 6", "row/20260529/-/5.00/0.00/转入 in USD", "total |共1条||0.00||5.00||", "end"}));
}

TEST(SideTableReader, ReadsEnglishHeadingsWhereNoChineseOnesStand) {
    EXPECT_EQ(EventsOf("出入金明细\n|Date|Type|Deposit|Withdrawal|Note|\n|20260529|wire|5.00|0.00|x|\n|共 1条|||||\n"),
              (Events{"table cash 5", "row/20260529/wire/5.00/0.00/x", "total |共 1条|||||", "end"}));
}

TEST(SideTableReader, ReadsATableForEachCurrency) {
    EXPECT_EQ(EventsOf("出入金明细 币种：人民币\n|发生日期|入金|\n|20260529|1.00|\n|共 1条|1.00|\n"
                       "出入金明细\n币种：美元 Currency：USD\n|发生日期|入金|\n|20260529|2.00|\n|共 1条|2.00|\n"),
              (Events{"table cash 2", "row/20260529/-/1.00/-/-", "total |共 1条|1.00|", "end", "table cash 2",
                      "row/20260529/-/2.00/-/-", "total |共 1条|2.00|", "end"}));
}

// The figure's label has the words of the title, or some of them, and its value behind it.
TEST(SideTableReader, TakesNoLabelForATitle) {
    EXPECT_EQ(EventsOf("出 入 金 Deposit/Withdrawal：  30000.00  期末结存：1.00\n|发生日期|入金|\n|20260529|1.00|\n"),
              Events());
    EXPECT_EQ(EventsOf("出入金明细：\n|发生日期|入金|\n|20260529|1.00|\n"), Events());
    EXPECT_EQ(EventsOf("出入金明细 2 rows\n|发生日期|入金|\n|20260529|1.00|\n"), Events());
}

TEST(SideTableReader, NeedsAHeadingBelowTheTitle) {
    EXPECT_EQ(EventsOf("出入金明细\n成交记录\n|成交日期|交易所|\n|20260529|1.00|\n"), Events());
    EXPECT_EQ(EventsOf("出入金明细\n"), Events());
}

TEST(SideTableReader, TellsOfAHeadingOfWhichItKnowsNoColumn) {
    EXPECT_EQ(EventsOf("出入金明细\n|甲|乙|\n|20260529|1.00|\n|共 1条|1.00|\n"), (Events{"table cash 2", "end"}));
}

TEST(SideTableReader, EndsWithoutATotalAtTheNextTitleOrATableThatItDoesNotKnow) {
    const std::string rows = "出入金明细\n|发生日期|入金|\n|20260529|1.00|\n";
    const Events one{"table cash 2", "row/20260529/-/1.00/-/-", "end"};
    EXPECT_EQ(EventsOf(rows), one);
    EXPECT_EQ(EventsOf(rows + "买---Buy\n\n质押明细\n|日期|金额|\n|20260529|1.00|\n"), one);
    EXPECT_EQ(EventsOf(rows + "交割明细\n"), one);
}

TEST(SideTableReader, TellsOfRowsThatAreNone) {
    EXPECT_EQ(
        EventsOf("出入金明细\n|发生日期|入金|出金|\n|20260529|1.00|\n第2页\n|20260529|1.00|0.00|\n|20260529|1|0|0|\n"
                 "|共 3条|||\n"),
        (Events{"table cash 3", "odd 2 |20260529|1.00|", "odd 1 第2页", "row/20260529/-/1.00/0.00/-",
                "odd 4 |20260529|1|0|0|", "total |共 3条|||", "end"}));
}

TEST(SideTableReader, PassesOverTheHeadingOfANewPage) {
    EXPECT_EQ(
        EventsOf(
            "出入金明细\n|发生日期|入金|\n|20260529|1.00|\n第二页\n|发生日期|入金|\n|20260530|2.00|\n|共 2条|3.00|\n"),
        (Events{"table cash 2", "row/20260529/-/1.00/-/-", "row/20260530/-/2.00/-/-", "total |共 2条|3.00|", "end"}));
}

// The second byte of 瓅 is that of a bar.
TEST(SideTableReader, KeepsCharactersWhole) {
    CRecorder recorder;
    ReadSideTables(Gbk("出入金明细\n|发生日期|说明|入金|\n|20260529|") + "\xAD\x7C" + "|1.00|\n", recorder);
    ASSERT_EQ(recorder.events.size(), 3U);
    EXPECT_TRUE(recorder.events[1].starts_with("row/20260529/-/1.00/-/"));
}

TEST(SideTableReader, ReadsTheSameWithCarriageReturns) {
    std::string text;
    for (const char byte : kCash) text += byte == '\n' ? "\r\n" : std::string(1, byte);
    EXPECT_EQ(EventsOf(text), EventsOf(kCash));
}

TEST(SideTableReader, ReadsAHundredThousandRowsAndAsManyStrayLines) {
    constexpr std::size_t kRows = 100000;
    std::string text = Gbk("出入金明细\n|发生日期|入金|\n");
    for (std::size_t i = 0; i < kRows; ++i) text += "|20260529|1.00|\nx\n";
    CRecorder recorder;
    ReadSideTables(text, recorder);
    EXPECT_EQ(recorder.events.size(), 2 * kRows - 1 + 2);  // the line behind the last row is beside the table
}

}  // namespace tradebill::side_table_reader_test
