#include "batch/results_file.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "batch/account_result.h"
#include "platform/file.h"

namespace tradebill {

ReadResults LoadResults(const std::string& path) {
    ReadResults read;
    CFileBuffer buffer;
    const FileContent content = ReadWholeFile(path, buffer);
    if (content.state == FileState::Missing) return read;
    if (content.state != FileState::Read) {
        read.unread = {.path = path, .state = content.state, .reason = content.reason};
        return read;
    }
    for (std::string_view rest = content.bytes; !rest.empty();) {
        const std::size_t end = rest.find('\n');
        const auto result = end == std::string_view::npos ? std::nullopt : ParseResultLine(rest.substr(0, end));
        rest.remove_prefix(std::min(end == std::string_view::npos ? end : end + 1, rest.size()));
        if (!result) {
            read.isTidy = false;
            continue;
        }
        const auto [place, isNew] = read.results.insert_or_assign(result->account, *result);
        read.isTidy &= isNew;
    }
    return read;
}

bool CResultsFile::Begin(const ResultsByAccount& kept) {
    const ReadResults there = LoadResults(path_);
    const bool isAsWanted = there.isTidy && !there.unread && there.results == kept && StampOf(path_).has_value();
    const auto write = [&](CFile& file) {
        return std::ranges::all_of(kept, [&](const auto& entry) { return file.Write(ResultLine(entry.second)); });
    };
    if (!isAsWanted && !SaveInOneStep(path_, write, Durability::OnDisk)) return false;
    file_ = std::make_unique<CFile>(path_, FileMode::Append);
    isCut_ = false;
    return file_->IsOpen();
}

bool CResultsFile::Append(const AccountResult& result) {
    const bool isWritten = file_->Write((isCut_ ? "\n" : "") + ResultLine(result));
    isCut_ = !isWritten;
    return isWritten;
}

bool CResultsFile::Close() {
    const bool isDone = file_->MakeDurable() && file_->Close();
    file_.reset();
    return isDone;
}

}  // namespace tradebill
