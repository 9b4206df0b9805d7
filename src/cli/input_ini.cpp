#include "cli/input_ini.h"

#include <string>
#include <string_view>
#include <utility>

#include "cli/usage_error.h"
#include "platform/file.h"
#include "platform/text_encoding.h"

namespace tradebill {

InputIni LoadInputIni(const std::string& path) {
    auto file = LoadIniFile(path);
    if (!file) throw CUsageError("can't read " + path + ": expected an INI file");
    InputIni ini{path, std::move(*file)};
    if (!ini.file.Problems().empty()) {
        const CIniFile::Problem& problem = ini.file.Problems().front();
        throw CUsageError(ini.Place(problem.line) + ": expected [section], key=value or ; comment, found \"" +
                          problem.text.substr(0, 60) + "\"");
    }
    return ini;
}

const CIniFile::Section& RequiredSection(const InputIni& ini, std::string_view name) {
    const CIniFile::Section* const section = ini.file.FindSection(name);
    if (section == nullptr) throw CUsageError(ini.path + ": expected a section [" + std::string(name) + "]");
    return *section;
}

std::string GbkTextOf(const InputIni& ini, const CIniFile::Entry& entry, std::string_view text) {
    const auto gbk = Utf8ToGbk(text);
    if (!gbk) throw CUsageError(ini.Place(entry.line) + ": expected UTF-8 text of characters that GBK has");
    return *gbk;
}

}  // namespace tradebill
