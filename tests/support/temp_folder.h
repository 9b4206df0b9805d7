// A folder of a test's own, gone at its end.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "support/work_folder.h"

namespace tradebill {

/// What a file may be called that isn't just letters.
#if defined(_WIN32)
inline const std::string kOddName =
    "one 1";  // the test's own files and the module's are spelled in two encodings there
#else
inline const std::string kOddName = "图 1";
#endif

class CTempFolder {
public:
    CTempFolder() : folder_(std::filesystem::temp_directory_path(), NextName()) {}

    /// With forward slashes, which every system takes.
    [[nodiscard]] std::string Path(std::string_view name = {}) const {
        return name.empty() ? path_ : path_ + "/" + std::string(name);
    }

    /// Writes a file below the folder, with all folders above it. Returns its path.
    std::string Write(std::string_view name, std::string_view content) const {
        const std::string file = Path(name);
        std::filesystem::create_directories(std::filesystem::path(file).parent_path());
        std::ofstream(file, std::ios::binary) << content;
        return file;
    }

private:
    static std::string NextName() {
        static int counter = 0;
        return "tradebill-test-" + std::to_string(++counter);
    }

    CWorkFolder folder_;
    std::string path_ = folder_.Path().generic_string();
};

/// All bytes of a file; empty if it isn't there.
inline std::string ReadFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace tradebill
