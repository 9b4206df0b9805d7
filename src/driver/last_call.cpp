#include "driver/last_call.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <mutex>
#include <new>
#include <string>
#include <string_view>

#include "driver/report_request.h"

namespace tradebill {

void CLastCall::Keep(std::string_view error, const TradeBillCounts& counts) noexcept {
    // Under the lock nothing is allocated or freed.
    std::string text;
    bool isWhole = true;
    try {
        text = error;
    } catch (const std::bad_alloc&) {
        isWhole = false;
    }
    const std::scoped_lock guard(lock_);
    kept_ = 1 - kept_;
    texts_[kept_].swap(text);
    error_ = isWhole ? texts_[kept_].c_str() : "out of memory";
    counts_ = counts;
}

const char* CLastCall::Error() const {
    const std::scoped_lock guard(lock_);
    return error_;
}

void CLastCall::Tell(TradeBillCounts* counts) const {
    if (counts == nullptr) return;
    const std::size_t size = std::min<std::size_t>(counts->Size, sizeof(TradeBillCounts));
    const std::size_t whole = size / sizeof(std::uint32_t) * sizeof(std::uint32_t);  // half a field is none
    if (whole <= offsetof(TradeBillCounts, Days)) return;
    TradeBillCounts copy{};
    {
        const std::scoped_lock guard(lock_);
        copy = counts_;
    }
    copy.Size = counts->Size;
    std::memcpy(counts, &copy, whole);
}

}  // namespace tradebill
