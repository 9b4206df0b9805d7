// The JSON of a report alone: of no run, with an analysis and without findings.
#pragma once

#include <sstream>
#include <string>

#include "analysis/analysis.h"
#include "export/json_writer.h"
#include "export/run_json.h"
#include "report/report.h"

namespace tradebill {

[[nodiscard]] inline std::string ReportJson(const CReport& report, const Analysis& analysis = {}) {
    std::ostringstream out;
    WriteJson(report, {.run = RunFacts{}, .analysis = analysis}, out);
    return out.str();
}

}  // namespace tradebill
