// The stop handshake in every table section: at its first row and at later ones, with events of both kinds.
#include "page/page_sections.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <ostream>
#include <string>
#include <string_view>
#include <system_error>
#include <thread>

#include "base/day.h"
#include "page/html_builder.h"
#include "page/page_fixture.h"
#include "page/statement_rows.h"
#include "support/host_objects.h"

namespace tradebill::page_sections_test {
namespace {

std::string NameOf(int record) {
    const std::string digits = std::to_string(record);
    return "c" + std::string(4 - digits.size(), '0') + digits;
}

void FillTallies(CReport& report, int records) {
    for (int i = 0; i < records; ++i) AddTally(report, NameOf(i)).LONG_COUNT = 1;
}

void FillPositions(CReport& report, int records) {
    for (int i = 0; i < records; ++i) AddPosition(report, {{"CONTRACT", NameOf(i)}});
}

void FillLots(CReport& report, int records) {
    for (int i = 0; i < records; ++i) AddLot(report, {{"CONTRACT", NameOf(i)}, {"BILL_DATE", "20240102"}});
}

void FillTrades(CReport& report, int records) {
    for (int i = 0; i < records; ++i) AddTrade(report, {{"CONTRACT", NameOf(i)}, {"BILL_DATE", "20240102"}});
}

void FillClosed(CReport& report, int records) {
    for (int i = 0; i < records; ++i) AddClosed(report, {{"CONTRACT", NameOf(i)}});
}

struct Section {
    std::string name;
    bool (*add)(CHtmlBuilder&, const CReport&);
    void (*fill)(CReport& report, int records);
    int kind;
    int format;
};

std::ostream& operator<<(std::ostream& out, const Section& section) {
    return out << section.name;
}

// clang-format off
const Section kSections[] = {
    {"Trade",           AddTradeSection,           FillTallies,   1, 1},
    {"ForeignTrade",    AddForeignTradeSection,    FillTallies,   2, 1},
    {"PositionSummary", AddPositionSection,        FillPositions, 1, 2},
    {"PositionDetail",  AddPositionSection,        FillLots,      1, 0},
    {"ForeignPosition", AddForeignPositionSection, FillLots,      2, 0},
    {"MatchOfFormat1",  AddMatchSection,           FillTrades,    1, 1},
    {"MatchOfFormat0",  AddMatchSection,           FillTrades,    1, 0},
    {"MatchOfOthers",   AddMatchSection,           FillTrades,    1, 2},
    {"ForeignMatch",    AddForeignMatchSection,    FillTrades,    2, 2},
    {"Offset",          AddOffsetSection,          FillClosed,    1, 1},
};
// clang-format on

class TableSectionStop : public PageFixture, public testing::WithParamInterface<Section> {
protected:
    TableSectionStop() {
        report.Request.StatementKind = GetParam().kind;
        report.Request.StatementFormat = GetParam().format;
        report.ReportDays.first = report.ReportDays.last = MidnightOf({2024, 1, 2});
    }

    /// The section without a stop, in the order in which it came to the page: no wrappers yet.
    std::string WholeSection() {
        CHtmlBuilder page(path_);
        EXPECT_TRUE(GetParam().add(page, report));
        std::string text = Bytes();
        const std::string head = Gbk(kHead);
        const std::string before = "<html>\r\n" + head + "<body>\r\n";
        EXPECT_TRUE(text.starts_with(before));
        return head + text.substr(before.size());
    }

    void UseEvents(bool manualReset) {
        stop_.reset(CreateHostEvent(manualReset ? 1 : 0));
        acknowledge_.reset(CreateHostEvent(1));
        report.Request.StopEvent = stop_.get();
        report.Request.AckEvent = acknowledge_.get();
    }

    UniqueEvent stop_;
    UniqueEvent acknowledge_;
};

TEST_P(TableSectionStop, AtTheFirstRowLeavesHeaderAndDashesOfAnOpenTable) {
    GetParam().fill(report, 2);
    const std::string whole = WholeSection();
    const std::string top = whole.substr(0, whole.find("<tr class='billclr1'>"));
    for (const bool manualReset : {true, false}) {
        UseEvents(manualReset);
        SignalHostEvent(stop_.get());
        CHtmlBuilder page(path_);
        EXPECT_FALSE(GetParam().add(page, report));
        EXPECT_EQ(WaitForHostEvent(acknowledge_.get(), 0), 1);
        EXPECT_EQ(Bytes(), top);
        EXPECT_EQ(WaitForHostEvent(stop_.get(), 0), manualReset ? 1 : 0);  // the module itself resets nothing
    }
}

TEST_P(TableSectionStop, IsNotSeenWithoutRows) {
    const std::string whole = WholeSection();
    UseEvents(true);
    SignalHostEvent(stop_.get());
    EXPECT_EQ(WholeSection(), whole);
    EXPECT_EQ(WaitForHostEvent(acknowledge_.get(), 0), 0);
}

TEST_P(TableSectionStop, IsNotAcknowledgedUnlessAskedFor) {
    GetParam().fill(report, 2);
    const std::string whole = WholeSection();
    UseEvents(true);
    EXPECT_EQ(WholeSection(), whole);
    EXPECT_EQ(WaitForHostEvent(acknowledge_.get(), 0), 0);
}

/// A host that asks for the stop once the first rows have come to disk, and looks at the page as soon as the answer is
/// there.
class CStoppingHost {
public:
    CStoppingHost(const std::string& path, HostEventHandle stop, HostEventHandle acknowledge)
        : thread_([=, this] {
              constexpr std::uintmax_t kRowsOnDisk = 40 * 1024;  // far more than a title and a header
              const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
              const auto isLate = [deadline] { return std::chrono::steady_clock::now() > deadline; };
              std::error_code error;
              while (std::filesystem::file_size(path, error) < kRowsOnDisk || error) {
                  if (isLate()) return;
                  std::this_thread::sleep_for(std::chrono::microseconds(200));
              }
              std::this_thread::sleep_for(std::chrono::milliseconds(10));  // until a good many rows are gathered anew
              SignalHostEvent(stop);
              while (WaitForHostEvent(acknowledge, 0) == 0) {  // no sleep: what is written late must not be there yet
                  if (isLate()) return;
              }
              sizeAtAnswer_ = std::filesystem::file_size(path, error);
          }) {}

    /// Bytes of the page at the time of the answer; 0 if none came.
    std::uintmax_t SizeAtAnswer() {
        thread_.join();
        return sizeAtAnswer_;
    }

private:
    std::uintmax_t sizeAtAnswer_ = 0;
    std::thread thread_;
};

TEST_P(TableSectionStop, AtALaterRowLeavesAllRowsBeforeItOnDisk) {
    GetParam().fill(report, GetParam().fill == FillTallies ? 250 : 500);
    const std::string whole = WholeSection();
    UseEvents(true);
    CHtmlBuilder page(path_);
    CStoppingHost host(path_, stop_.get(), acknowledge_.get());
    const bool finished = GetParam().add(page, report);
    const std::uintmax_t sizeAtAnswer = host.SizeAtAnswer();
    ASSERT_FALSE(finished);
    const std::string stopped = Bytes();
    EXPECT_EQ(sizeAtAnswer, stopped.size());
    ASSERT_TRUE(whole.starts_with(stopped));

    // Cut just before a record, so that those shown are whole and no subtotal or table end follows them.
    int records = 0;
    while (stopped.find(">" + NameOf(records) + "<") != std::string::npos) ++records;
    EXPECT_GT(records, 0);
    const std::string next = whole.substr(stopped.size());
    EXPECT_TRUE(next.starts_with("<tr class='billclr"));
    EXPECT_LT(next.find(">" + NameOf(records) + "<"), next.find("</tr>"));
}

INSTANTIATE_TEST_SUITE_P(All, TableSectionStop, testing::ValuesIn(kSections),
                         [](const auto& section) { return section.param.name; });

}  // namespace
}  // namespace tradebill::page_sections_test
