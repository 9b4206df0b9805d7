// The page's scripts and its style sheet.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace tradebill {

class CHtmlBuilder;
class CReport;

/// A script function that shows or hides its targets; the button's own picture is the state.
struct FoldScript {
    std::string_view function;
    std::string_view buttonId;
    std::span<const std::string_view> targets;
};

/// The one of that name on the page of `report`, or null if it has none.
[[nodiscard]] const FoldScript* FindFoldScript(const CReport& report, std::string_view function);

/// All of them in one script element.
///
/// REQUIRES: the report's folders are prepared.
[[nodiscard]] std::string FoldScripts(const CReport& report);

/// All scripts, then all styles, sizes at the request's resolution.
void AddPageScripts(CHtmlBuilder& page, const CReport& report);

}  // namespace tradebill
