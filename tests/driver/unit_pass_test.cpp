#include "driver/unit_pass.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>

#include "driver/run_fixture.h"
#include "platform/file.h"
#include "report/product_text.h"

namespace tradebill::unit_pass_test {
namespace {

class UnitPass : public RunFixture {
protected:
    /// A statement of one trade, told of `day` in its own text.
    static std::string StatementOf(const std::string& day, const std::string& trade) {
        return Statement({"日  期:" + day, "资金状况", "----------", "上日结存: 1.00 当日结存: 1.00",
                          "客户权益: 1.00 可用资金: 1.00", "----------", "成交记录", "----------",
                          "成交日期 交易所 品种 交割期 买卖 开平 成交价 手数 成交额 手续费 平仓盈亏 投保", trade,
                          "共 1条"});
    }
    static std::string Trade(const std::string& product, const std::string& turnover) {
        return "20240102 上期所 " + product + " 2405 买 开 4000 2 " + turnover + " 3.00 0.00 投";
    }
    [[nodiscard]] std::int32_t UnitOf(const std::string& product) const {
        return TallyTrades(request_, root_.Path()).units.UnitOf(product).value_or(0);
    }
};

TEST_F(UnitPass, TalliesTheTradesOfAllDays) {
    Put("D10086.20240102o.txt", StatementOf("20240102", Trade("rb", "80000.00")));
    Put("D10086.20240103o.txt", StatementOf("20240103", Trade("cu", "40000.00")));
    Put("D10086.20240104o.txt", StatementOf("20240104", Trade("ni", "8000.00")));
    EXPECT_EQ(UnitOf("rb"), 10);
    EXPECT_EQ(UnitOf("cu"), 5);
    EXPECT_EQ(UnitOf("ni"), 0);  // behind the last day
}

TEST_F(UnitPass, ReadsOnlyStatementsOfTheRange) {
    Put("D10086.20240101o.txt", StatementOf("20240101", Trade("rb", "80000.00")));
    EXPECT_EQ(UnitOf("rb"), 0);
    SetDates("2024-1-3", "2024-1-2");
    EXPECT_EQ(UnitOf("rb"), 0);
    SetDates("2024-1-1", "2024-1-1");
    EXPECT_EQ(UnitOf("rb"), 10);
}

TEST_F(UnitPass, LeavesTheFoldersAsTheyAre) {
    PutBothDays();
    const auto before = ContentOf(root_.Path());
    static_cast<void>(TallyTrades(request_, root_.Path()));
    EXPECT_EQ(ContentOf(root_.Path()), before);
}

TEST_F(UnitPass, NamesWhatItCantRead) {
    Put("D10086.20240102o.txt", StatementOf("20240102", Trade("rb", "80000.00")));
    EXPECT_TRUE(TallyTrades(request_, root_.Path()).unread.empty());
    CopyField(request_.TemplateName, "own");
    std::filesystem::create_directories(root_.Path("BillTemplate/own.ini"));
    std::filesystem::create_directories(root_.Path("Users/u/Data/Bill/D10086.20240103o.txt"));
    const TradeTally tally = TallyTrades(request_, root_.Path());
    ASSERT_EQ(tally.unread.size(), 2U);
    EXPECT_EQ(tally.unread[0].path, root_.Path("Users/u/Data/Bill/D10086.20240103o.txt"));
    EXPECT_EQ(tally.unread[0].state, FileState::NotAFile);
    EXPECT_EQ(tally.unread[1].path, root_.Path("BillTemplate/own.ini"));
    EXPECT_EQ(tally.units.UnitOf("rb"), 10);
}

TEST_F(UnitPass, AsksNobodyToStop) {
    Put("D10086.20240102o.txt", StatementOf("20240102", Trade("rb", "80000.00")));
    const UniqueEvent stop(CreateHostEvent(0));
    request_.StopEvent = stop.get();
    SignalHostEvent(stop.get());
    EXPECT_EQ(UnitOf("rb"), 10);
    EXPECT_EQ(WaitForHostEvent(stop.get(), 0), 1);  // and leaves it for the run
}

TEST_F(UnitPass, EndsInSilenceWhereTheRunWillFail) {
    SetDates("2024-1-2", "2024-13-1");
    EXPECT_EQ(UnitOf("rb"), 0);
}

TEST_F(UnitPass, KnowsNothingOfTheForeignFamily) {
    Put("DWP10086.20240102o.txt", StatementOf("20240102", Trade("rb", "80000.00")));
    request_.StatementKind = kForeignKind;
    EXPECT_EQ(UnitOf("rb"), 0);
}

// The made-up accounts are traded by the units that stand beside them.
TEST_F(UnitPass, FindsTheUnitsOfTheSamples) {
    int products = 0;
    for (const auto& sample : std::filesystem::directory_iterator(TRADEBILL_SAMPLES)) {
        const std::string folder = sample.path().string();
        const auto [askedState, askedReason, asked] = LoadIniFile(folder + "/request.ini");
        const auto [unitsState, unitsReason, units] = LoadIniFile(folder + "/units.ini");
        if (askedState != FileState::Read || unitsState != FileState::Read) continue;
        request_.StatementFormat = asked.Integer("REQUEST", "format", 0);
        CopyField(request_.UserFolder, asked.Text("REQUEST", "user"));
        CopyField(request_.Account, asked.Text("REQUEST", "account"));
        CopyField(request_.TemplateName, asked.Text("REQUEST", "template"));
        SetDates(asked.Text("REQUEST", "from"), asked.Text("REQUEST", "to"));
        const CTradeUnits trades = TallyTrades(request_, folder + "/root").units;
        for (const CIniFile::Entry& entry : units.FindSection("UNITS")->entries) {
            const auto unit = trades.UnitOf(Gbk(entry.key));
            if (!unit) continue;
            EXPECT_EQ(*unit, std::stoi(entry.value)) << folder << ": " << entry.key;
            ++products;
        }
    }
    EXPECT_GT(products, 80);
}

}  // namespace
}  // namespace tradebill::unit_pass_test
