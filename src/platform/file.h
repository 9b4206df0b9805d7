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
    Read,       ///< the file must be there; read only
    Create,     ///< makes the file or empties it; write only
    CreateNew,  ///< nothing must be there; makes the file; write only
    Append,     ///< the file must be there; what is written goes to its end
    Update,     ///< the file must be there; read and write anywhere
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
    ~CFile();  ///< closes what is still open, and hears nothing of it
    CFile(const CFile&) = delete;
    CFile& operator=(const CFile&) = delete;

    [[nodiscard]] bool IsOpen() const;

    // REQUIRES, of all that follows: IsOpen().

    /// Whether this is the file that `path` leads to: another may have taken its place since it was opened, or none.
    [[nodiscard]] bool IsAt(const std::string& path) const;
    /// Size in bytes; nothing if it can't be told.
    [[nodiscard]] std::optional<std::uint64_t> Size() const;
    /// Size in bytes of what is a file on disk. Nothing of what is none, without a reason, and nothing if it can't be
    /// told, with one.
    [[nodiscard]] std::optional<std::uint64_t> SizeOnDisk() const;
    /// Writes all of `bytes` where the file stands. False if not all of it could be written, or the mode is to read.
    [[nodiscard]] bool Write(std::string_view bytes);
    /// Writes all of `bytes` at `offset`. False as Write.
    /// REQUIRES: the mode is Update.
    [[nodiscard]] bool WriteAt(std::uint64_t offset, std::string_view bytes);
    /// Fills `buffer` from `offset` on; returns the bytes read, fewer only at the end of the file. Nothing if not all
    /// of them can be read.
    [[nodiscard]] std::optional<std::size_t> ReadAt(std::uint64_t offset, char* buffer, std::size_t size) const;
    /// All of a file on disk. Nothing of what is none, and if not all of it can be read.
    [[nodiscard]] std::optional<std::string> ReadAll() const;
    /// Waits until what was written is on the disk itself, where the file's system knows how. False if it isn't.
    [[nodiscard]] bool MakeDurable();
    /// Ends the work on the file, which isn't open then. False if what was written may be lost: some systems, as those
    /// of a network and those with quotas, say so only now.
    [[nodiscard]] bool Close();

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

/// A file that is there and can't be read.
struct UnreadFile {
    std::string path;
    FileState state = FileState::Unreadable;  ///< or NotAFile
    std::string reason = {};                  ///< as that of FileContent
};

/// What came of an INI file.
struct IniFileContent {
    FileState state = FileState::Missing;
    std::string reason = {};  ///< as that of FileContent
    CIniFile file = {};       ///< empty unless it was read
};

/// Reads and parses a file.
[[nodiscard]] IniFileContent LoadIniFile(const std::string& path);

/// Whether a file has to outlast the machine's failing right after it took its place.
enum class Durability {
    AsItComes,  ///< pages and their pictures, which the next report makes anew: waiting for the disk would cost more
    OnDisk,     ///< results that somebody named, who may throw away what they were made of
};

/// Makes a file beside `path`, has `write` fill it, and puts it there in one step: nobody meets half of it. False, with
/// what was at `path` still there and the system's reason where it has one, if `write` says so, if not all can be
/// written, or if the place can't be taken. Whatever happens, what `write` throws included, nothing else is left.
[[nodiscard]] bool SaveInOneStep(const std::string& path, const std::function<bool(CFile& file)>& write,
                                 Durability durability = Durability::AsItComes);

}  // namespace tradebill
