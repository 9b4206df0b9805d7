// Work in processes of its own: what it costs is the kernel's account, and no run finds the memory of the one before.
//
// REQUIRES of all: the caller's own process stays small, since its memory counts as the child's at the start.
#pragma once

#include <sys/types.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

namespace tradebill {

struct ProcessCost {
    double wall = 0;  ///< seconds
    double cpu = 0;   ///< seconds, of user and system
    double peak = 0;  ///< bytes
};

/// Runs a command to its end, without its output. Throws std::runtime_error if it fails.
[[nodiscard]] ProcessCost RunCommand(const std::vector<std::string>& command);

namespace measured_process {

/// Runs `work` in a child, which hands back `size` bytes at `result`.
void RunInChild(const std::function<void()>& work, void* result, std::size_t size);

}  // namespace measured_process

/// What `work` returns in a child of its own. Throws std::runtime_error if the child doesn't come to its end.
template <class Work>
auto InChild(Work work) {
    using Result = decltype(work());
    static_assert(std::is_trivially_copyable_v<Result>);
    Result result{};
    measured_process::RunInChild([&] { result = work(); }, &result, sizeof result);
    return result;
}

}  // namespace tradebill
