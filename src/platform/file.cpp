#include "platform/file.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <string>

#include "base/ini_file.h"
#include "platform/paths.h"

namespace tradebill {

std::optional<std::string> ReadStatementFile(const std::string& path) {
    const CFile file(path, FileMode::Update);
    if (!file.IsOpen()) return std::nullopt;
    std::optional<std::string> text = file.ReadAll();
    if (text) text->resize(std::min(text->find('\0'), text->size()));
    return text;
}

std::optional<std::string> ReadPlainFile(const std::string& path) {
    if (!IsPlainFile(path)) return std::nullopt;
    const CFile file(path, FileMode::Read);
    return file.IsOpen() ? file.ReadAll() : std::nullopt;
}

std::optional<CIniFile> LoadIniFile(const std::string& path) {
    const auto content = ReadPlainFile(path);
    return content ? std::optional(CIniFile::Parse(*content)) : std::nullopt;
}

bool SaveInOneStep(const std::string& path, const std::function<bool(const std::string& unfinished)>& write) {
    const std::string unfinished = path + ".part";
    try {
        if (write(unfinished) && MoveOver(unfinished, path)) return true;
    } catch (...) {
        RemoveFile(unfinished);
        throw;
    }
    RemoveFile(unfinished);
    return false;
}

}  // namespace tradebill
