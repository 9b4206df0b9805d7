#include "platform/file.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

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

std::string WhyNotWhole(std::uint64_t got, std::uint64_t size, std::uint32_t error) {
    const std::string words = SystemErrorText(error);
    return "only " + std::to_string(got) + " of its " + std::to_string(size) + " bytes can be read" +
           (words.empty() ? "" : ": " + words);
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
    content.resize(ReadAt(0, content.data(), content.size()));
    return content;
}

std::optional<std::string_view> CFile::ReadAll(CFileBuffer& buffer) const {
    const auto size = SizeOnDisk();
    if (!size) return std::nullopt;
    char* const bytes = buffer.Reserve(static_cast<std::size_t>(*size));
    return std::string_view(bytes, ReadAt(0, bytes, static_cast<std::size_t>(*size)));
}

FileContent ReadWholeFile(const std::string& path, CFileBuffer& buffer, FileMode mode) {
    const CFile file(path, mode);
    if (!file.IsOpen()) return WhyNotOpen(path, LastSystemError());
    const auto size = file.SizeOnDisk();
    if (!size) return {.state = FileState::NotAFile};
    char* const bytes = buffer.Reserve(static_cast<std::size_t>(*size));
    const std::size_t got = file.ReadAt(0, bytes, static_cast<std::size_t>(*size));
    if (got < *size) return {.state = FileState::Unreadable, .reason = WhyNotWhole(got, *size, LastSystemError())};
    return {.state = FileState::Read, .bytes = {bytes, got}};
}

std::optional<std::string> ReadStatementFile(const std::string& path) {
    CFileBuffer buffer;
    const auto text = ReadStatementFile(path, buffer);
    return text ? std::optional<std::string>(*text) : std::nullopt;
}

std::optional<std::string_view> ReadStatementFile(const std::string& path, CFileBuffer& buffer) {
    const CFile file(path, FileMode::Update);
    if (!file.IsOpen()) return std::nullopt;
    const auto text = file.ReadAll(buffer);
    return text ? std::optional(text->substr(0, text->find('\0'))) : std::nullopt;
}

std::optional<std::string> ReadPlainFile(const std::string& path) {
    if (!IsPlainFile(path)) return std::nullopt;
    const CFile file(path, FileMode::Read);
    return file.IsOpen() ? file.ReadAll() : std::nullopt;
}

std::optional<CIniFile> LoadIniFile(const std::string& path) {
    const auto content = ReadPlainFile(path);
    return content ? std::optional(CIniFile::Parse(*content)) : std::nullopt;
}

bool SaveInOneStep(const std::string& path, const std::function<bool(const std::string& unfinished)>& write) {
    const std::string unfinished = path + ".part";
    try {
        if (write(unfinished) && MoveOver(unfinished, path)) return true;
    } catch (...) {
        RemoveFile(unfinished);
        throw;
    }
    const CSystemErrorKeeper reason;
    RemoveFile(unfinished);
    return false;
}

}  // namespace tradebill
