#include "platform/file.h"

#include <algorithm>

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

}  // namespace tradebill
