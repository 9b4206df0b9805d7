// The placeholder page, which stands for a report until it is there.
#pragma once

#include <optional>
#include <string>

namespace tradebill {

/// Puts a page of one line at `path`, in one step: that the report is being made, or is `finished` and can be asked
/// for. Nothing if it is there; otherwise why it isn't, in the system's words where it has some, UTF-8.
[[nodiscard]] std::optional<std::string> ResetPage(const std::string& path, bool finished);

}  // namespace tradebill
