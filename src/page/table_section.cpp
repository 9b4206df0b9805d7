#include "page/table_section.h"

#include <cstddef>
#include <new>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/number.h"
#include "page/html_builder.h"
#include "page/page_text.h"
#include "page/row_block.h"
#include "page/section_title.h"
#include "platform/host_link.h"
#include "report/report.h"

namespace tradebill {
namespace {

// A row is under 4 KiB, so that a block is no more than 256 KiB: it stays in the processor's cache until it is written.
constexpr std::size_t kBlockSize = std::size_t{252} * 1024;

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
    : page_(page), gathering_(page), report_(report), rows_(page.HasCopy()) {
    std::vector<Cell> titles;
    std::vector<std::string_view> widths;
    for (const Heading& heading : headings) {
        titles.push_back({heading.text, section.classes.normal});
        widths.push_back(heading.width);
        dashes_ += CellOpening(section.classes.normal) + std::string(heading.text.size(), '-');
        dashes_ += kCellEnd;
    }
    AddSectionTitle(page_, report_, section.title);
    std::string top;
    AppendTableTag(top, section.tableId, report_.ReportDocument.PageWidth);
    AppendSizedRow(top, titles, widths, {});
    rows_.AddLines(top);
    AddDashRow({});
    if (!page_.HasCopy()) return;
    HandOver();
    isInRows_ = true;
    page_.BeginRows({.columns = headings.size(), .lineClass = section.sums.normal});
}

CTableWriter::~CTableWriter() {
    try {
        EndRows();
        HandOver();
    } catch (const std::bad_alloc&) {
        rows_.Clear();  // only the error that is leaving the section finds rows here, and it is told in their place
    }
}

bool CTableWriter::StopRequested() {
    return AcknowledgeStop(report_.Request.StopEvent, report_.Request.AckEvent, [this] { Flush(); });
}

void CTableWriter::BeginDay(std::string_view day) {
    if (!page_.HasCopy()) return;
    HandOver();
    page_.BeginDay(day);
}

void CTableWriter::AddRow(std::span<const OpenedCell> cells, std::string_view rowClass) {
    rows_.AddRow(cells, rowClass);
    if (rows_.View().size() >= kBlockSize) HandOver();
}

void CTableWriter::AddDashRow(std::string_view rowClass) {
    rows_.AddRow(dashes_, rowClass);
}

void CTableWriter::Flush() {
    HandOver();
    page_.Show();
}

void CTableWriter::HandOver() {
    if (!rows_.View().empty()) page_.AddRows(rows_);
    rows_.Clear();
}

void CTableWriter::EndRows() {
    if (!isInRows_) return;
    HandOver();
    isInRows_ = false;
    page_.EndRows();
}

void CTableWriter::CloseTable() {
    EndRows();
    rows_.AddLines(kTableEnd);
    HandOver();
    page_.AddHeading(1, "", "");
}

void CTableWriter::Close() {
    CloseTable();
    page_.ClosePage();
}

}  // namespace tradebill
