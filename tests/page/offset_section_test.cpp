// The section of closed positions: both legs, a P/L made of prices and the host's unit, and the chart's place.
#include <gtest/gtest.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/text.h"
#include "driver/host_products.h"
#include "page/html_builder.h"
#include "page/page_fixture.h"
#include "page/page_sections.h"
#include "page/statement_rows.h"
#include "report/product_source.h"
#include "support/host_objects.h"

namespace tradebill::offset_section_test {
namespace {

// clang-format off
const Columns kColumns = {
    {"交易所　　　　　", "10%"},
    {"合约　　　　　　　　", "12%"},
    {"手数　　　　　　", "10%"},
    {"日期　　　　　　　　", "13%"},
    {"买入　　　　　　　　", "13%"},
    {"卖出　　　　　　　　", "13%"},
    {"逐笔平仓盈亏　　　　", "14%"},
    {"手续费              ", "12%"},
};
// clang-format on

const std::string kPlain = "offsetspannormal";
const std::string kDashes = DashRow("", kPlain, kColumns);
const std::string kRed = "offsetspanbid";
const std::string kGreen = "offsetspanask";

std::string Top() {
    return TitleBlock({"平仓记录", "clickOfferset", "Offersetbtn", "OffsetRecords.jpg", " </div>\r\n", " "}) +
           TableTop("tabOffset", kPlain, kColumns);
}

const std::string kFigure =
    "<div id = \"offsetFigure\" style=\"position:relative; -moz-user-select:-moz-none; \"  "
    "onselectstart=\"return false;\">\r\n"
    "<a href = \"javascript:void(1)\"> \r\n"
    "<img border=\"0\" style=\"style = \"cursor:hand; width:0px; height:0px; \" src=\"Image_files\\OffsetFigure.jpg\" "
    "alt=\"平仓盈亏曲线图\" />\r\n"
    "</a>\r\n</div>\r\n";

std::string Opening(const std::vector<std::string>& texts) {
    return HtmlRow("billclr1", kPlain, texts);
}

std::string Closing(const std::vector<std::string>& texts, const std::string& profitClass = kPlain) {
    return HtmlRow("billclr2", kPlain, texts, {{6, profitClass}}) + kDashes;
}

std::string Total(const std::string& profit, const std::string& fees,
                  const std::string& profitClass = "offsetsumnormal") {
    return HtmlRow("", "offsetsumnormal", {"总计", "", "", "", "", "", profit, fees}, {{6, profitClass}});
}

/// What a host was asked.
struct Question {
    std::string account;
    std::string contract;
    std::string delivery;
};
std::vector<Question> questions;
int answer = 1;

std::int32_t AnswerUnit(const char* account, const char* contract, const char* delivery) {
    questions.push_back({account, contract, delivery});
    return answer;
}

class OffsetSection : public PageFixture {
protected:
    OffsetSection() {
        report.Request.StatementFormat = 1;
        report.Products = &products_;
        CopyField(report.Request.Account, "10086");
        questions.clear();
        answer = 1;
    }

    void ExpectRows(const std::string& rows) {
        CHtmlBuilder page(path_);
        EXPECT_TRUE(AddOffsetSection(page, report));
        EXPECT_EQ(Page(), ClosedPage(Top() + rows + kTableFoot + kFigure));
    }

    void AnswerWith(int unit) {
        answer = unit;
        report.Request.ContractUnitCallback = AnswerUnit;
    }

    void AddPosition(std::string_view side, std::string_view openPrice, std::string_view closePrice,
                     std::string_view lots) {
        AddClosed(report, {{"BID", side}, {"OPEN_PRICE", openPrice}, {"MATCH_PRICE", closePrice}, {"MATCH_VOL", lots}});
    }

    /// Writes the section and returns what the host was asked for its one row, as "contract|delivery".
    std::string Asked(int format) {
        report.Request.StatementFormat = format;
        AnswerWith(1);
        questions.clear();
        CHtmlBuilder page(path_);
        EXPECT_TRUE(AddOffsetSection(page, report));
        EXPECT_EQ(questions.size(), 1U);
        return questions.empty() ? "" : GbkToUtf8(questions[0].contract + "|" + questions[0].delivery);
    }

private:
    CHostProducts products_{report.Request};
};

TEST_F(OffsetSection, OfNothingHasATotalAndTheChart) {
    ExpectRows(Total("0.00", "0.00"));
}

TEST_F(OffsetSection, ShowsALongPositionClosedByASale) {
    AnswerWith(10);
    AddClosed(report, {{"BILL_DATE", "20240105"},
                       {"MATCH_DATE", "20240104"},
                       {"EXCH_NAME", "上期所"},
                       {"CONTRACT", "铜"},
                       {"DELIVERY", "2405"},
                       {"BID", "买"},
                       {"MATCH_PRICE", "110"},
                       {"MATCH_VOL", "2"},
                       {"OPEN_DATE", "20240102"},
                       {"OPEN_PRICE", "100"},
                       {"SETTLE_PRICE", "1"},
                       {"POUNDAGE", "12.345"},
                       {"HEDGE", "投"},
                       {"OFFSETPL", "-999"},
                       {"CURRENCY", "USD"}});
    ExpectRows(Opening({"上期所", "铜2405", "2", "20240102", "100", "", "", ""}) +
               Closing({"", "", "", "20240104", "", "110", "200.00", "12.345"}, kRed) +
               Total("200.00", "12.35", "offsetsumbid"));
    ASSERT_EQ(questions.size(), 1U);
    EXPECT_EQ(questions[0].account, "10086");
}

TEST_F(OffsetSection, ShowsAShortPositionClosedByAPurchase) {
    AnswerWith(10);
    AddPosition("卖", "100", "110", "2");
    ExpectRows(Opening({"", "", "2", "", "", "100", "", ""}) +
               Closing({"", "", "", "", "110", "", "-200.00", ""}, kGreen) + Total("-200.00", "0.00", "offsetsumask"));
}

TEST_F(OffsetSection, TakesAnySideWithoutBuyAsShort) {
    AddPosition(" 买入", "1", "2", "1");
    AddPosition("", "1", "2", "1");
    AddPosition("x", "2", "1", "1");
    ExpectRows(Opening({"", "", "1", "", "1", "", "", ""}) + Closing({"", "", "", "", "", "2", "1.00", ""}, kRed) +
               Opening({"", "", "1", "", "", "1", "", ""}) + Closing({"", "", "", "", "2", "", "-1.00", ""}, kGreen) +
               Opening({"", "", "1", "", "", "2", "", ""}) + Closing({"", "", "", "", "1", "", "1.00", ""}, kRed) +
               Total("1.00", "0.00", "offsetsumbid"));
}

TEST_F(OffsetSection, CountsAUnitOfOneWithoutAHost) {
    AddPosition("买", "1.5", "3.75", "4");
    ExpectRows(Opening({"", "", "4", "", "1.5", "", "", ""}) + Closing({"", "", "", "", "", "3.75", "9.00", ""}, kRed) +
               Total("9.00", "0.00", "offsetsumbid"));
}

TEST_F(OffsetSection, AUnitOfZeroMakesABlackZeroWithoutASign) {
    AnswerWith(0);
    AddPosition("买", "100", "110", "2");
    AddPosition("买", "110", "100", "2");
    ExpectRows(Opening({"", "", "2", "", "100", "", "", ""}) + Closing({"", "", "", "", "", "110", "0.00", ""}) +
               Opening({"", "", "2", "", "110", "", "", ""}) + Closing({"", "", "", "", "", "100", "0.00", ""}) +
               Total("0.00", "0.00"));
}

TEST_F(OffsetSection, AZeroProfitHasNoSignWhateverItsFactors) {
    AddPosition("买", "5", "5", "-3");
    AddPosition("卖", "5", "4", "0");
    AddPosition("卖", "4", "5", "");
    ExpectRows(Opening({"", "", "-3", "", "5", "", "", ""}) + Closing({"", "", "", "", "", "5", "0.00", ""}) +
               Opening({"", "", "0", "", "", "5", "", ""}) + Closing({"", "", "", "", "4", "", "0.00", ""}) +
               Opening({"", "", "", "", "", "4", "", ""}) + Closing({"", "", "", "", "5", "", "0.00", ""}) +
               Total("0.00", "0.00"));
}

TEST_F(OffsetSection, WrapsLotsTimesUnitAt32Bits) {
    AnswerWith(65536);
    AddPosition("买", "0", "1", "32768");  // 2^31
    AddPosition("买", "0", "1", "65537");  // 2^32 + 65536
    ExpectRows(Opening({"", "", "32768", "", "0", "", "", ""}) +
               Closing({"", "", "", "", "", "1", "-2147483648.00", ""}, kGreen) +
               Opening({"", "", "65537", "", "0", "", "", ""}) +
               Closing({"", "", "", "", "", "1", "65536.00", ""}, kRed) +
               Total("-2147418112.00", "0.00", "offsetsumask"));
}

TEST_F(OffsetSection, CountsWholeLots) {
    AddPosition("买", "0", "1", "2.9");
    ExpectRows(Opening({"", "", "2.9", "", "0", "", "", ""}) + Closing({"", "", "", "", "", "1", "2.00", ""}, kRed) +
               Total("2.00", "0.00", "offsetsumbid"));
}

TEST_F(OffsetSection, SumsProfitsAndFees) {
    AddClosed(report,
              {{"BID", "买"}, {"OPEN_PRICE", "1"}, {"MATCH_PRICE", "2"}, {"MATCH_VOL", "1"}, {"POUNDAGE", "1.5"}});
    AddClosed(report,
              {{"BID", "买"}, {"OPEN_PRICE", "4"}, {"MATCH_PRICE", "2"}, {"MATCH_VOL", "1"}, {"POUNDAGE", "2.25x"}});
    ExpectRows(Opening({"", "", "1", "", "1", "", "", ""}) + Closing({"", "", "", "", "", "2", "1.00", "1.5"}, kRed) +
               Opening({"", "", "1", "", "4", "", "", ""}) +
               Closing({"", "", "", "", "", "2", "-2.00", "2.25x"}, kGreen) + Total("-1.00", "3.75", "offsetsumask"));
}

TEST_F(OffsetSection, NamesExchangeAndContractByFormat) {
    AddClosed(report, {{"EXCH_NAME", " 　上期所 "}, {"CONTRACT", "\t　cu "}, {"DELIVERY", "2405"}});
    const std::string closing = Closing({"", "", "", "", "", "", "0.00", ""}) + Total("0.00", "0.00");
    for (const int format : {0, 1, 3}) {
        report.Request.StatementFormat = format;
        ExpectRows(Opening({"上期所 ", "cu 2405", "", "", "", "", "", ""}) + closing);
    }
    for (const int format : {2, 201, -1}) {
        report.Request.StatementFormat = format;
        ExpectRows(Opening({"上期所 ", "cu ", "", "", "", "", "", ""}) + closing);
    }
    report.Request.StatementFormat = 6;  // no exchange, yet the contract
    ExpectRows(Opening({"", "cu ", "", "", "", "", "", ""}) + closing);
}

TEST_F(OffsetSection, AsksForTheUnitByTheTrimmedContract) {
    AddClosed(report, {{"CONTRACT", " \t　cu　 "}, {"DELIVERY", " 2405 "}});
    for (const int format : {1, 2, 3, 6, 201}) EXPECT_EQ(Asked(format), "　cu　|") << format;
    EXPECT_EQ(Asked(0), "cu|2405");
}

TEST_F(OffsetSection, AsksForStockIndexFuturesByCodeInFormat0) {
    AddClosed(report, {{"CONTRACT", "沪深300股指 "}, {"DELIVERY", "2405"}});
    EXPECT_EQ(Asked(0), "IF2405|2405");
    EXPECT_EQ(Asked(1), "沪深300股指|");
    EXPECT_EQ(Asked(3), "沪深300股指|");
}

TEST_F(OffsetSection, TrimsThatByteOffACharacterToo) {
    const std::string name = Gbk("薄");  // B1 A1
    CopyField(AddClosed(report, {}).CONTRACT, "\xA1\xA1\xA1" + name + "\xA1");
    Asked(0);
    EXPECT_EQ(questions.at(0).contract, "\xB1");
    Asked(1);
    EXPECT_EQ(questions.at(0).contract, "\xA1\xA1\xA1\xB1\xA1\xA1");
}

TEST_F(OffsetSection, CutsTheAskedContractTo63Bytes) {
    const std::string name(70, 'x');
    AddClosed(report, {{"CONTRACT", name}});
    EXPECT_EQ(Asked(1), name.substr(0, 63) + "|");
    EXPECT_EQ(Asked(0), name.substr(0, 63) + "|");
}

/// Keeps how long the page was whenever a unit was asked for.
class CLengthKeeper final : public CProductSource {
public:
    explicit CLengthKeeper(std::string page) : page_(std::move(page)) {}
    [[nodiscard]] std::int32_t UnitOf(std::string_view /*contract*/, std::string_view /*delivery*/) const override {
        lengths.push_back(ReadFile(page_).size());
        return 1;
    }
    [[nodiscard]] std::optional<std::string> CodeOf(std::string_view /*name*/) const override { return std::nullopt; }

    mutable std::vector<std::size_t> lengths;

private:
    std::string page_;
};

TEST_F(OffsetSection, LeavesRowsGatheredWhenUnitsAreAsked) {
    const CLengthKeeper source(path_);
    AddPosition("买", "1", "2", "1");
    AddPosition("买", "1", "2", "1");
    source.lengths.clear();
    report.Products = &source;
    CHtmlBuilder page(path_);
    EXPECT_TRUE(AddOffsetSection(page, report));
    ASSERT_EQ(source.lengths.size(), 2u);
    EXPECT_EQ(source.lengths[0], source.lengths[1]);
}

HostEventHandle stopToSignal = nullptr;

std::int32_t SignalStop(const char* /*account*/, const char* /*contract*/, const char* /*delivery*/) {
    SignalHostEvent(stopToSignal);
    return 1;
}

TEST_F(OffsetSection, EndsBeforeTheRecordBehindAStop) {
    const UniqueEvent stop(CreateHostEvent(0));
    const UniqueEvent acknowledge(CreateHostEvent(1));
    stopToSignal = stop.get();
    report.Request.StopEvent = stop.get();
    report.Request.AckEvent = acknowledge.get();
    report.Request.ContractUnitCallback = SignalStop;
    AddPosition("买", "1", "2", "1");
    AddPosition("卖", "1", "2", "1");
    CHtmlBuilder page(path_);
    EXPECT_FALSE(AddOffsetSection(page, report));
    EXPECT_EQ(Page(), kHead + Top() + Opening({"", "", "1", "", "1", "", "", ""}) +
                          Closing({"", "", "", "", "", "2", "1.00", ""}, kRed));
    EXPECT_EQ(WaitForHostEvent(acknowledge.get(), 0), 1);
}

TEST_F(OffsetSection, IgnoresAStopBehindTheLastRecord) {
    const UniqueEvent stop(CreateHostEvent(1));
    const UniqueEvent acknowledge(CreateHostEvent(1));
    stopToSignal = stop.get();
    report.Request.StopEvent = stop.get();
    report.Request.AckEvent = acknowledge.get();
    report.Request.ContractUnitCallback = SignalStop;
    AddPosition("买", "1", "2", "1");
    ExpectRows(Opening({"", "", "1", "", "1", "", "", ""}) + Closing({"", "", "", "", "", "2", "1.00", ""}, kRed) +
               Total("1.00", "0.00", "offsetsumbid"));
    EXPECT_EQ(WaitForHostEvent(acknowledge.get(), 0), 0);
}

}  // namespace
}  // namespace tradebill::offset_section_test
