// The layouts that can be read: which format and kind each belongs to, and by what a person knows it.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "readers/fixed_readers.h"

namespace tradebill {

/// Whether the text must speak of option premium for a layout to be chosen.
enum class PremiumRule { Any, Without, With };

struct Layout {
    std::string_view name;  ///< that of its sample
    std::int32_t format;    ///< means nothing for the foreign kind
    bool isForeign;
    PremiumRule premium;
    std::string_view mark;  ///< GBK; what a statement of it contains
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
