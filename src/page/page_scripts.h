// The page's scripts and its style sheet.
#pragma once

namespace tradebill {

class CHtmlBuilder;
class CReport;

/// All scripts, then all styles, sizes at the request's resolution.
void AddPageScripts(CHtmlBuilder& page, const CReport& report);

}  // namespace tradebill
