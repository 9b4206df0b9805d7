// Settings by the names that files have for them.
#pragma once

#include <functional>

#include "base/ini_file.h"
#include "requests/input_ini.h"
#include "requests/report_settings.h"

namespace tradebill {

/// The setting that `entry` names, of those that such a file may say. Throws CUsageError, with the entry's line and all
/// names, if there is none.
[[nodiscard]] const ReportSetting& SettingCalled(const InputIni& ini, const CIniFile::Entry& entry,
                                                 const std::function<bool(const ReportSetting&)>& maySay);

}  // namespace tradebill
