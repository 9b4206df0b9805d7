// Files: one that is open for the length of one operation, while others may read and write it, and files that are read
// or written as a whole.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "base/ini_file.h"

namespace tradebill {

enum class FileMode {
    Read,    ///< the file must be there; read only
    Create,  ///< makes the file or empties it; write only
    Append,  ///< the file must be there; what is written goes to its end
    Update,  ///< the file must be there; read and write anywhere
};

/// Memory for one file after the other. It grows with the largest of them, and isn't cleared in between.
class CFileBuffer {
public:
    /// At least `size` bytes, whatever they hold. Valid until the next call.
    [[nodiscard]] char* Reserve(std::size_t size);

private:
    std::unique_ptr<char[]> bytes_;
    std::size_t size_ = 0;
};

/// What fails leaves its reason behind, where the system has one (system_error.h).
class CFile {
public:
    CFile(const std::string& path, FileMode mode);
    ~CFile();
    CFile(const CFile&) = delete;
    CFile& operator=(const CFile&) = delete;

    [[nodiscard]] bool IsOpen() const;

    // REQUIRES, of all that follows: IsOpen().

    /// Whether this is the file that `path` leads to: another may have taken its place since it was opened, or none.
    [[nodiscard]] bool IsAt(const std::string& path) const;
    /// Size in bytes; 0 if it can't be told.
    [[nodiscard]] std::uint64_t Size() const;
    /// Size in bytes of what is a file on disk; nothing of what is none.
    [[nodiscard]] std::optional<std::uint64_t> SizeOnDisk() const;
    /// Writes all of `bytes` where the file stands. False if not all of it could be written, or the mode is to read.
    [[nodiscard]] bool Write(std::string_view bytes);
    /// Writes all of `bytes` at `offset`. False as Write.
    /// REQUIRES: the mode is Update.
    [[nodiscard]] bool WriteAt(std::uint64_t offset, std::string_view bytes);
    /// Fills `buffer` from `offset` on; returns the bytes read, fewer only at the end of the file or on failure.
    [[nodiscard]] std::size_t ReadAt(std::uint64_t offset, char* buffer, std::size_t size) const;
    /// All of a file on disk; nothing of what is none.
    [[nodiscard]] std::optional<std::string> ReadAll() const;
    /// The same, in memory of `buffer`.
    [[nodiscard]] std::optional<std::string_view> ReadAll(CFileBuffer& buffer) const;

private:
    std::intptr_t handle_;  ///< the system's own
};

/// What tells whether a file is still the one that was read.
struct FileStamp {
    std::int64_t changed = 0;  ///< time of the last change, in the system's own finest steps
    std::uint64_t size = 0;    ///< bytes
    bool operator==(const FileStamp&) const = default;
};

/// The stamp of a plain file; nothing if there is none. One look at the file system.
[[nodiscard]] std::optional<FileStamp> StampOf(const std::string& path);

/// What came of the reading of a whole file.
enum class FileState {
    Read,
    Missing,     ///< there is none; a link that leads nowhere is none either
    NotAFile,    ///< a folder, a pipe or a device bears its name
    Unreadable,  ///< it can't be opened, or not be read to its end
};

struct FileContent {
    FileState state = FileState::Missing;
    std::string reason = {};      ///< why it is unreadable, in the system's words where it has some; UTF-8
    std::string_view bytes = {};  ///< all of them, in the buffer; of a file that was read
};

/// Reads a file, opened to read or to update, into memory of `buffer`, or tells why it can't. Doesn't wait for what has
/// nothing to give.
[[nodiscard]] FileContent ReadWholeFile(const std::string& path, CFileBuffer& buffer, FileMode mode = FileMode::Read);

/// All bytes of a plain file. Nothing if there is none, or if it can't be read.
[[nodiscard]] std::optional<std::string> ReadPlainFile(const std::string& path);

/// The bytes of a statement, up to its first zero byte. Nothing if the file isn't there, isn't a plain file or can't be
/// opened for reading and writing. Content and length of the file stay as they are.
[[nodiscard]] std::optional<std::string> ReadStatementFile(const std::string& path);

/// The same, in memory of `buffer`.
[[nodiscard]] std::optional<std::string_view> ReadStatementFile(const std::string& path, CFileBuffer& buffer);

/// Reads and parses a plain file; nothing if it can't be read.
[[nodiscard]] std::optional<CIniFile> LoadIniFile(const std::string& path);

/// Has `write` make a file beside `path`, under the name that it is given, and puts it there in one step: nobody meets
/// half of it. False, with what was at `path` still there and the system's reason where it has one, if `write` says so
/// or the place can't be taken.
[[nodiscard]] bool SaveInOneStep(const std::string& path,
                                 const std::function<bool(const std::string& unfinished)>& write);

}  // namespace tradebill
