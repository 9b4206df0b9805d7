// The layouts that can be read: which format and kind each belongs to, and by what a person knows it.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "readers/statement_text.h"

namespace tradebill {

/// Whether the text must speak of option premium for a layout to be chosen.
enum class PremiumRule { Any, Without, With };

/// By what a person tells a layout from the others; a report never guesses by it.
struct LayoutMarks {
    std::string_view mark;            ///< GBK; what a statement of it contains
    std::string_view alongside = {};  ///< what it contains as well, if the mark stands in other texts too
    std::string_view instead = {};    ///< what it may contain without the mark
    bool isFramed = false;            ///< tables framed by bars
    bool needsFramedRows = false;     ///< the mark counts only with rows that begin with a bar
    bool yieldsToFramed = false;      ///< the mark stands in framed layouts too
    bool sharesSheets = false;        ///< formats of either equity rule print the same sheets
    bool needsTemplate = false;       ///< its reader is chosen by the change date of a template alone
};

struct Layout {
    std::string_view name;  ///< that of its sample
    std::int32_t format;    ///< a row of report/statement_format.h; means nothing for the foreign kind
    bool isForeign;
    PremiumRule premium;
    LayoutMarks marks;
    Reader* read;
};

/// All fixed layouts, by format. Of several rows that fit a statement the first is the reader's; a later one is chosen
/// by the reader itself.
[[nodiscard]] std::span<const Layout> Layouts();

/// The word that moves a statement to the reader with option premium.
[[nodiscard]] std::string_view PremiumWord();

/// The layout whose reader serves a domestic `text` of `format`, or null.
[[nodiscard]] const Layout* FindLayout(std::int32_t format, std::string_view text);

/// The one of the foreign kind.
[[nodiscard]] const Layout& ForeignLayout();

}  // namespace tradebill
