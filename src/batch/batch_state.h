// What a batch, or one of its tasks, was asked: with it a run that goes on knows the day of the one that began, and
// whoever joins the results knows whether all are there.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/file.h"

namespace tradebill {

struct BatchState {
    std::int64_t accounts = 0;  ///< to be made
    std::string today;          ///< yyyy-mm-dd, the same for all of them
    std::string version;        ///< of the program
    /// What couldn't be looked into when accounts were looked for, in words: there may be more accounts.
    std::vector<std::string> unseen = {};

    bool operator==(const BatchState&) const = default;
};

struct ReadState {
    std::optional<BatchState> state = {};   ///< nothing if no batch has begun, and of what is no such file
    std::optional<UnreadFile> unread = {};  ///< the file, if it is there and can't be read
};

[[nodiscard]] ReadState LoadBatchState(const std::string& path);

/// In one step. False, with the system's reason, if it can't be written.
[[nodiscard]] bool SaveBatchState(const std::string& path, const BatchState& state);

}  // namespace tradebill
