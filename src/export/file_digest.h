// What tells one version of a file from another.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tradebill {

struct FileDigest {
    std::string file;        ///< name without its folder, UTF-8
    std::uint64_t size = 0;  ///< bytes
    std::string sha256;      ///< hexadecimal
};

/// That of `bytes`, which are all of the file `path`.
[[nodiscard]] FileDigest DigestOfBytes(const std::string& path, std::string_view bytes);

/// That of the file at `path`, as it is now. Nothing if it can't be read to its end, with the system's reason
/// (system_error.h).
[[nodiscard]] std::optional<FileDigest> DigestOfFile(const std::string& path);

}  // namespace tradebill
