// What stands at a path. Paths are spelled as the system's own file functions take them: on Windows in the system's
// code page, with either separator.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tradebill {

/// The longest path, in bytes, that the module reads or writes: longer ones are cut, and then lead elsewhere.
inline constexpr std::size_t kLongestPath = 259;

[[nodiscard]] bool IsFolder(const std::string& path);
[[nodiscard]] bool IsPlainFile(const std::string& path);
/// Whether something stands there that is no plain file. False if that can't be told.
[[nodiscard]] bool IsOtherThanFile(const std::string& path);
/// Whether the last level of `path` is a link, wherever it leads. A place that can't be looked at counts as one, since
/// nothing may be written through it.
[[nodiscard]] bool IsLink(const std::string& path);

/// Whether a folder may be at `path`, or behind it if it is a link: only what can be looked at, and is missing or a
/// file, is certainly none.
[[nodiscard]] bool MayBeFolder(const std::string& path);

/// A path as UTF-8. On Linux paths are bytes, and mostly are UTF-8.
[[nodiscard]] std::string Utf8Path(const std::string& path);
/// The way back. What the system's code page lacks becomes what stands for it there, which leads nowhere.
[[nodiscard]] std::string PathOfUtf8(std::string_view text);

/// Whether both paths lead to one file, however they are spelled. False if either isn't there.
[[nodiscard]] bool IsSameFile(const std::string& one, const std::string& other);

/// Makes the last level of `path`. True if the folder is there afterwards; else the system's reason is left behind.
bool MakeFolder(const std::string& path);
/// Makes the last level of `path`, for its owner alone. False, with the system's reason, if something is there already.
[[nodiscard]] bool MakeOwnFolder(const std::string& path);
/// Makes all levels that are missing. True if the folder is there afterwards.
bool MakeFolders(const std::string& path);

/// Puts a file in the place of another, which may be there. False if it stayed where it was.
[[nodiscard]] bool MoveOver(const std::string& from, const std::string& to);
/// Has two folders change places in one step. False, with the system's reason, where that can't be done: some systems
/// know no such thing.
[[nodiscard]] bool ExchangeFolders(const std::string& one, const std::string& other);
/// Gives a file, or a link, a second name on the same volume, which must be free. False, with the system's reason, if
/// it has none: some file systems know no such thing.
[[nodiscard]] bool LinkFile(const std::string& from, const std::string& to);
/// True if no file or link is there afterwards; else the system's reason is left behind.
bool RemoveFile(const std::string& path);
/// Removes an empty folder. True if none is there afterwards; else the system's reason is left behind.
bool RemoveFolder(const std::string& path);

/// The names of all that lies in a folder, in no order; nothing, with the system's reason, if it can't be read.
[[nodiscard]] std::optional<std::vector<std::string>> NamesIn(const std::string& folder);

/// Whether the system opens a path of this length.
[[nodiscard]] bool IsOpenablePath(const std::string& path);

/// Whether it leads to the same place wherever the program is started.
[[nodiscard]] bool IsAbsolutePath(std::string_view path);
/// Empty if it is relative to a folder that isn't there any more.
[[nodiscard]] std::string AbsolutePath(const std::string& path);
/// The folder that a file lies in, as an absolute path.
[[nodiscard]] std::string FolderOf(const std::string& path);
/// What stands behind the last separator.
[[nodiscard]] std::string FileNameOf(const std::string& path);

/// As people of this system read a path: with its own separators.
[[nodiscard]] std::string NativePath(std::string path);

}  // namespace tradebill
