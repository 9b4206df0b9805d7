// Files that the user names for the program to read.
#pragma once

#include <stdexcept>
#include <string>

namespace tradebill {

/// What is there and can't be read: the command line is right, and the work can't be done. Ends the program with
/// kExitFailed.
class CUnreadableInput : public std::runtime_error {
public:
    /// `name` as messages name it; `reason` in the system's words, UTF-8, may be empty.
    CUnreadableInput(const std::string& name, const std::string& reason);
};

/// All bytes of the file `path`. Throws CUsageError if there is none, or what stands there is no file; `expected` says
/// what should. Throws CUnreadableInput.
[[nodiscard]] std::string InputFileText(const std::string& path, const std::string& expected);

}  // namespace tradebill
