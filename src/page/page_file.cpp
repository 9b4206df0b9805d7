#include "page/page_file.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "page/page_closing.h"
#include "platform/file.h"
#include "platform/paths.h"
#include "platform/system_error.h"

namespace tradebill {

CPageFile::CPageFile(std::string_view path) : CPageFile(WholePath{std::string(path.substr(0, kLongestPath))}) {}

CPageFile::CPageFile(const WholePath& path) {
    CFile file(path.path, FileMode::Create);
    if (!file.IsOpen()) {
        Fail();
        return;
    }
    path_ = path.path;
    isFresh_ = file.Write(kPageHeadLines) && file.Close();
    if (!isFresh_) Fail();
    size_ = kPageHeadLines.size();
}

void CPageFile::Fail() noexcept {
    if (!failed_) failure_ = LastSystemError();
    failed_ = true;
}

void CPageFile::Append(std::string_view text, TextKind kind) {
    if (path_.empty()) return;
    if (!Gather(text) && !AppendAtOnce(text)) {
        Fail();
        return;
    }
    size_ += text.size();
    if (kind == TextKind::PlainLines) {
        added_.TakePlainLines();
    } else {
        added_.Feed(text);
    }
}

bool CPageFile::AppendAtOnce(std::string_view text) {
    isFresh_ = false;
    CFile file(path_, FileMode::Append);
    return file.IsOpen() && file.Write(text) && file.Close();
}

void CPageFile::InsertInHead(std::string_view block) {
    if (path_.empty() || InsertInGatheredHead(block)) return;
    Settle();
    isFresh_ = false;
    CFile file(path_, FileMode::Update);
    const auto page = file.IsOpen() ? file.ReadAll() : std::nullopt;
    if (!page) {
        Fail();
        return;
    }
    const std::size_t at = HeadEndLine(*page);
    const std::string rest = WithBlockBefore(std::string_view(*page).substr(at), block);
    size_ = std::max<std::uint64_t>(page->size(), at + rest.size());
    closedSize_ = 0;
    if (!file.WriteAt(at, rest) || !file.Close()) Fail();
}

}  // namespace tradebill
