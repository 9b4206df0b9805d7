// The results of the interface, as a table: each number has its name here, and nowhere else.
#pragma once

#include <cstdint>

namespace tradebill {

/// "WRONG_REQUEST"; "UNKNOWN" for a number that is no result. Zero-terminated.
[[nodiscard]] const char* ResultName(std::int32_t result);

/// What it means, for a call that says no more: "no table, column or chart is called so". Zero-terminated, static.
[[nodiscard]] const char* ResultMeaning(std::int32_t result);

}  // namespace tradebill
