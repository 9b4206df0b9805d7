// The files that a run is going to read, before it does.
#pragma once

#include <string>

namespace tradebill {

struct PreparedRequest;

/// SHA-256 of all that decides what a report of `prepared` says beside its options: each day's statement, the other
/// files, and which of them are missing or can't be read. The same as long as none of them changes.
[[nodiscard]] std::string InputsDigest(const PreparedRequest& prepared);

}  // namespace tradebill
