#include "platform/spare_means.h"

#include <array>
#include <cstddef>
#include <cstdlib>
#include <memory>

#include "platform/windows/unique_handle.h"

#include <windows.h>

namespace tradebill {
namespace {

constexpr std::size_t kEvents = 16;
constexpr std::size_t kMemory = std::size_t{4} << 20;

struct FreeMemory {
    void operator()(void* memory) const { std::free(memory); }
};

class CSpareEvent {
public:
    CSpareEvent() : event_(::CreateEventW(nullptr, TRUE, FALSE, nullptr)) {}
    [[nodiscard]] bool IsThere() const { return event_.IsValid(); }

private:
    CUniqueHandle event_;
};

}  // namespace

bool HasSpareMeans() {
    const std::unique_ptr<void, FreeMemory> memory(std::malloc(kMemory));
    const std::array<CSpareEvent, kEvents> events;
    return memory != nullptr && events.back().IsThere();
}

}  // namespace tradebill
