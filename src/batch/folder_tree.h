// Folders with all that is in them.
#pragma once

#include <map>
#include <optional>
#include <string>

namespace tradebill {

/// Removes a folder with all in it; links are removed and not followed. True if nothing is there afterwards; else the
/// system's reason is left behind.
bool RemoveTree(const std::string& folder);

/// SHA-256 of what lies right in `folder`, by name: of a file its own, of a folder (its name ends in "/") that of the
/// list of its files as sha256sum prints it, by name: "DIGEST  NAME\n" each, names of deeper ones with their folders.
/// Nothing, with the system's reason, if not all can be read.
[[nodiscard]] std::optional<std::map<std::string, std::string>> DigestsIn(const std::string& folder);

}  // namespace tradebill
