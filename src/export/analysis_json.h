// The figures beyond the page in the JSON.
#pragma once

#include "analysis/analysis.h"

namespace tradebill {

class CJsonText;

/// The object "analysis": every figure by its name, null where it is null, and why under "reasons".
void WriteAnalysis(CJsonText& json, const Analysis& analysis);

}  // namespace tradebill
