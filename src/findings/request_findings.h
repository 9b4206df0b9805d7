// What is wrong with what a run is asked, apart from its statements.
#pragma once

#include <span>
#include <vector>

#include "findings/finding.h"
#include "report/trade_units.h"

namespace tradebill {

class CReport;

/// Whether the template that the report's request names is there, and what its check says. Nothing for the foreign
/// family, which takes none, and for a request that names none. Returns false if it is there and can't be read, which
/// is a finding too: what it says wrongly stays unknown.
bool CheckRequestTemplate(const CReport& report, std::vector<Finding>& findings);

/// Units that nobody knows, and those that the account's own trades contradict.
void TellDoubtfulUnits(std::span<const DoubtfulUnit> units, std::vector<Finding>& findings);

/// That a report ends today without the host's figures.
[[nodiscard]] Finding LiveFinding();

}  // namespace tradebill
