#include "cli/anonymised_settings.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "anonymise/day_shift.h"
#include "base/ini_file.h"
#include "base/text.h"
#include "cli/anonymise_command.h"
#include "cli/anonymised_folder.h"
#include "driver/request_names.h"
#include "platform/file.h"
#include "platform/paths.h"
#include "report/account_key.h"
#include "requests/carried_templates.h"
#include "requests/input_file.h"
#include "requests/input_ini.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

constexpr std::string_view kChangeDay = "BILLFORMAT_NEWDATE";

/// `bytes` without the lines that are comments: they may say anything.
std::string WithoutComments(std::string_view bytes) {
    std::string kept;
    while (!bytes.empty()) {
        const std::string_view rest = bytes;
        const std::string_view line = TakeLine(bytes);
        if (!Trim(line).starts_with(';')) kept += rest.substr(0, rest.size() - bytes.size());
    }
    return kept;
}

/// A template tells the day from which on its second half holds.
std::string WithChangeDay(std::string bytes, int weeks) {
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t end = bytes.find('\n', at);
        const std::string_view line = std::string_view(bytes).substr(at, end == std::string::npos ? end : end - at);
        const std::size_t equals = line.find('=');
        if (equals != std::string_view::npos && EqualsIgnoringCase(Trim(line.substr(0, equals)), kChangeDay)) {
            const std::string_view value = Trim(line.substr(equals + 1));
            const auto place = static_cast<std::size_t>(value.data() - bytes.data());
            if (const auto day = ShiftedDay(value, weeks)) bytes.replace(place, value.size(), *day);
        }
        if (end == std::string::npos) break;
        at = end + 1;
    }
    return bytes;
}

void AddIfThere(const std::string& root, const std::string& name, SideFiles& files) {
    const std::string path = root + "/" + name;
    CFileBuffer buffer;
    const FileContent content = ReadWholeFile(path, buffer);
    if (content.state == FileState::Unreadable) throw CUnreadableInput(path, content.reason);
    if (content.state == FileState::Read) files.push_back({name, WithoutComments(content.bytes)});
}

}  // namespace

std::string CopySettings::TemplatePath(const std::optional<std::string>& name) const {
    return !name || name->empty() ? std::string() : root + "/BillTemplate/" + *name + ".ini";
}

std::string RequestFile::ValueOf(const char* key) const {
    const CIniFile::Entry* const entry = FindEntry(RequiredSection(ini, "REQUEST"), key);
    return entry != nullptr ? entry->value : std::string();
}

RequestFile ReadRequestFile(const std::string& path) {
    RequestFile file{LoadInputIni(path)};
    static_cast<void>(RequiredSection(file.ini, "REQUEST"));
    return file;
}

std::string ChangedRequest(const RequestFile& file, const AccountKey& account, int shiftWeeks) {
    std::string text = "[REQUEST]\n";
    for (const CIniFile::Entry& entry : RequiredSection(file.ini, "REQUEST").entries) {
        std::string value = entry.value;
        if (EqualsIgnoringCase(entry.key, "user")) value = account.user;
        if (EqualsIgnoringCase(entry.key, "account")) value = account.account;
        const bool isDay = EqualsIgnoringCase(entry.key, "from") || EqualsIgnoringCase(entry.key, "to");
        if (isDay) value = ShiftedDate(value, shiftWeeks);
        text.append(entry.key).append("=").append(value).append("\n");
    }
    return text;
}

SideFiles ReadSideFiles(const AnonymiseCommand& command, const CopySettings& settings) {
    SideFiles files;
    AddIfThere(settings.root, "sys/chain.ini", files);
    AddIfThere(settings.root, "sys/wpchain.ini", files);
    const std::string name = command.templateName.value_or("");
    const std::string_view why = WhyNoName(Utf8Path(name));
    if (!why.empty()) {
        throw CUsageError("--template: expected a name, found \"" + name + "\", which " + std::string(why));
    }
    if (!name.empty()) {
        const std::string bytes = WithoutComments(InputFileText(settings.TemplatePath(name), "a template file"));
        files.push_back({"BillTemplate/" + name + ".ini", WithChangeDay(bytes, settings.anonymise.shiftWeeks)});
    }
    if (name.empty()) {  // that of a root wins over the program's own
        for (const CarriedTemplate& carried : CarriedTemplates())
            AddIfThere(settings.root, "BillTemplate/" + std::string(carried.name) + ".ini", files);
    }
    if (command.unitFile)
        files.push_back({"units.ini", WithoutComments(InputFileText(*command.unitFile, "a file of units"))});
    if (command.productFile)
        files.push_back({"products.ini", WithoutComments(InputFileText(*command.productFile, "a file of products"))});
    return files;
}

void WriteSideFiles(const SideFiles& files, CAnonymisedFolder& folder) {
    for (const SideFile& file : files) folder.Write(file.name, file.bytes);
}

}  // namespace tradebill
