// What each code of a finding means and what to do about it.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "findings/finding.h"
#include "readers/scan_listener.h"

namespace tradebill {

struct FindingKind {
    FindingCode code;
    std::string_view name;    ///< stable, as the JSON and the documents have it
    Severity severity;        ///< unless a finding says otherwise
    std::string_view when;    ///< what it means, a sentence
    std::string_view advice;  ///< what to do, a sentence
};

/// All codes, in the order of FindingCode.
[[nodiscard]] std::span<const FindingKind> FindingKinds();

[[nodiscard]] const FindingKind& KindOf(FindingCode code);

/// What is wrong and what to do, a sentence each.
[[nodiscard]] std::string SentencesOf(const Finding& finding);

[[nodiscard]] std::int32_t CountOf(std::span<const Finding> findings, FindingCode code);

/// Whether one of them is an error or a warning.
[[nodiscard]] bool HasWarnings(std::span<const Finding> findings);

/// "error", "warning" or "note".
[[nodiscard]] std::string_view SeverityName(Severity severity);

}  // namespace tradebill
