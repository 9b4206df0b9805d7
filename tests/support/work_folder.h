// A folder that is gone when its owner is, for any program; tests have one that does more in temp_folder.h.
#pragma once

#include <unistd.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

namespace tradebill {

class CWorkFolder {
public:
    /// Makes the folder `name` of this process in `ground`, an empty one.
    CWorkFolder(const std::filesystem::path& ground, std::string_view name)
        : path_(ground / (std::string(name) + "-" + std::to_string(::getpid()))) {
        std::filesystem::remove_all(path_);
        std::filesystem::create_directories(path_);
    }
    ~CWorkFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    CWorkFolder(const CWorkFolder&) = delete;
    CWorkFolder& operator=(const CWorkFolder&) = delete;

    [[nodiscard]] const std::filesystem::path& Path() const { return path_; }

private:
    std::filesystem::path path_;
};

}  // namespace tradebill
