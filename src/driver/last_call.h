// What the last call of the host came to, for whoever asks on whatever thread.
#pragma once

#include <array>
#include <cstddef>
#include <mutex>
#include <string>
#include <string_view>

#include "driver/report_request.h"

namespace tradebill {

/// Calls may end, and be asked for, on several threads at once: the last one that ends is the last call.
class CLastCall {
public:
    /// Keeps the outcome of a call. Where there is no memory for `error` it is a shorter text.
    void Keep(std::string_view error, const TradeBillCounts& counts) noexcept;

    /// UTF-8, empty if the call went well. Valid until Keep() is called again.
    [[nodiscard]] const char* Error() const;

    /// Fills the fields of `counts` that lie within its size. Nothing happens to null.
    void Tell(TradeBillCounts* counts) const;

private:
    mutable std::mutex lock_;
    std::array<std::string, 2> texts_;  // whoever asks while a call ends finds the text before it as it was
    std::size_t kept_ = 0;
    const char* error_ = "";
    TradeBillCounts counts_{};
};

}  // namespace tradebill
