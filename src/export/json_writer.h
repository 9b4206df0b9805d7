// Everything that a report keeps, as JSON.
#pragma once

#include <ostream>
#include <span>

#include "findings/finding.h"

namespace tradebill {

class CReport;

/// Writes the stores, statistics, chains, units and findings as one UTF-8 JSON object. Names are the system's own;
/// every number reads back to the same double, with infinities and NaN as the strings "inf", "-inf" and "nan". Texts
/// are decoded from GBK, one U+FFFD for each byte that belongs to no character.
void WriteJson(const CReport& report, std::ostream& out, std::span<const Finding> findings = {});

}  // namespace tradebill
