// The terminal that the program is watched on.
#pragma once

namespace tradebill {

/// Whether standard error goes to a terminal, on which a line can be erased.
[[nodiscard]] bool IsErrorOutputTerminal();

/// Whether somebody wants to see colours there: a terminal that knows them, of a user who doesn't decline them by the
/// environment's NO_COLOR.
[[nodiscard]] bool WantsColours();

/// The terminal takes UTF-8 for as long as it lives; then its own code page comes back.
class CUtf8Terminal {
public:
    CUtf8Terminal();
    ~CUtf8Terminal();
    CUtf8Terminal(const CUtf8Terminal&) = delete;
    CUtf8Terminal& operator=(const CUtf8Terminal&) = delete;

private:
    [[maybe_unused]] unsigned former_;  ///< its own code page, where it has such
};

}  // namespace tradebill
