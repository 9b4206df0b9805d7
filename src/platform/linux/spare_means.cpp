#include "platform/spare_means.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cstddef>
#include <cstdlib>
#include <memory>

#include "platform/linux/uninterrupted.h"

namespace tradebill {
namespace {

constexpr rlim_t kFiles = 16;
constexpr std::size_t kMemory = std::size_t{4} << 20;

struct FreeMemory {
    void operator()(void* memory) const { std::free(memory); }
};

/// A new file gets the lowest number that is free: mostly all above it are.
bool HasSpareFiles() {
    const int lowest = Uninterrupted([] { return ::open("/", O_RDONLY | O_DIRECTORY | O_CLOEXEC); });
    if (lowest < 0) return false;
    ::close(lowest);
    rlimit limit{};
    return ::getrlimit(RLIMIT_NOFILE, &limit) == 0 && static_cast<rlim_t>(lowest) + kFiles <= limit.rlim_cur;
}

}  // namespace

bool HasSpareMeans() {
    const std::unique_ptr<void, FreeMemory> memory(std::malloc(kMemory));
    return memory != nullptr && HasSpareFiles();
}

}  // namespace tradebill
