#include "requests/input_ini.h"

#include <string>
#include <string_view>

#include "base/ini_file.h"
#include "export/file_digest.h"
#include "platform/text_encoding.h"
#include "requests/input_file.h"
#include "requests/standard_input.h"
#include "requests/usage_error.h"

namespace tradebill {

namespace {

/// As it is, if every line can be understood.
InputIni Checked(InputIni ini) {
    if (!ini.file.Problems().empty()) {
        const CIniFile::Problem& problem = ini.file.Problems().front();
        throw CUsageError(ini.Place(problem.line) + ": expected [section], key=value or ; comment, found \"" +
                          problem.text.substr(0, 60) + "\"");
    }
    return ini;
}

InputIni Parsed(const std::string& name, const std::string& text) {
    return Checked({.path = name, .file = CIniFile::Parse(text), .digest = DigestOfBytes(name, text)});
}

}  // namespace

InputIni LoadInputIni(const std::string& path) {
    return Parsed(path, InputFileText(path, "an INI file"));
}

InputIni LoadInputIniOrStream(const std::string& path) {
    if (path != kStandardStream) return LoadInputIni(path);
    return Parsed(kStandardInputName, StandardInputText());
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
