#include "requests/setting_called.h"

#include <functional>
#include <string_view>
#include <vector>

#include "base/ini_file.h"
#include "requests/input_ini.h"
#include "requests/report_settings.h"
#include "requests/usage_error.h"

namespace tradebill {

const ReportSetting& SettingCalled(const InputIni& ini, const CIniFile::Entry& entry,
                                   const std::function<bool(const ReportSetting&)>& maySay) {
    std::vector<std::string_view> keys;
    for (const ReportSetting& setting : kReportSettings) {
        if (!maySay(setting)) continue;
        if (EqualsIgnoringCase(setting.key, entry.key)) return setting;
        keys.push_back(setting.key);
    }
    throw CUsageError(ini.Place(entry.line) + ": expected " + OneOf(keys, [](std::string_view key) { return key; }) +
                      ", found \"" + entry.key + "\"");
}

}  // namespace tradebill
