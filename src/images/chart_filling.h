// Charts of the account, filled from a report but not painted yet.
#pragma once

#include "graph/graph.h"
#include "images/chart_kinds.h"
#include "images/chart_values.h"
#include "report/request_copy.h"

namespace tradebill {

/// Gives `graph` the settings, points and scale of `chart` in one of its forms: a point for each day of `days`
/// that has a record, but for those before 1970. The size of the dots is left alone.
///
/// REQUIRES: `graph` is new, and the report's statistics are complete.
void FillChart(CGraph& graph, const CReport& report, const AccountChart& chart, const FormSettings& form,
               const ReportRange& days);

}  // namespace tradebill
