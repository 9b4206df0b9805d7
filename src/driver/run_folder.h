// The folder in which a run makes its files, beside the place where they go: nobody looks there, and nobody else writes
// there. A lock in it tells others that its run is alive.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/lock_file.h"

namespace tradebill {

// The files that may lie in it beside the report's pictures.
inline constexpr std::string_view kWorkPage = "page.html";
inline constexpr std::string_view kPageCopy = "copy.html";

class CRunFolder {
public:
    /// Makes a folder of a new name in `place`, and removes the folders that dead runs have left there.
    explicit CRunFolder(const std::string& place);
    /// Removes the folder with what is in it.
    ~CRunFolder();
    CRunFolder(const CRunFolder&) = delete;
    CRunFolder& operator=(const CRunFolder&) = delete;

    [[nodiscard]] bool IsReady() const { return lock_.has_value(); }
    /// Whether there is none since its files would have paths that the system doesn't open.
    [[nodiscard]] bool IsTooDeep() const { return isTooDeep_; }
    /// Why there is none, in the system's words; UTF-8, may be empty.
    [[nodiscard]] const std::string& Reason() const { return reason_; }

    [[nodiscard]] const std::string& Path() const { return path_; }
    [[nodiscard]] std::string PathOf(std::string_view name) const { return path_ + "/" + std::string(name); }

    /// The same as its end, which tells whether the folder is gone; else Reason() has why.
    bool Remove();

private:
    enum class Made { Folder, NameIsTaken, Never };
    Made Make();
    bool RemoveAll() noexcept;

    std::vector<std::string_view> names_;  // of the files that may lie in it
    std::string path_;                     // with memory for the longest of them behind it
    std::optional<CLockFile> lock_;
    std::string reason_;
    bool isTooDeep_ = false;
};

}  // namespace tradebill
