// The folder that an anonymised copy is written to: all of it, or nothing.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tradebill {

class CAnonymisedFolder {
public:
    /// `out` is where `root` is copied to. Throws CUsageError if it is there and isn't an empty folder, if it lies in
    /// `root`, or if it can't be made in one step.
    CAnonymisedFolder(const std::string& out, const std::string& root);
    /// Takes back all that was written, unless it was kept.
    ~CAnonymisedFolder();
    CAnonymisedFolder(const CAnonymisedFolder&) = delete;
    CAnonymisedFolder& operator=(const CAnonymisedFolder&) = delete;

    /// Writes a file below the folder, and makes the folders that it needs. Throws std::runtime_error, in words for
    /// the user, if it can't.
    void Write(const std::string& name, std::string_view bytes);

    /// What was written stays.
    void Keep() { isKept_ = true; }

    [[nodiscard]] const std::string& Path() const { return out_; }

private:
    void Make(const std::string& folder);

    std::string out_;
    std::vector<std::string> folders_;  ///< that were made, the outermost first
    std::vector<std::string> files_;
    bool isKept_ = false;
};

}  // namespace tradebill
