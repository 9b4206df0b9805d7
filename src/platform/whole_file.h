// Files that are there whole or not at all.
#pragma once

#include <functional>
#include <string>

namespace tradebill {

/// Has `write` make a file beside `path`, under the name that it is given, and puts it there in one step: nobody meets
/// half of it. False, with what was at `path` still there, if `write` says so or the place can't be taken.
[[nodiscard]] bool SaveInOneStep(const std::string& path,
                                 const std::function<bool(const std::string& unfinished)>& write);

}  // namespace tradebill
