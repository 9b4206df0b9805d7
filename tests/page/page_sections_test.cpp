// The stop handshake in every table section: at its first row and at later ones, with events of both kinds.
#include "page/page_sections.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstddef>
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
#include "page/page_form.h"
#include "page/page_sink.h"
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

/// Asks for the stop while rows are handed over to the page, once there are a good many of them.
class CStoppingSink final : public CPageSink {
public:
    explicit CStoppingSink(HostEventHandle stop) : stop_(stop) {}

    [[nodiscard]] const CPageForm& Form() const override { return form_; }
    void AddStyle(std::string_view /*block*/) override {}
    void AddText(std::string_view text) override {
        constexpr std::size_t kManyRows = std::size_t{300} * 1024;
        bytes_ += text.size();
        if (bytes_ > kManyRows) SignalHostEvent(stop_);
    }
    void ClosePage() override {}

private:
    HostEventHandle stop_;
    std::size_t bytes_ = 0;
    CPageForm form_;
};

/// A host that looks at the page as soon as the answer is there.
class CWaitingHost {
public:
    CWaitingHost(const std::string& path, HostEventHandle acknowledge)
        : thread_([=, this] {
              const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
              while (WaitForHostEvent(acknowledge, 0) == 0) {  // no sleep: what is written late must not be there yet
                  if (std::chrono::steady_clock::now() > deadline) return;
              }
              std::error_code error;
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
    GetParam().fill(report, GetParam().fill == FillTallies ? 150 : 1500);
    const std::string whole = WholeSection();
    const std::string head = Gbk(kHead);
    for (const bool wasClosed : {false, true}) {  // behind a whole page rows go to disk as they come
        UseEvents(true);
        CStoppingSink sink(stop_.get());
        CHtmlBuilder page(path_, &sink);
        if (wasClosed) page.ClosePage();
        const std::string before = wasClosed ? Gbk(ClosedPage("")) : head;
        CWaitingHost host(path_, acknowledge_.get());
        const bool finished = GetParam().add(page, report);
        const std::uintmax_t sizeAtAnswer = host.SizeAtAnswer();
        ASSERT_FALSE(finished);
        const std::string stopped = Bytes();
        EXPECT_EQ(sizeAtAnswer, stopped.size());
        ASSERT_TRUE(stopped.starts_with(before));
        const std::string section = stopped.substr(before.size());
        ASSERT_TRUE(whole.substr(head.size()).starts_with(section));

        // Cut just before a record, so that those shown are whole and no subtotal or table end follows them.
        int records = 0;
        while (section.find(">" + NameOf(records) + "<") != std::string::npos) ++records;
        EXPECT_GT(records, 0);
        const std::string next = whole.substr(head.size() + section.size());
        EXPECT_TRUE(next.starts_with("<tr class='billclr"));
        EXPECT_LT(next.find(">" + NameOf(records) + "<"), next.find("</tr>"));
    }
}

INSTANTIATE_TEST_SUITE_P(All, TableSectionStop, testing::ValuesIn(kSections),
                         [](const auto& section) { return section.param.name; });

}  // namespace
}  // namespace tradebill::page_sections_test
