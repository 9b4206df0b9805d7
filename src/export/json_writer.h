// From a report to the files of other programs: JSON, all of it by the field tables of records, figures and analysis.
// In come the report, what its run read and left, its analysis and its findings; out goes one text.
//
// json_text.h writes values, run_json.h the block of the run, analysis_json.h that of the analysis, findings_json.h
// the findings. docs/json.md tells the names, docs/tradebill.schema.json their types.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <span>

#include "analysis/analysis.h"
#include "export/run_json.h"
#include "findings/finding.h"

namespace tradebill {

class CReport;

/// Counts up when a name goes or means something else. New names leave it alone.
inline constexpr std::int32_t kJsonSchema = 1;

/// What stands in the JSON beside the report.
struct JsonParts {
    const RunFacts& run;
    const Analysis& analysis;
    std::span<const Finding> findings = {};
};

/// Writes the run, the stores, statistics, chains, analysis and findings as one UTF-8 JSON object. Names are the
/// system's own; every number reads back to the same double, with infinities and NaN as the strings "inf", "-inf" and
/// "nan". Texts are decoded from GBK, one U+FFFD for each byte that belongs to no character.
void WriteJson(const CReport& report, const JsonParts& parts, std::ostream& out);

}  // namespace tradebill
