#include "driver/request_names.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "base/control_character.h"
#include "base/ini_file.h"
#include "base/text.h"
#include "base/utf8.h"
#include "driver/report_request.h"
#include "platform/paths.h"
#include "platform/text_encoding.h"

namespace tradebill {
namespace {

constexpr std::string_view kDotsAndBlanks = ". ";

// Windows finds a device under these names in every folder, whatever extension follows. The last digits of the numbered
// ones may be raised: ¹, ² and ³.
constexpr std::string_view kDevices[] = {"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$", "CLOCK$"};
constexpr std::string_view kNumberedDevices[] = {"COM", "LPT"};
constexpr std::string_view kDeviceNumbers[] = {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "¹", "²", "³"};

/// `name` as characters of Unicode, whatever its bytes: the lead bytes of GBK keep their second bytes to themselves.
std::string InUtf8(std::string_view name) {
    return IsUtf8(name) ? std::string(name) : GbkToUtf8(name);
}

bool IsDevice(std::string_view name) {
    std::string_view stem = name.substr(0, name.find('.'));
    stem = stem.substr(0, stem.find_last_not_of(' ') + 1);
    const auto isStem = [stem](std::string_view device) { return EqualsIgnoringCase(stem, device); };
    if (std::ranges::any_of(kDevices, isStem)) return true;
    return std::ranges::any_of(kNumberedDevices, [&](std::string_view device) {
        return EqualsIgnoringCase(stem.substr(0, device.size()), device) &&
               std::ranges::find(kDeviceNumbers, stem.substr(std::min(stem.size(), device.size()))) !=
                   std::end(kDeviceNumbers);
    });
}

/// REQUIRES: `utf8` is UTF-8.
bool HoldsControl(std::string_view utf8) {
    while (!utf8.empty()) {
        const Utf8Character character = FirstUtf8Character(utf8);
        if (IsControl(*character.point)) return true;
        utf8.remove_prefix(character.size);
    }
    return false;
}

struct NamedField {
    std::string_view field;
    std::string_view name;
};

}  // namespace

std::string_view WhyNoName(std::string_view name) {
    if (name.empty()) return {};
    const std::string utf8 = InUtf8(name);
    if (HoldsControl(utf8)) return "holds a control character";
    if (utf8.find_first_of("/\\") != std::string::npos) return "holds a path separator";
    if (Contains(utf8, ":")) return "holds a colon, as a drive does";
    if (utf8.find_first_not_of(kDotsAndBlanks) == std::string::npos) return "leads to another folder";
    if (IsDevice(utf8)) return "is a device of Windows";
    return {};
}

std::string WhyNamesFail(const GenerateBillRequest& request) {
    for (const NamedField& row :
         {NamedField{"UserFolder", FieldText(request.UserFolder)}, NamedField{"Account", FieldText(request.Account)},
          NamedField{"TemplateName", FieldText(request.TemplateName)}}) {
        const std::string_view why = WhyNoName(Utf8Path(std::string(row.name)));
        if (!why.empty()) return std::string(row.field).append(" ").append(why).append(": nothing is read or written");
    }
    return {};
}

}  // namespace tradebill
