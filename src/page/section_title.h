// The blocks that place a title or a chart: sizes come from the picture files and from the title's font.
#pragma once

#include <string_view>

namespace tradebill {

class CHtmlBuilder;
class CReport;

/// The words of the title block above a table. Their odd blanks are part of the page.
struct SectionTitle {
    std::string_view title;
    std::string_view handler;  ///< script function that folds the section
    std::string_view buttonId;
    std::string_view picture;     ///< file name of the title bar
    std::string_view titleTail;   ///< behind the title's text
    std::string_view heightTail;  ///< behind the button's height
};

// REQUIRES of both: the report's pictures are saved.

/// Title bar, title and fold button of a table section.
void AddSectionTitle(CHtmlBuilder& page, const CReport& report, const SectionTitle& words);

/// The realised P/L chart below the table of closed positions.
void AddOffsetFigure(CHtmlBuilder& page, const CReport& report);

}  // namespace tradebill
