// What the fault injector is asked to do.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tradebill {

/// In which way a call is meddled with; fault_injector.cpp says what each means.
enum class How : std::uint8_t { List, Once, Ever, Half, Halves, Full, Kill };

struct Plan {
    std::string log;     ///< path
    std::string call;    ///< the name of the call to meddle with,
    std::string object;  ///< what it works on, as the log has it,
    long at = 0;         ///< and which of these calls, from 1
    How how = How::List;
    int error = 0;                   ///< errno
    std::vector<std::string> apart;  ///< beginnings of paths to which nothing happens for ever
    std::string until;               ///< path at whose sight it is over; empty: never
    char** program = nullptr;        ///< with its arguments, up to a null
};

/// Reads the program's arguments, without its name and up to a null. False if they aren't what its usage says.
[[nodiscard]] bool ReadPlan(char** argument, Plan& plan);

}  // namespace tradebill
