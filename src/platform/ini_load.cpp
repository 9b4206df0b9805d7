#include "platform/ini_load.h"

#include "platform/file.h"

namespace tradebill {

std::optional<CIniFile> LoadIniFile(const std::string& path) {
    const auto content = ReadPlainFile(path);
    return content ? std::optional(CIniFile::Parse(*content)) : std::nullopt;
}

}  // namespace tradebill
