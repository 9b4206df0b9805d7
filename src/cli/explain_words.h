// How `explain` puts what the readers saw, in words for people and in names for programs.
#pragma once

#include <string>
#include <string_view>

#include "readers/scan_listener.h"
#include "requests/scan_report.h"

namespace tradebill {

[[nodiscard]] std::string_view KindText(SectionKind kind);  ///< "closed positions"

[[nodiscard]] std::string FateText(const PassedOverRow& row);  ///< "7 columns, 12 needed"
[[nodiscard]] std::string_view FateName(RowFate fate);         ///< "too_short"

/// Why this reader was chosen among those of its format; empty if there is no other.
[[nodiscard]] std::string ReasonText(std::string_view layout);

}  // namespace tradebill
