#include "cli/output_file.h"

#include <fstream>
#include <functional>
#include <ios>
#include <optional>
#include <ostream>
#include <string>

#include "cli/usage_error.h"
#include "platform/file.h"
#include "platform/paths.h"

namespace tradebill {

void CheckOutputFile(const char* option, const std::optional<std::string>& path) {
    if (!path) return;
    if (path->empty() || IsFolder(*path) || !IsFolder(FolderOf(*path))) {
        throw CUsageError(std::string(option) + ": expected a file in a folder that is there, found \"" + *path + "\"");
    }
}

bool SaveWhole(const std::string& path, const std::function<void(std::ostream&)>& write) {
    return SaveInOneStep(path, [&write](const std::string& unfinished) {
        std::ofstream out(unfinished, std::ios::binary);
        write(out);
        out.close();
        return !out.fail();
    });
}

}  // namespace tradebill
