#include "export/file_digest.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/file.h"
#include "platform/paths.h"
#include "platform/sha256.h"

namespace tradebill {
namespace {

constexpr std::size_t kBlock = std::size_t{256} * 1024;

}  // namespace

FileDigest DigestOfBytes(const std::string& path, std::string_view bytes) {
    CSha256 sha;
    sha.Add(bytes);
    return {.file = Utf8Path(FileNameOf(path)), .size = bytes.size(), .sha256 = sha.Digest()};
}

std::optional<FileDigest> DigestOfFile(const std::string& path) {
    const CFile file(path, FileMode::Read);
    if (!file.IsOpen()) return std::nullopt;
    const auto block = std::make_unique<char[]>(kBlock);
    CSha256 sha;
    std::uint64_t size = 0;
    for (;;) {
        const auto got = file.ReadAt(size, block.get(), kBlock);
        if (!got) return std::nullopt;
        sha.Add({block.get(), *got});
        size += *got;
        if (*got < kBlock) break;
    }
    return FileDigest{.file = Utf8Path(FileNameOf(path)), .size = size, .sha256 = sha.Digest()};
}

}  // namespace tradebill
