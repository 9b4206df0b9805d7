// Findings as JSON: for `check --json` and in the JSON of a report.
#pragma once

#include <iosfwd>
#include <span>

#include "findings/finding.h"

namespace tradebill {

class CJsonText;

/// The list of findings, in their order.
void WriteFindings(CJsonText& json, std::span<const Finding> findings);

/// {"schema": 1, "findings": [...], "counts": {code: n}}; codes that weren't found aren't counted.
void WriteFindingsJson(std::span<const Finding> findings, std::ostream& out);

}  // namespace tradebill
