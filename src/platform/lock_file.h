// A file that one process holds for itself: how others see whether somebody is at work in a folder, since the system
// lets go of it however its holder ends.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tradebill {

class CLockFile {
public:
    /// Which file: one that may have to be made, or one that must be there.
    enum class Which { MadeIfMissing, FoundOnly };
    enum class State { Held, Taken, Failed };

    /// Tries to hold the file at `path`, without waiting. What fails leaves the system's reason behind. A file system
    /// that knows no locks gives a file that everybody can hold.
    CLockFile(const std::string& path, Which which) : path_(path), state_(Take(which)) {}
    /// Lets go of the file, and removes it.
    ~CLockFile() { Release(); }
    CLockFile(const CLockFile&) = delete;
    CLockFile& operator=(const CLockFile&) = delete;

    [[nodiscard]] bool IsHeld() const { return state_ == State::Held; }
    /// Whether another holds it: there is nothing wrong then.
    [[nodiscard]] bool IsTaken() const { return state_ == State::Taken; }

    /// Says in the file who holds it, for HolderIn. Nothing depends on it.
    ///
    /// REQUIRES: IsHeld().
    void Name(std::string_view holder) const;

    /// The same as its end, which tells whether the file is gone.
    bool Release();

private:
    State Take(Which which);

    std::string path_;
    std::optional<std::intptr_t> handle_;  ///< the system's own, while it is held
    State state_;
};

/// Who holds the file at `path`, as it was named there; empty if nobody said so.
[[nodiscard]] std::string HolderIn(const std::string& path);

}  // namespace tradebill
