#include "page/table_section.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/number.h"
#include "page/html_builder.h"
#include "page/page_text.h"
#include "page/section_title.h"
#include "platform/host_link.h"
#include "report/report.h"

namespace tradebill {
namespace {

// A row is under 4 KiB, so that no more than 64 KiB are ever gathered.
constexpr std::size_t kFlushFrom = std::size_t{60} * 1024;

}  // namespace

std::string_view SignClass(double amount, const CellClasses& classes) {
    if (amount > kSmallestAmount) return classes.bid;
    if (amount < -kSmallestAmount) return classes.ask;
    return classes.normal;
}

std::string_view BandClass(int counter) {
    return counter % 2 != 0 ? "billclr1" : "billclr2";
}

CTableWriter::CTableWriter(CHtmlBuilder& page, const CReport& report, const TableSection& section,
                           std::span<const Heading> headings)
    : page_(page), report_(report) {
    std::vector<Cell> titles;
    std::vector<std::string_view> widths;
    for (const Heading& heading : headings) {
        titles.push_back({heading.text, section.classes.normal});
        widths.push_back(heading.width);
        dashes_.emplace_back(heading.text.size(), '-');
    }
    for (const std::string& dashes : dashes_) dashCells_.push_back({dashes, section.classes.normal});
    AddSectionTitle(page_, report_, section.title);
    AppendTableTag(gathered_, section.tableId, report_.ReportDocument.PageWidth);
    AppendSizedRow(gathered_, titles, widths, {});
    AddDashRow({});
}

bool CTableWriter::StopRequested() {
    return AcknowledgeStop(report_.Request.StopEvent, report_.Request.AckEvent, [this] { Flush(); });
}

void CTableWriter::AddRow(std::span<const Cell> cells, std::string_view rowClass) {
    AppendRow(gathered_, cells, rowClass);
    if (gathered_.size() >= kFlushFrom) Flush();
}

void CTableWriter::AddDashRow(std::string_view rowClass) {
    AddRow(dashCells_, rowClass);
}

void CTableWriter::Flush() {
    if (!gathered_.empty()) page_.AddText(gathered_);
    gathered_.clear();
}

void CTableWriter::CloseTable() {
    gathered_ += kTableEnd;
    Flush();
    page_.AddHeading(1, "", "");
}

void CTableWriter::Close() {
    CloseTable();
    page_.ClosePage();
}

}  // namespace tradebill
