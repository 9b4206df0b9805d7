#include "cli/output_file.h"

#include <filesystem>
#include <fstream>

#include "cli/usage_error.h"

namespace tradebill {

void CheckOutputFile(const char* option, const std::optional<std::string>& path) {
    if (!path) return;
    std::error_code error;
    const auto folder = std::filesystem::absolute(*path, error).parent_path();
    if (path->empty() || std::filesystem::is_directory(*path, error) || !std::filesystem::is_directory(folder, error)) {
        throw CUsageError(std::string(option) + ": expected a file in a folder that is there, found \"" + *path + "\"");
    }
}

bool SaveWhole(const std::string& path, const std::function<void(std::ostream&)>& write) {
    const std::string unfinished = path + ".part";
    std::error_code error;
    {
        std::ofstream out(unfinished, std::ios::binary);
        write(out);
        out.close();
        if (!out) {
            std::filesystem::remove(unfinished, error);
            return false;
        }
    }
    std::filesystem::rename(unfinished, path, error);
    return !error;
}

}  // namespace tradebill
