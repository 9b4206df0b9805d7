#include "platform/file_place.h"

#include <algorithm>
#include <array>
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

bool HoldSameBytes(const std::string& one, const std::string& other) {
    const CFile left(one, FileMode::Read);
    const CFile right(other, FileMode::Read);
    if (!left.IsOpen() || !right.IsOpen()) return false;
    const auto size = left.Size();
    if (!size || right.Size() != size) return false;
    std::array<char, 4096> leftBlock;
    std::array<char, 4096> rightBlock;
    for (std::uint64_t at = 0; at < *size;) {
        const std::size_t wanted = static_cast<std::size_t>(std::min<std::uint64_t>(leftBlock.size(), *size - at));
        if (left.ReadAt(at, leftBlock.data(), wanted) != wanted) return false;
        if (right.ReadAt(at, rightBlock.data(), wanted) != wanted) return false;
        if (!std::equal(leftBlock.begin(), leftBlock.begin() + static_cast<std::ptrdiff_t>(wanted), rightBlock.begin()))
            return false;
        at += wanted;
    }
    return true;
}

}  // namespace tradebill
