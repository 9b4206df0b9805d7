// Why the system refused what it was asked. Like the system's own number, this one belongs to a thread, and only what
// fails sets it: whoever wants a reason forgets the last one first.
#pragma once

#include <cstdint>
#include <string>

namespace tradebill {

/// The number of what failed last on this thread; 0 if nothing did.
[[nodiscard]] std::uint32_t LastSystemError();
void SetSystemError(std::uint32_t error);
inline void ForgetSystemError() {
    SetSystemError(0);
}

/// Keeps the number of what failed from what is done to clear up behind it.
class CSystemErrorKeeper {
public:
    CSystemErrorKeeper() : error_(LastSystemError()) {}
    ~CSystemErrorKeeper() { SetSystemError(error_); }
    CSystemErrorKeeper(const CSystemErrorKeeper&) = delete;
    CSystemErrorKeeper& operator=(const CSystemErrorKeeper&) = delete;

private:
    std::uint32_t error_;
};

/// The system's words for `error` as UTF-8, without a full stop; empty for 0.
[[nodiscard]] std::string SystemErrorText(std::uint32_t error);

/// Whether `error`, of an attempt to open a file, says that there is none at the path.
[[nodiscard]] bool MeansMissing(std::uint32_t error);

/// Whether `error`, of an attempt to make something, says that its name is taken.
[[nodiscard]] bool MeansThere(std::uint32_t error);
/// Whether the same attempt may come out otherwise at another time: the system is short of something, or a device
/// failed.
[[nodiscard]] bool MayPass(std::uint32_t error);

}  // namespace tradebill
