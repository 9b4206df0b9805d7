// The short way to the same page: what is added is kept in memory and streamed to where it will stand once the page is
// closed.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <string>
#include <string_view>

#include "page/page_closing.h"
#include "page/page_file.h"
#include "page/page_scan.h"
#include "platform/file.h"

namespace tradebill {
namespace {

constexpr std::size_t kBlockSize = std::size_t{256} * 1024;
constexpr std::size_t kLongText = std::size_t{32} * 1024;        // worth a call of the system
constexpr std::size_t kMostUnclosed = std::size_t{1024} * 1024;  // of a page that no closing has made whole yet

/// Moves the bytes from `begin` to `end` up by `distance`, the last ones first.
bool MoveUp(CFile& file, std::uint64_t begin, std::uint64_t end, std::uint64_t distance) {
    std::string block(static_cast<std::size_t>(std::min<std::uint64_t>(kBlockSize, end - begin)), '\0');
    while (end > begin) {
        const std::size_t size = static_cast<std::size_t>(std::min<std::uint64_t>(block.size(), end - begin));
        end -= size;
        if (file.ReadAt(end, block.data(), size) != size) return false;
        if (!file.WriteAt(end + distance, std::string_view(block).substr(0, size))) return false;
    }
    return true;
}

bool IsPlain(std::string_view text) {
    CPageScan scan;
    scan.Feed(text);
    return scan.IsPlain();
}

}  // namespace

void CPageFile::EndGathering() noexcept {
    try {
        Settle();
    } catch (const std::bad_alloc&) {
        Spoil();
    }
    isGathering_ = false;
}

bool CPageFile::Gather(std::string_view text) {
    if (!isGathering_ || !HasBegunToGather()) return false;
    if (gathered_ == Gathered::Behind && text.size() >= kLongText) {
        StreamKept();
        Stream(text);
    } else {
        kept_ += text;
        if (gathered_ == Gathered::Behind && kept_.size() >= kLongText) StreamKept();
        if (gathered_ == Gathered::All && kept_.size() > kMostUnclosed) Settle();
    }
    return true;
}

/// A page without addition is gathered from where its end stands; one that only has its head lines, as a whole. What
/// was added to any other is on disk, and so goes what follows.
bool CPageFile::HasBegunToGather() {
    if (gathered_ != Gathered::Nothing) return true;
    if (isFresh_) {
        kept_ = kPageHeadLines;
        gathered_ = Gathered::All;
        return true;
    }
    if (closedSize_ == 0 || size_ != closedSize_) return false;
    file_ = std::make_unique<CFile>(path_, FileMode::Update);
    if (!file_->IsOpen() || file_->Size() != size_) {
        file_.reset();
        return false;
    }
    streamed_ = closedSize_ - kPageEnd.size();
    gathered_ = Gathered::Behind;
    return true;
}

/// A block that a closing would change goes to disk, where what it leaves behind the page can stay.
bool CPageFile::InsertInGatheredHead(std::string_view block) {
    if (!IsPlain(block)) return false;
    if (!isGathering_ || !HasBegunToGather() || gathered_ != Gathered::All) return false;
    const std::size_t at = HeadEndLine(kept_);
    const std::string rest = WithBlockBefore(std::string_view(kept_).substr(at), block);
    kept_.replace(at, std::string::npos, rest);
    size_ = kept_.size();
    return true;
}

bool CPageFile::CloseGathered() {
    if (!isGathering_ || !HasBegunToGather()) return false;
    if (!added_.IsPlain()) {
        Settle();
        return false;
    }
    if (gathered_ == Gathered::All) {
        kept_ = WrappedPage(kept_);
        kept_.resize(kept_.size() - kPageEnd.size());
        streamed_ = 0;
        gathered_ = Gathered::Behind;
    } else if (added_.EndsInLine()) {
        kept_ += kPageLineEnd;
    }
    size_ = closedSize_ = streamed_ + kept_.size() + kPageEnd.size();
    added_ = {};
    return true;
}

void CPageFile::StreamKept() {
    Stream(kept_);
    kept_.clear();
}

void CPageFile::Stream(std::string_view text) {
    if (path_.empty()) return;  // spoilt
    if (!OpenFresh() || !file_->WriteAt(streamed_, text)) Spoil();
    streamed_ += text.size();
}

/// Without a file there is nothing on disk but the head lines: what holds them not, as a device doesn't, takes no page.
bool CPageFile::OpenFresh() {
    if (file_ != nullptr) return file_->IsOpen();
    file_ = std::make_unique<CFile>(path_, FileMode::Update);
    return file_->IsOpen() && file_->Size() == kPageHeadLines.size();
}

void CPageFile::Settle() {
    if (gathered_ == Gathered::Nothing) return;
    // A file that somebody took away or replaced meanwhile is written all the same, and lost.
    if (path_.empty() || !OpenFresh() || !WriteTold() || !file_->IsAt(path_) || !file_->Close()) Spoil();
    kept_.clear();
    file_.reset();
    gathered_ = Gathered::Nothing;
    isFresh_ = false;
}

bool CPageFile::WriteTold() {
    if (gathered_ == Gathered::All) return file_->WriteAt(0, kept_);
    if (size_ == closedSize_) return file_->WriteAt(streamed_, kept_.append(kPageEnd));
    // The addition stands where the page's end belongs for now, or is still here.
    const std::uint64_t end = closedSize_ - kPageEnd.size();
    if (streamed_ <= end) {
        kept_.insert(static_cast<std::size_t>(end - streamed_), kPageEnd);
        return file_->WriteAt(streamed_, kept_);
    }
    return MoveUp(*file_, end, streamed_, kPageEnd.size()) && file_->WriteAt(end, kPageEnd) &&
           file_->WriteAt(streamed_ + kPageEnd.size(), kept_);
}

/// A gathered page that can't be written stays as far as it came: one with a gap would be worse.
void CPageFile::Spoil() {
    Fail();
    path_.clear();
}

}  // namespace tradebill
