#include "requests/carried_templates.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/ini_file.h"
#include "platform/file.h"
#include "readers/template_keys.h"
#include "requests/input_file.h"

namespace tradebill {

std::string_view CarriedTemplateText(std::string_view name) {
    const auto templates = CarriedTemplates();
    const auto found = std::ranges::find(templates, name, &CarriedTemplate::name);
    return found == templates.end() ? std::string_view() : found->text;
}

std::optional<std::int32_t> FormatOfTemplate(const std::string& path, std::string_view carried) {
    IniFileContent content = path.empty() ? IniFileContent() : LoadIniFile(path);
    if (content.state == FileState::Unreadable) throw CUnreadableInput(path, content.reason);
    if (content.state == FileState::Missing) content.file = CIniFile::Parse(carried);
    const std::int32_t format = content.file.Integer(kTemplateCommonSection, kTemplateFormat, -1);
    return format < 0 ? std::nullopt : std::optional(format);
}

}  // namespace tradebill
