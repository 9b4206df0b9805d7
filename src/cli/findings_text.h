// Findings for people.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <span>
#include <string>

#include "cli/shown_text.h"
#include "findings/finding.h"

namespace tradebill {

/// Of the word for how grave a finding is.
[[nodiscard]] Colour ColourOf(Severity severity);

/// "20240111 D1.20240111o.txt, line 7, trades: ... expected ..., found ...", without code and advice.
[[nodiscard]] std::string FindingLine(const Finding& finding);

/// All findings, grouped by code, at most `mostPerCode` of each, with the advice of the code, and a count at the end.
void PrintFindings(std::span<const Finding> findings, std::size_t mostPerCode, std::ostream& out);

/// "2 errors, 1 warning, 3 notes"; "nothing was found".
[[nodiscard]] std::string FindingCountsText(std::span<const Finding> findings);

}  // namespace tradebill
