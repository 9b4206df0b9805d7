#include "platform/spare_means.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cstddef>
#include <cstdlib>
#include <memory>

namespace tradebill {
namespace {

constexpr std::size_t kFiles = 16;
constexpr std::size_t kMemory = std::size_t{4} << 20;

struct FreeMemory {
    void operator()(void* memory) const { std::free(memory); }
};

class CSpareFile {
public:
    CSpareFile() : descriptor_(::open("/", O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {}
    ~CSpareFile() {
        if (IsOpen()) ::close(descriptor_);
    }
    CSpareFile(const CSpareFile&) = delete;
    CSpareFile& operator=(const CSpareFile&) = delete;

    [[nodiscard]] bool IsOpen() const { return descriptor_ >= 0; }

private:
    int descriptor_;
};

}  // namespace

bool HasSpareMeans() {
    const std::unique_ptr<void, FreeMemory> memory(std::malloc(kMemory));
    const std::array<CSpareFile, kFiles> files;
    return memory != nullptr && files.back().IsOpen();
}

}  // namespace tradebill
