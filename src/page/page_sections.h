// The sections of the page. Each reads the stores of the finished run, writes its part through the builder and leaves
// the page whole. A table section returns false if the host's stop was seen: it then ends at once, its table open, the
// stop acknowledged.
#pragma once

#include <string_view>

namespace tradebill {

class CHtmlBuilder;

/// The account's pictures. Tells the host the sizes of the charts, with the page whole so far.
bool AddAccountSection(CHtmlBuilder& page);
bool AddForeignAccountSection(CHtmlBuilder& page);

bool AddTradeSection(CHtmlBuilder& page);
bool AddForeignTradeSection(CHtmlBuilder& page);

/// Open positions: the summary rows for formats that print full contract codes, the single lots for the others.
bool AddPositionSection(CHtmlBuilder& page);
/// Throws CReportError for a record whose BILL_DATE is no date.
bool AddForeignPositionSection(CHtmlBuilder& page);

bool AddMatchSection(CHtmlBuilder& page);
bool AddForeignMatchSection(CHtmlBuilder& page);

/// Closed positions with both legs. Asks the host for each contract's unit, with all rows before it on disk.
bool AddOffsetSection(CHtmlBuilder& page);

void AddNotesSection(CHtmlBuilder& page);

/// The whole page in order: scripts, an anchor and a section each, and the last ClosePage.
void AddPageSections(CHtmlBuilder& page);

/// A page of one line that stands for the report until it is there: that it is being made, or is `finished` and can be
/// asked for. Returns whether it could be written.
bool WritePlaceholderPage(std::string_view path, bool finished);

}  // namespace tradebill
