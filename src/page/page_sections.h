// The sections of the page. Each reads a finished report, writes its part through the builder and leaves the page
// whole. A table section returns false if the host's stop was seen: it then ends at once, its table open, the stop
// acknowledged.
//
// REQUIRES of all: the report's statistics are complete, its folders prepared, its pictures saved and PageWidth set.
//
// table_section.h is the engine of tables, table_columns.h their columns; page_text.h writes rows and cells, and
// html_builder.h the file.
#pragma once

#include <optional>
#include <string>

namespace tradebill {

class CHtmlBuilder;
class CReport;
struct WholePath;

/// The account's pictures. Tells the host the sizes of the charts.
bool AddAccountSection(CHtmlBuilder& page, const CReport& report);
bool AddForeignAccountSection(CHtmlBuilder& page, const CReport& report);

/// Results per contract, from the tallies of closed positions.
bool AddTradeSection(CHtmlBuilder& page, const CReport& report);
bool AddForeignTradeSection(CHtmlBuilder& page, const CReport& report);

/// Open positions: the summary rows for formats that print full contract codes, the single lots for the others.
bool AddPositionSection(CHtmlBuilder& page, const CReport& report);
/// Throws CReportError for a record whose BILL_DATE is no date.
bool AddForeignPositionSection(CHtmlBuilder& page, const CReport& report);

/// All trades, day by day.
bool AddMatchSection(CHtmlBuilder& page, const CReport& report);
bool AddForeignMatchSection(CHtmlBuilder& page, const CReport& report);

/// Closed positions with both legs. Asks for each contract's unit; a host that answers may find less than all rows
/// before it on disk.
bool AddOffsetSection(CHtmlBuilder& page, const CReport& report);

void AddNotesSection(CHtmlBuilder& page);

/// The whole page in order: scripts, an anchor and a section each, and the last ClosePage.
void AddPageSections(CHtmlBuilder& page, const CReport& report);

/// A page of one line that stands for the report until it is there: that it is being made, or is `finished` and can be
/// asked for. Nothing if it was written; otherwise why it couldn't be, as CHtmlBuilder tells it.
[[nodiscard]] std::optional<std::string> WritePlaceholderPage(const WholePath& path, bool finished);

}  // namespace tradebill
