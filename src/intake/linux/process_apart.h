// Work on what strangers wrote by a library that trusts it: in a process of its own, where no harm reaches ours.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace tradebill {

inline constexpr unsigned kMostSecondsApart = 5;

/// What `work` returns, done in a process that ends with it. Nothing if that process crashed, took more than so many
/// seconds of the processor or 400 MB beside those that are in use here, or could not be had.
[[nodiscard]] std::optional<std::string> DoneApart(const std::function<std::string()>& work,
                                                   unsigned mostSeconds = kMostSecondsApart);

}  // namespace tradebill
