// What stands at a path. Paths are spelled as the system's own file functions take them: on Windows in the system's
// code page, with either separator.
#pragma once

#include <cstddef>
#include <string>

namespace tradebill {

/// The longest path, in bytes, that the module reads or writes: longer ones are cut, and then lead elsewhere.
inline constexpr std::size_t kLongestPath = 259;

[[nodiscard]] bool IsFolder(const std::string& path);
[[nodiscard]] bool IsPlainFile(const std::string& path);
/// Whether something stands there that is no plain file. False if that can't be told.
[[nodiscard]] bool IsOtherThanFile(const std::string& path);

/// A path as UTF-8. On Linux paths are bytes, and mostly are UTF-8.
[[nodiscard]] std::string Utf8Path(const std::string& path);

/// Whether both paths lead to one file, however they are spelled. False if either isn't there.
[[nodiscard]] bool IsSameFile(const std::string& one, const std::string& other);

/// Makes the last level of `path`. True if the folder is there afterwards.
bool MakeFolder(const std::string& path);
/// Makes all levels that are missing. True if the folder is there afterwards.
bool MakeFolders(const std::string& path);

/// Puts a file in the place of another, which may be there. False if it stayed where it was.
[[nodiscard]] bool MoveOver(const std::string& from, const std::string& to);
/// Nothing happens if it isn't there.
void RemoveFile(const std::string& path);

[[nodiscard]] std::string AbsolutePath(const std::string& path);
/// The folder that a file lies in, as an absolute path.
[[nodiscard]] std::string FolderOf(const std::string& path);
/// What stands behind the last separator.
[[nodiscard]] std::string FileNameOf(const std::string& path);

/// As people of this system read a path: with its own separators.
[[nodiscard]] std::string NativePath(std::string path);

}  // namespace tradebill
