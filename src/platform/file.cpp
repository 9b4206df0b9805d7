#include "platform/file.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "base/ini_file.h"
#include "platform/paths.h"
#include "platform/system_error.h"

namespace tradebill {
namespace {

/// What stands at a path that can't be opened.
FileContent WhyNotOpen(const std::string& path, std::uint32_t error) {
    if (MeansMissing(error)) return {.state = FileState::Missing};
    if (IsOtherThanFile(path)) return {.state = FileState::NotAFile};
    return {.state = FileState::Unreadable, .reason = SystemErrorText(error)};
}

FileContent WhyNoSize(std::uint32_t error) {
    if (error == 0) return {.state = FileState::NotAFile};
    return {.state = FileState::Unreadable, .reason = SystemErrorText(error)};
}

/// Somebody cuts it at this moment.
std::string WhyNotWhole(std::uint64_t got, std::uint64_t size) {
    return "only " + std::to_string(got) + " of its " + std::to_string(size) + " bytes can be read";
}

/// It is closed then.
bool WriteNew(const std::string& path, const std::function<bool(CFile& file)>& write, Durability durability) {
    CFile file(path, FileMode::Create);
    if (!file.IsOpen() || !write(file)) return false;
    if (durability == Durability::OnDisk && !file.MakeDurable()) return false;
    return file.Close();
}

}  // namespace

char* CFileBuffer::Reserve(std::size_t size) {
    if (size > size_) {
        constexpr std::size_t kStep = std::size_t{64} << 10;  // days differ, and the next one may be a little larger
        const std::size_t rounded = (size + kStep - 1) / kStep * kStep;
        bytes_.reset();
        bytes_ = std::make_unique_for_overwrite<char[]>(rounded);
        size_ = rounded;
    }
    return bytes_.get();
}

std::optional<std::string> CFile::ReadAll() const {
    const auto size = SizeOnDisk();
    if (!size) return std::nullopt;
    std::string content(static_cast<std::size_t>(*size), '\0');
    const auto got = ReadAt(0, content.data(), content.size());
    return got == content.size() ? std::optional(std::move(content)) : std::nullopt;
}

FileContent ReadWholeFile(const std::string& path, CFileBuffer& buffer, FileMode mode) {
    const CFile file(path, mode);
    if (!file.IsOpen()) return WhyNotOpen(path, LastSystemError());
    const auto size = file.SizeOnDisk();
    if (!size) return WhyNoSize(LastSystemError());
    char* const bytes = buffer.Reserve(static_cast<std::size_t>(*size));
    const auto got = file.ReadAt(0, bytes, static_cast<std::size_t>(*size));
    if (!got) return {.state = FileState::Unreadable, .reason = SystemErrorText(LastSystemError())};
    if (*got < *size) return {.state = FileState::Unreadable, .reason = WhyNotWhole(*got, *size)};
    return {.state = FileState::Read, .bytes = {bytes, *got}};
}

IniFileContent LoadIniFile(const std::string& path) {
    CFileBuffer buffer;
    FileContent content = ReadWholeFile(path, buffer);
    return {.state = content.state, .reason = std::move(content.reason), .file = CIniFile::Parse(content.bytes)};
}

bool SaveInOneStep(const std::string& path, const std::function<bool(CFile& file)>& write, Durability durability) {
    const std::string unfinished = path + ".part";
    try {
        if (WriteNew(unfinished, write, durability) && MoveOver(unfinished, path)) return true;
    } catch (...) {
        RemoveFile(unfinished);
        throw;
    }
    const CSystemErrorKeeper reason;
    RemoveFile(unfinished);
    return false;
}

}  // namespace tradebill
