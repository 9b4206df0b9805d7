#include "readers/record_sink.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>

#include "base/text.h"
#include "readers/reader_fixture.h"
#include "report/records.h"

namespace tradebill::record_sink_test {
namespace {

class RecordSink : public ReaderFixture {
protected:
    void AddMoney(const char* day, const char* closing, const char* available) {
        auto record = std::make_unique<MoneyRecord>(ClearedMoneyRecord());
        CopyField(record->BILL_DATE, day);
        CopyField(record->QCQY, "900");
        CopyField(record->QMJC, closing);
        CopyField(record->KYZJ, available);
        CopyField(record->PCYK, "30");
        CopyField(record->CCDSYK, "40");
        CopyField(record->CRJ, "50");
        CopyField(record->BZJZY, "200");
        CopyField(record->HOST_POSITION_MARGIN, "7");
        sink_.Add(std::move(record));
    }

    void AddClosed(const char* bid, const char* openPrice, const char* closePrice) {
        PingDetail& record = sink_.NewRow<PingDetail>();
        CopyField(record.BILL_DATE, "20240102");
        CopyField(record.CONTRACT, "cu");
        CopyField(record.DELIVERY, "2402");
        CopyField(record.BID, Gbk(bid));
        CopyField(record.OPEN_PRICE, openPrice);
        CopyField(record.MATCH_PRICE, closePrice);
        CopyField(record.MATCH_VOL, "2");
        sink_.Add(record);
    }

    CRecordSink sink_{report, nullptr};
};

TEST_F(RecordSink, AddsMoneyAsAStatementToTheStore) {
    AddMoney("20240102", "1000", "600");
    ASSERT_EQ(report.MoneyStore.Count(), 1);
    EXPECT_TRUE(report.MoneyStore.HasDay("20240102"));
    EXPECT_EQ(report.MoneyStore.ClosingEquity, 1000);
    EXPECT_EQ(report.MoneyStore.TotalPositionPL, 40);
    EXPECT_EQ(report.MoneyStore.PositionMargin, 400);  // closing less available; a live record would bring its own 7
    EXPECT_TRUE(report.CurrencyMoneyStore.Stores.empty());
}

TEST_F(RecordSink, FeedsMoneyToTheStatistics) {
    AddMoney("20240102", "1000", "600");
    const DayFigure* const figure = report.TradeStatistics.DayFigures.Find("20240102");
    ASSERT_NE(figure, nullptr);
    EXPECT_EQ(figure->Opening, 900);
    EXPECT_EQ(figure->Closing, 1000);
    EXPECT_EQ(figure->ClosedPL, 30);
    EXPECT_EQ(figure->PositionPL, 40);
    EXPECT_EQ(figure->CashFlow, 50);
    const CDayUsage* const usage = report.TradeStatistics.DayUsages.Find("20240102");
    ASSERT_NE(usage, nullptr);
    EXPECT_EQ(usage->Margin, 200);
    EXPECT_EQ(usage->Risk, 0.2);
}

TEST_F(RecordSink, KeepsOneRecordAndTheLaterFiguresOfADayThatComesTwice) {
    AddMoney("20240102", "1000", "600");
    AddMoney("20240102", "2000", "600");
    EXPECT_EQ(report.MoneyStore.Count(), 1);
    EXPECT_EQ(report.MoneyStore.TotalClosedPL, 60);
    ASSERT_EQ(report.TradeStatistics.DayFigures.Days.size(), 1U);
    EXPECT_EQ(report.TradeStatistics.DayFigures.Days.front()->Closing, 2000);
    EXPECT_EQ(report.TradeStatistics.DayFigures.Days.front()->ClosedPL, 30);
}

TEST_F(RecordSink, AddsATradeToItsStoreAlone) {
    MatchRecord& record = sink_.NewRow<MatchRecord>();
    CopyField(record.CONTRACT, "cu");
    CopyField(record.OFFSETPL, "100");
    sink_.Add(record);
    ASSERT_EQ(report.MatchStore.Count(), 1);
    EXPECT_EQ(&report.MatchStore.Rows.front(), &record);
    report.MatchStore.Clear();
    EXPECT_TRUE(NothingRead());
    EXPECT_EQ(report.AccountStatistics.TotalPL, 0);
}

TEST_F(RecordSink, LeavesNothingOfARowThatIsNotAdded) {
    CopyField(sink_.NewRow<MatchRecord>().CONTRACT, "cu");
    CopyField(sink_.NewRow<PingDetail>().CONTRACT, "cu");
    EXPECT_TRUE(NothingRead());
    MatchRecord& record = sink_.NewRow<MatchRecord>();
    EXPECT_STREQ(record.CONTRACT, "");
    sink_.Add(record);
    EXPECT_EQ(report.MatchStore.Count(), 1);
}

TEST_F(RecordSink, AddsAClosedPositionAndFoldsItIntoItsContract) {
    AddClosed("买", "100", "105");
    AddClosed("卖", "100", "103");
    EXPECT_EQ(TextsOf(report.PingDetailStore.Rows, "BID"), (Texts{"买", "卖"}));
    ASSERT_EQ(report.ReportDocument.Offsets.size(), 1U);
    const ContractOffset& offset = *report.ReportDocument.Offsets.front();
    EXPECT_STREQ(offset.CONTRACT, "cu");
    EXPECT_EQ(offset.LONG_WIN_PL, 10);
    EXPECT_EQ(offset.SHORT_LOSE_PL, -6);
    EXPECT_EQ(report.AccountStatistics.TotalPL, 4);
    EXPECT_EQ(report.AccountStatistics.WinCount, 1);
    EXPECT_EQ(report.AccountStatistics.LoseCount, 1);
    EXPECT_TRUE(report.TradeStatistics.DayUsages.Days.empty());
    EXPECT_EQ(report.MatchStore.Count(), 0);
}

TEST_F(RecordSink, AddsAnOpenPositionAndFeedsItToTheStatistics) {
    OpiDetail& record = sink_.NewRow<OpiDetail>();
    CopyField(record.BILL_DATE, "20240102");
    CopyField(record.CONTRACT, "cu2402");
    CopyField(record.BID, Gbk("买"));
    CopyField(record.POSITION_VOL, "3");
    CopyField(record.DEPOSIT, "600");
    sink_.Add(record);
    EXPECT_EQ(report.OpiDetailStore.Count(), 1);
    EXPECT_EQ(report.OpiSumStore.Count(), 0);
    const CDayUsage* const usage = report.TradeStatistics.DayUsages.Find("20240102");
    ASSERT_NE(usage, nullptr);
    ASSERT_EQ(usage->Positions.size(), 1U);
    EXPECT_EQ(usage->Positions.front()->Product, "cu");
    EXPECT_EQ(usage->Positions.front()->Side, Gbk("买"));
    EXPECT_EQ(usage->Positions.front()->Lots, 3);
    EXPECT_EQ(usage->Positions.front()->Margin, 600);
}

TEST_F(RecordSink, AddsASummaryRowToItsStoreAlone) {
    OpiSum& record = sink_.NewRow<OpiSum>();
    CopyField(record.BILL_DATE, "20240102");
    CopyField(record.CONTRACT, "cu2402");
    CopyField(record.BID, Gbk("买"));
    CopyField(record.POSITION_VOL, "3");
    CopyField(record.DEPOSIT, "600");
    sink_.Add(record);
    EXPECT_EQ(report.OpiSumStore.Count(), 1);
    report.OpiSumStore.Clear();
    EXPECT_TRUE(NothingRead());
}

}  // namespace
}  // namespace tradebill::record_sink_test
