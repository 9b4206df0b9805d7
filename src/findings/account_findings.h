// All that is wrong with an account's statements, once all days are read.
#pragma once

#include <vector>

#include "findings/finding.h"

namespace tradebill {

class CReport;
class CStatementWatch;

/// The findings of a run, the worst first: by severity, then by code in the order of their table, then by day and row.
///
/// REQUIRES: `watch` has listened to the reading into `report`, whose statistics are done.
[[nodiscard]] std::vector<Finding> FindingsOf(const CReport& report, const CStatementWatch& watch);

/// Puts findings into that order.
void SortFindings(std::vector<Finding>& findings);

}  // namespace tradebill
