#include "requests/configuration.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "base/ini_file.h"
#include "platform/file.h"
#include "platform/paths.h"
#include "platform/settings_folder.h"
#include "requests/input_ini.h"
#include "requests/report_options.h"
#include "requests/report_settings.h"
#include "requests/setting_called.h"

namespace tradebill {
namespace {

constexpr std::string_view kSection = "OPTIONS";
constexpr std::string_view kNone = "none";
constexpr std::string_view kHome = "~/";

/// `written`, UTF-8, in the file at `file`.
std::string PathIn(const std::string& file, const std::string& written) {
    if (written.empty()) return {};
    const std::string path = PathOfUtf8(written);
    if (written.starts_with(kHome)) {
        const auto home = HomeFolder();
        return home ? *home + "/" + path.substr(kHome.size()) : path;
    }
    return IsAbsolutePath(path) ? path : FolderOf(file) + "/" + path;
}

std::string ValueOf(const ReportSetting& setting, const InputIni& ini, const CIniFile::Entry& entry) {
    const bool isWord = setting.configured == Configured::AsPathOrNone && entry.value == kNone;
    return setting.configured == Configured::AsText || isWord ? PathOfUtf8(entry.value) : PathIn(ini.path, entry.value);
}

bool IsThere(const std::string& path) {
    CFileBuffer buffer;
    return !path.empty() && ReadWholeFile(path, buffer).state != FileState::Missing;
}

}  // namespace

std::string UsualConfigurationPath() {
    const auto folder = SettingsFolder();
    return folder ? *folder + "/tradebill/config.ini" : std::string();
}

std::shared_ptr<const ReportOptions> LoadConfiguration(const std::optional<std::string>& given) {
    if (given == kNone) return nullptr;
    const std::string path = given ? *given : UsualConfigurationPath();
    if (!given && !IsThere(path)) return nullptr;
    const InputIni ini = LoadInputIni(path);
    auto options = std::make_shared<ReportOptions>();
    for (const CIniFile::Entry& entry : RequiredSection(ini, kSection).entries) {
        const ReportSetting& setting =
            SettingCalled(ini, entry, [](const ReportSetting& one) { return one.configured != Configured::Never; });
        auto& value = (*options).*setting.value;
        if (!value && !entry.value.empty()) value = ValueOf(setting, ini, entry);
    }
    return options;
}

}  // namespace tradebill
