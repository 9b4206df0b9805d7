// The names in a request that become parts of paths: a user's folder, an account, a template. None of them may lead out
// of the folder that it belongs to, on any system.
#pragma once

#include <string>
#include <string_view>

#include "driver/report_request.h"

namespace tradebill {

/// Why `name` can't be part of a path: "holds a path separator". Empty if it can, as an empty name can. `name` is as
/// the system reads it (Utf8Path): UTF-8, or else GBK, where a backslash may be half of a character.
[[nodiscard]] std::string_view WhyNoName(std::string_view name);

/// Why the names of `request` can't be used, a line: the first that can't, and what it holds. Empty if all can.
[[nodiscard]] std::string WhyNamesFail(const GenerateBillRequest& request);

}  // namespace tradebill
