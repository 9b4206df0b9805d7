#include "platform/file_place.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/file.h"

namespace tradebill {
namespace {

bool CopyBytes(const CFile& from, CFile& to) {
    constexpr std::uint64_t kBlockSize = std::uint64_t{256} * 1024;
    const auto size = from.Size();
    if (!size) return false;
    std::string block(static_cast<std::size_t>(std::min(kBlockSize, *size)), '\0');
    for (std::uint64_t at = 0; at < *size;) {
        const std::size_t wanted = static_cast<std::size_t>(std::min<std::uint64_t>(block.size(), *size - at));
        if (from.ReadAt(at, block.data(), wanted) != wanted) return false;
        if (!to.Write(std::string_view(block).substr(0, wanted))) return false;
        at += wanted;
    }
    return true;
}

}  // namespace

bool CopyOver(const std::string& from, const std::string& to) {
    const CFile source(from, FileMode::Read);
    if (!source.IsOpen()) return false;
    CFile copy(to, FileMode::Create);
    return copy.IsOpen() && CopyBytes(source, copy) && copy.Close();
}

}  // namespace tradebill
