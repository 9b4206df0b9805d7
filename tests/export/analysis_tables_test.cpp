#include "export/analysis_tables.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "export/tables_fixture.h"
#include "report/money_store.h"
#include "report/record_makers.h"
#include "support/gbk_text.h"

namespace tradebill::analysis_tables_test {
namespace {

class AnalysisTables : public TablesFixture {
protected:
    void AddDay(const char* day, const char* opening, const char* flow, const char* equity) {
        report.MoneyStore.Add(
            CopyOf(Money(day, {{"QCQY", opening}, {"CRJ", flow}, {"KHQY", equity}, {"BZJZY", "25.00"}})),
            MoneySource::Statement);
    }
    [[nodiscard]] std::vector<std::string> FigureRow(const std::string& name) const {
        for (const auto& row : RowsOf("figures", {"name", "value", "reason"})) {
            if (row.front() == name) return row;
        }
        return {};
    }
};

TEST_F(AnalysisTables, HaveTheFiguresOfADayBesideItsRecord) {
    AddDay("20240102", "100.00", "0.00", "110.00");
    AddDay("20240103", "110.00", "0.00", "99.00");
    EXPECT_EQ(RowsOf("days", {"day", "BILL_DATE", "KHQY", "pl", "return", "index", "marginUse"}),
              (TextRows{{"2024-01-02", "2024-01-02", "110.0", "10.0", "0.1", "1.1", "0.227273"},
                        {"2024-01-03", "2024-01-03", "99.0", "-11.0", "-0.1", "0.99", "0.252525"}}));
}

TEST_F(AnalysisTables, HaveDaysInTheirOrder) {
    AddDay("20240103", "110.00", "0.00", "99.00");
    AddDay("20240102", "100.00", "0.00", "110.00");
    EXPECT_EQ(RowsOf("days", {"day", "pl"}), (TextRows{{"2024-01-02", "10.0"}, {"2024-01-03", "-11.0"}}));
}

TEST_F(AnalysisTables, GiveALiveRecordTheLastDayAndOneWithoutEquityNone) {
    report.MoneyStore.EndDateText = "2024-01-03";
    AddDay("20240102", "100.00", "0.00", "110.00");
    AddDay("", "110.00", "0.00", "120.00");
    EXPECT_EQ(RowsOf("days", {"day", "BILL_DATE", "pl"}),
              (TextRows{{"2024-01-02", "2024-01-02", "10.0"}, {"2024-01-03", "-", "10.0"}}));
    report.MoneyStore.Clear();
    AddDay("", "110.00", "0.00", "");
    EXPECT_EQ(RowsOf("days", {"day", "QCQY", "pl"}), (TextRows{{"-", "110.0", "-"}}));
}

TEST_F(AnalysisTables, HaveMonthsYearsAndDrawdowns) {
    AddDay("20231229", "100.00", "0.00", "110.00");
    AddDay("20240102", "110.00", "0.00", "99.00");
    EXPECT_EQ(RowsOf("months", {"month", "pl"}), (TextRows{{"202312", "10.0"}, {"202401", "-11.0"}}));
    EXPECT_EQ(RowsOf("years", {"year", "return"}), (TextRows{{"2023", "0.1"}, {"2024", "-0.1"}}));
    EXPECT_EQ(RowsOf("drawdowns", {"peak", "valley", "recovery", "depth", "money", "daysDown", "daysUp"}),
              (TextRows{{"2023-12-29", "2024-01-02", "-", "0.1", "11.0", "1", "-"}}));
    EXPECT_EQ(RowsOf("weekdays", {"weekday", "days"}), (TextRows{{"2", "1"}, {"5", "1"}}));
}

TEST_F(AnalysisTables, HaveGroupsOfClosedPositions) {
    report.Request.StatementFormat = 2;
    report.PingDetailStore.Add() = Closed({{"BILL_DATE", "20240102"},
                                           {"MATCH_DATE", "20240102"},
                                           {"OPEN_DATE", "20240102"},
                                           {"EXCH_NAME", Gbk("大商所")},
                                           {"CONTRACT", "m2405"},
                                           {"BID", Gbk("买")},
                                           {"MATCH_PRICE", "3010"},
                                           {"OPEN_PRICE", "3000"},
                                           {"MATCH_VOL", "2"},
                                           {"OFFSETPL", "20.00"}});
    for (const auto& [table, key, name] :
         std::vector<std::array<const char*, 3>>{{"products", "product", "m"},
                                                 {"contracts", "contract", "m2405"},
                                                 {"sides", "side", "long"},
                                                 {"exchanges", "exchange", "大商所"},
                                                 {"closed_months", "month", "202401"}}) {
        EXPECT_EQ(RowsOf(table, {key, "currency", "count", "lots", "pl", "winRate", "profitFactor"}),
                  (TextRows{{name, "-", "1", "2", "20.0", "1.0", "-"}}))
            << table;
    }
    EXPECT_EQ(RowsOf("concentration", {"rows"}), (TextRows{{"1.0"}}));
}

TEST_F(AnalysisTables, TellWhyAFigureIsNothing) {
    EXPECT_EQ(FigureRow("tradingDays"), (std::vector<std::string>{"tradingDays", "242.0", "-"}));
    EXPECT_EQ(FigureRow("streaks.longestWin"), (std::vector<std::string>{"streaks.longestWin", "0.0", "-"}));
    const std::vector<std::string> sharpe = FigureRow("ratios.sharpe");
    ASSERT_EQ(sharpe.size(), 3U);
    EXPECT_EQ(sharpe[1], "-");
    EXPECT_NE(sharpe[2], "-");
}

}  // namespace
}  // namespace tradebill::analysis_tables_test
