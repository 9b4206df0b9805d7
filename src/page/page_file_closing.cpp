// Closing the page on disk.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "page/page_closing.h"
#include "page/page_file.h"
#include "page/page_scan.h"
#include "platform/file.h"

namespace tradebill {

void CPageFile::Close() {
    if (path_.empty() || CloseGathered()) return;
    isFresh_ = false;
    CFile file(path_, FileMode::Update);
    if (!file.IsOpen()) {
        Fail();
        return;
    }
    if (closedSize_ != 0 && file.Size() == size_ && added_.IsPlain()) {
        CloseAddition(file);
    } else {
        CloseWhole(file);
    }
    if (!file.Close()) Fail();
    added_ = {};
}

void CPageFile::CloseWhole(CFile& file) {
    const auto page = file.ReadAll();
    if (!page) {
        Fail();
        closedSize_ = 0;
        return;
    }
    const std::string wrapped = WrappedPage(*page);
    const bool isWritten = file.WriteAt(0, wrapped);
    if (!isWritten) Fail();
    // The file is never cut. If dropped lines made the page shorter, an old end stays behind the new one, and only full
    // passes can follow.
    size_ = std::max(page->size(), wrapped.size());
    closedSize_ = isWritten && size_ == wrapped.size() ? size_ : 0;
}

/// The page up to closedSize_ is whole, and a full pass would keep all that was added since: so the addition moves over
/// the old end of the page, and the end goes behind it.
void CPageFile::CloseAddition(CFile& file) {
    if (size_ == closedSize_) return;
    constexpr std::size_t kBlockSize = std::size_t{256} * 1024;
    std::string block(static_cast<std::size_t>(std::min<std::uint64_t>(kBlockSize, size_ - closedSize_)), '\0');
    bool succeeded = true;
    std::uint64_t from = closedSize_;
    while (from < size_ && succeeded) {
        const std::size_t wanted = static_cast<std::size_t>(std::min<std::uint64_t>(block.size(), size_ - from));
        succeeded = file.ReadAt(from, block.data(), wanted) == wanted &&
                    file.WriteAt(from - kPageEnd.size(), std::string_view(block).substr(0, wanted));
        from += wanted;
    }
    const std::string end = (added_.EndsInLine() ? std::string(kPageLineEnd) : std::string()) + std::string(kPageEnd);
    if (!succeeded || !file.WriteAt(size_ - kPageEnd.size(), end)) Fail();
    size_ += end.size() - kPageEnd.size();
    closedSize_ = failed_ ? 0 : size_;
}

}  // namespace tradebill
