// The foreign form of the section of open positions: the lots of the report's days.
#include <gtest/gtest.h>

#include <ctime>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/report_error.h"
#include "page/html_builder.h"
#include "page/page_fixture.h"
#include "page/page_sections.h"
#include "page/statement_rows.h"

namespace tradebill::foreign_position_section_test {
namespace {

// clang-format off
const Columns kColumns = {
    {"交易所　　　　　", "12%"},
    {"合约　　　　　　", "12%"},
    {"手数　　　 　", "10%"},
    {"日期　　　　　　    ", "14%"},
    {"买入　　　　　　", "12%"},
    {"卖出　　　　　　", "12%"},
    {"浮动盈亏　　　　　　　        ", "18%"},
    {"币种　　        ", "10%"},
};
// clang-format on

const std::string kPlain = "positionspannormal";

std::string Top() {
    return TitleBlock({"期末持仓", "clickPositions", "Positionsbtn", "LastPositions.jpg", "</div>\r\n", "  "}) +
           TableTop("tabPositions", kPlain, kColumns);
}

std::string Dashes(const std::string& band) {
    return DashRow(band, kPlain, kColumns);
}

/// A lot of nothing but contract, day and profit.
void AddSmallLot(CReport& report, std::string_view contract, std::string_view day, std::string_view profit = {}) {
    AddLot(report, {{"CONTRACT", contract}, {"BILL_DATE", day}, {"FLOATPL", profit}});
}

std::string SmallLot(const std::string& band, const std::string& contract, const std::string& day,
                     const std::string& profit = "", const std::string& profitClass = kPlain) {
    return HtmlRow(band, kPlain, {"", contract, "", "", "", "", " ", " "}) +
           HtmlRow(band, kPlain, {" ", " ", " ", day, " ", " ", profit, ""}, {{6, profitClass}}) + Dashes(band);
}

std::string Subtotal(const std::string& band, const std::string& profit,
                     const std::string& profitClass = "positionsumnormal") {
    return HtmlRow(band, "positionsumnormal", {"小计", "   ", "   ", "   ", "   ", "   ", profit, " "},
                   {{6, profitClass}}) +
           Dashes(band);
}

std::time_t LocalTime(int year, int month, int day, int hour = 0) {
    std::tm parts{};
    parts.tm_year = year - 1900;
    parts.tm_mon = month - 1;
    parts.tm_mday = day;
    parts.tm_hour = hour;
    parts.tm_isdst = -1;
    return std::mktime(&parts);
}

class ForeignPositionSection : public PageFixture {
protected:
    ForeignPositionSection() {
        report.Request.StatementKind = 2;
        report.ReportDays = {LocalTime(2024, 1, 2), LocalTime(2024, 1, 31)};
    }

    void ExpectRows(const std::string& rows) {
        CHtmlBuilder page(path_);
        EXPECT_TRUE(AddForeignPositionSection(page, report));
        EXPECT_EQ(Page(), ClosedPage(Top() + rows + kTableFoot + "\r\n"));
    }

    /// The code of the error that a lot of this day raises; 0 for none.
    std::uint32_t ErrorOfDay(std::string_view day) {
        report.OpiDetailStore.Clear();
        AddSmallLot(report, "a", day);
        CHtmlBuilder page(path_);
        try {
            AddForeignPositionSection(page, report);
        } catch (const CReportError& error) {
            return error.Code();
        }
        return 0;
    }
};

TEST_F(ForeignPositionSection, OfNothingIsHeaderAndDashes) {
    ExpectRows("");
}

TEST_F(ForeignPositionSection, OneRecordFillsTwoRowsWithBlankFillers) {
    AddLot(report, {{"BILL_DATE", "20240103"},
                    {"EXCH_NAME", "CME"},
                    {"CONTRACT", "CL"},
                    {"DELIVERY", "2406"},
                    {"POSITION_VOL", "3"},
                    {"OPEN_DATE", "20231229"},
                    {"BID", "买"},
                    {"OPEN_PRICE", "75.5"},
                    {"FLOATPL", "1500.5"},
                    {"DSYK", "-7"},
                    {"DEPOSIT", "8"},
                    {"HEDGE", "投"},
                    {"CURRENCY", "USD"}});
    ExpectRows(
        HtmlRow("billclr1", kPlain, {"CME", "CL2406", "3", "20231229", "75.5", "", " ", " "}) +
        HtmlRow("billclr1", kPlain, {" ", " ", " ", "20240103", " ", " ", "1500.5", "USD"}, {{6, "positionspanbid"}}) +
        Dashes("billclr1") + Subtotal("billclr1", "1500.50", "positionsumbid"));
}

TEST_F(ForeignPositionSection, PutsThePriceOfASaleUnderItsSide) {
    AddLot(report, {{"BILL_DATE", "20240103"}, {"BID", "卖"}, {"OPEN_PRICE", "75.5"}});
    ExpectRows(HtmlRow("billclr1", kPlain, {"", "", "", "", "", "75.5", " ", " "}) +
               HtmlRow("billclr1", kPlain, {" ", " ", " ", "20240103", " ", " ", "", ""}) + Dashes("billclr1") +
               Subtotal("billclr1", "0.00"));
}

TEST_F(ForeignPositionSection, TrimsTheFrontOfExchangeAndContract) {
    AddLot(report, {{"BILL_DATE", "20240103"}, {"EXCH_NAME", " 　CME "}, {"CONTRACT", "\t　CL"}, {"DELIVERY", " 6"}});
    ExpectRows(HtmlRow("billclr1", kPlain, {"CME ", "CL 6", "", "", "", "", " ", " "}) +
               HtmlRow("billclr1", kPlain, {" ", " ", " ", "20240103", " ", " ", "", ""}) + Dashes("billclr1") +
               Subtotal("billclr1", "0.00"));
}

TEST_F(ForeignPositionSection, GivesEachDayABandAndASubtotal) {
    AddSmallLot(report, "a", "20240102", "10");
    AddSmallLot(report, "b", "20240102", "-30.5");
    AddSmallLot(report, "c", "20240103", "0.00");
    AddSmallLot(report, "d", "20240131", "-1");
    ExpectRows(SmallLot("billclr1", "a", "20240102", "10", "positionspanbid") +
               SmallLot("billclr1", "b", "20240102", "-30.5", "positionspanask") +
               Subtotal("billclr1", "-20.50", "positionsumask") + SmallLot("billclr2", "c", "20240103", "0.00") +
               Subtotal("billclr2", "0.00") + SmallLot("billclr1", "d", "20240131", "-1", "positionspanask") +
               Subtotal("billclr1", "-1.00", "positionsumask"));
}

TEST_F(ForeignPositionSection, PassesOverDaysOutsideTheReport) {
    AddSmallLot(report, "x", "20240101");
    AddSmallLot(report, "a", "20240102", "1");
    AddSmallLot(report, "x", "20240201", "100");
    AddSmallLot(report, "b", "20240102", "2");
    AddSmallLot(report, "c", "20240131");
    ExpectRows(SmallLot("billclr1", "a", "20240102", "1", "positionspanbid") +
               SmallLot("billclr1", "b", "20240102", "2", "positionspanbid") +
               Subtotal("billclr1", "3.00", "positionsumbid") + SmallLot("billclr2", "c", "20240131") +
               Subtotal("billclr2", "0.00"));
}

TEST_F(ForeignPositionSection, HasNoLastSubtotalIfTheLastRecordIsPassedOver) {
    AddSmallLot(report, "a", "20240102");
    AddSmallLot(report, "b", "20240103");
    AddSmallLot(report, "x", "20240201");
    ExpectRows(SmallLot("billclr1", "a", "20240102") + Subtotal("billclr1", "0.00") +
               SmallLot("billclr2", "b", "20240103"));
}

TEST_F(ForeignPositionSection, OfPassedRecordsAloneIsHeaderAndDashes) {
    AddSmallLot(report, "x", "20240101");
    AddSmallLot(report, "x", "20240201");
    ExpectRows("");
}

TEST_F(ForeignPositionSection, CountsTodayInAReportThatBeginsAtTheTimeOfItsCall) {
    report.ReportDays = {LocalTime(2024, 1, 5, 15), LocalTime(2024, 1, 5, 15)};
    AddSmallLot(report, "x", "20240104");
    AddSmallLot(report, "a", "20240105");
    ExpectRows(SmallLot("billclr1", "a", "20240105") + Subtotal("billclr1", "0.00"));
}

TEST_F(ForeignPositionSection, RollsADayBeyondItsMonthOver) {
    report.ReportDays = {LocalTime(2024, 3, 1), LocalTime(2024, 3, 1)};
    AddSmallLot(report, "x", "20240229");
    AddSmallLot(report, "a", "20240230");  // 1 March
    AddSmallLot(report, "x", "20240231");
    AddSmallLot(report, "b", "20240301");
    ExpectRows(SmallLot("billclr1", "a", "20240230") + Subtotal("billclr1", "0.00") +
               SmallLot("billclr2", "b", "20240301") + Subtotal("billclr2", "0.00"));
}

TEST_F(ForeignPositionSection, FailsAtADayThatIsNone) {
    for (const char* const day :
         {"", "2024", "202401", "18991231", "20240001", "20241301", "20240100", "20240132", "2024-1-2", "yyyymmdd"}) {
        EXPECT_EQ(ErrorOfDay(day), 0x80004005U) << day;
    }
    EXPECT_EQ(ErrorOfDay("20241231"), 0U);
    EXPECT_EQ(ErrorOfDay("20240101"), 0U);
}

TEST_F(ForeignPositionSection, FailsAtADayWithoutATimeValue) {
    EXPECT_EQ(ErrorOfDay("19000101"), 0x80070057U);
    EXPECT_EQ(ErrorOfDay("19691230"), 0x80070057U);
    EXPECT_EQ(ErrorOfDay("19700103"), 0U);
}

TEST_F(ForeignPositionSection, ReadsDaysByWidths) {
    report.ReportDays = {LocalTime(2024, 1, 5), LocalTime(2024, 1, 5)};
    AddSmallLot(report, "a", "2024 1 5");  // %4d%2d%2d passes over blanks
    AddSmallLot(report, "b", "202401 5");
    ExpectRows(SmallLot("billclr1", "a", "2024 1 5") + Subtotal("billclr1", "0.00") +
               SmallLot("billclr2", "b", "202401 5") + Subtotal("billclr2", "0.00"));
}

}  // namespace
}  // namespace tradebill::foreign_position_section_test
