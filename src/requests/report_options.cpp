#include "requests/report_options.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/day.h"
#include "base/ini_file.h"
#include "base/number.h"
#include "base/text.h"
#include "driver/bill_folders.h"
#include "driver/present_day.h"
#include "driver/request_names.h"
#include "export/run_json.h"
#include "platform/file.h"
#include "platform/paths.h"
#include "platform/root_folder.h"
#include "report/report.h"
#include "report/request_copy.h"
#include "requests/carried_templates.h"
#include "requests/day_option.h"
#include "requests/format_choice.h"
#include "requests/input_file.h"
#include "requests/input_ini.h"
#include "requests/live_figures.h"
#include "requests/product_tables.h"
#include "requests/report_settings.h"
#include "requests/setting_called.h"
#include "requests/statement_size.h"
#include "requests/untold_options.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

constexpr const char* kNoUnits = "none";
constexpr const char* kToday = "today";
constexpr std::int32_t kMostDpi = 1200;

/// Fills what `options` leaves open from its request file, if it names one.
void UseRequestFile(ReportOptions& options, std::vector<InputRead>& inputs) {
    if (!options.requestFile) return;
    const InputIni ini = LoadInputIniOrStream(*options.requestFile);
    inputs.push_back({"request", ini.digest});
    for (const CIniFile::Entry& entry : RequiredSection(ini, "REQUEST").entries) {
        const ReportSetting& setting =
            SettingCalled(ini, entry, [](const ReportSetting& one) { return one.isOfRequest; });
        auto& value = options.*setting.value;
        if (!value && !entry.value.empty()) value = entry.value;
    }
}

/// A user belongs to a root: that of the configuration isn't looked for below another one.
void UseConfiguration(ReportOptions& options) {
    if (options.configured == nullptr) return;
    const ReportOptions& configured = *options.configured;
    const bool isOtherRoot = options.root.has_value();
    for (const ReportSetting& setting : kReportSettings) {
        auto& value = options.*setting.value;
        if (value || (isOtherRoot && setting.value == &ReportOptions::user)) continue;
        value = configured.*setting.value;
    }
}

/// With what files say of that which `options` leaves open.
ReportOptions WithFiles(ReportOptions options, std::vector<InputRead>& inputs) {
    UseRequestFile(options, inputs);
    UseConfiguration(options);
    return options;
}

std::string Required(const std::optional<std::string>& setting, const char* option, const char* meaning) {
    if (!setting || setting->empty()) throw CUsageError(std::string(option) + " is missing: expected " + meaning);
    return *setting;
}

std::int32_t NumberOf(const std::string& text, const char* option, std::int32_t least, std::int32_t most) {
    const auto number = WholeNumber(text);
    if (!number || *number < least || *number > most) {
        throw CUsageError(std::string(option) + ": expected a whole number from " + std::to_string(least) + " to " +
                          std::to_string(most) + ", found \"" + text + "\"");
    }
    return *number;
}

template <std::size_t N>
void SetText(char (&field)[N], const std::string& text, const char* option) {
    if (text.size() >= N) {
        throw CUsageError(std::string(option) + ": expected at most " + std::to_string(N - 1) + " bytes, found " +
                          std::to_string(text.size()));
    }
    CopyField(field, text);
}

/// A text that becomes part of a path.
template <std::size_t N>
void SetName(char (&field)[N], const std::string& text, const char* option) {
    const std::string_view why = WhyNoName(Utf8Path(text));
    if (!why.empty()) {
        throw CUsageError(std::string(option) + ": expected a name, found \"" + text + "\", which " + std::string(why));
    }
    SetText(field, text, option);
}

bool OffsetsMargins(const ReportOptions& options) {
    return NumberOf(options.marginOffset.value_or("0"), "margin_offset", 0, 1) == 1;
}

CalendarDay DayOf(const std::string& text, const char* option) {
    const auto day = WrittenDay(text);
    if (day) return *day;
    throw CUsageError(std::string(option) + ": expected a date from 1970 to 3000 such as 2024-01-31, found \"" + text +
                      "\"");
}

PresentDay PresentDayOf(const ReportOptions& options) {
    PresentDay present{.mayBeFinished = true, .hasLiveFigures = options.liveFile.has_value()};
    if (options.today) present.day = DayOf(*options.today, "--today");
    return present;
}

std::string DayTextOf(const std::string& given, const PresentDay& present) {
    return given == kToday ? DashedDayText(present.day) : DashedText(given);
}

/// REQUIRES: both days are there.
void SetDates(const ReportOptions& options, PreparedRequest& prepared) {
    const std::string from = DayTextOf(*options.from, prepared.present);
    const std::string to = DayTextOf(*options.to, prepared.present);
    SetText(prepared.request.StartDate, from, "--from");
    SetText(prepared.request.EndDate, to, "--to");
    const CalendarDay last = DayOf(to, "--to");
    if (DayOf(from, "--from") > last) {
        throw CUsageError("--from: expected a day that isn't behind --to, \"" + to + "\", found \"" + from + "\"");
    }
    if (options.liveFile && last != prepared.present.day) {
        prepared.warnings.push_back("--live isn't used: the report ends on " + DashedDayText(last) + ", not today");
    }
}

/// Gives the request what is told of the account.
void SetAccount(const ReportOptions& options, GenerateBillRequest& request) {
    const auto set = [](auto& field, const std::optional<std::string>& name, const char* option) {
        if (!name) return;
        if (name->empty()) throw CUsageError(std::string(option) + ": expected a name, found \"\"");
        SetName(field, *name, option);
    };
    set(request.UserFolder, options.user, "--user");
    set(request.Account, options.account, "--account");
}

void CheckRoot(const std::string& root) {
    if (!IsFolder(root)) throw CUsageError("--root: expected a folder, found none at \"" + root + "\"");
}

/// The user folder must be there, and no path may be longer than the module reads.
void CheckFolders(const std::string& root, const GenerateBillRequest& request) {
    const std::string user = root + "/Users/" + request.UserFolder;
    if (!IsFolder(user)) {
        throw CUsageError("--user: expected the folder \"" + user + "\"");
    }
    const std::string longest = user + "/Data/Bill/DWP" + request.Account + ".20000101o.txt";
    if (std::max(longest.size(), (user + "/Data/Bill/Image/TradeBill.html").size()) > kLongestPath) {
        throw CUsageError("--root: expected paths of at most " + std::to_string(kLongestPath) +
                          " bytes, but the statements' are longer");
    }
}

void SetUnits(const ReportOptions& options, PreparedRequest& prepared) {
    CProductTables& products = *prepared.products;
    if (options.unitFile == kNoUnits) {
        products.WaiveUnits();
    } else if (options.unitFile) {
        prepared.inputs.push_back({"units", products.LoadUnits(*options.unitFile)});
    } else if (prepared.request.StatementKind != kForeignKind) {
        prepared.inputs.push_back({"carriedUnits", products.LoadCarriedUnits()});
    }
}

/// The files that say more than the request can.
void LoadTables(const ReportOptions& options, PreparedRequest& prepared) {
    SetUnits(options, prepared);
    if (options.productFile) {
        prepared.inputs.push_back({"products", prepared.products->LoadProducts(*options.productFile)});
    }
    if (options.liveFile) prepared.inputs.push_back({"live", UseLiveFile(*options.liveFile, prepared.request)});
}

/// The format that the request's template names for itself.
std::optional<std::int32_t> FormatByTemplate(const PreparedRequest& prepared) {
    if (prepared.request.TemplateName[0] == '\0') return std::nullopt;
    CReport report;
    report.RootFolder = prepared.rootFolder;
    report.Request = CopyRequest(prepared.request);
    return FormatOfTemplate(TemplatePath(report), prepared.carriedTemplate);
}

/// Returns whether the format is left to the marks in a statement. Foreign statements have one layout and need none.
bool SetFormat(const ReportOptions& options, PreparedRequest& prepared) {
    GenerateBillRequest& request = prepared.request;
    const bool isForeign = request.StatementKind == kForeignKind;
    const bool isTold = options.format && options.format != kAutoFormat;
    if (isTold) {
        request.StatementFormat = FormatNumber(*options.format, request.TemplateName[0] != '\0');
        return false;
    }
    const auto byTemplate = isForeign ? std::nullopt : FormatByTemplate(prepared);
    if (byTemplate) request.StatementFormat = *byTemplate;
    return !isForeign && !byTemplate;
}

/// What options say of a request by themselves, whichever account it is of.
void SetSettings(const ReportOptions& options, PreparedRequest& prepared) {
    GenerateBillRequest& request = prepared.request;
    SetName(request.TemplateName, options.templateName.value_or(""), "--template");
    request.StatementKind = KindNumber(options.kind);
    if (request.StatementKind != kForeignKind) prepared.carriedTemplate = CarriedTemplateText(request.TemplateName);
    request.Dpi = NumberOf(options.dpi.value_or("0"), "--dpi", 0, kMostDpi);
    request.MarginOffsetFlag = OffsetsMargins(options) ? 1 : 0;
    prepared.statementLimit = StatementLimitOf(options.maxStatement);
}

/// Foreign statements are read by their one layout.
void WarnOfUnusedTemplate(PreparedRequest& prepared) {
    const GenerateBillRequest& request = prepared.request;
    if (request.StatementKind != kForeignKind || request.TemplateName[0] == '\0') return;
    prepared.warnings.emplace_back("--template isn't used: foreign statements are read without one");
}

void SetFormatByMarks(PreparedRequest& prepared) {
    const PickedFormat picked =
        PickFormat(prepared.request, prepared.rootFolder, prepared.statementLimit, prepared.present);
    prepared.request.StatementFormat = picked.format;
    if (!picked.templateName.empty()) {
        SetName(prepared.request.TemplateName, picked.templateName, "--template");
        prepared.carriedTemplate = CarriedTemplateText(picked.templateName);
    }
    prepared.notes.push_back("reading format " + std::to_string(picked.format) + " (" + picked.layout + "), by " +
                             (picked.templateName.empty() ? "the marks in " : "what it reads of ") + picked.file);
}

}  // namespace

SettledOptions Settle(const ReportOptions& given) {
    SettledOptions settled;
    settled.options = WithFiles(given, settled.inputs);
    CheckRoot(Required(settled.options.root, "--root", "the folder that holds Users, sys and BillTemplate"));
    settled.present = PresentDayOf(settled.options);
    const auto dayOf = [&](const std::optional<std::string>& text, const char* option) {
        return text ? std::optional(DayOf(DayTextOf(*text, settled.present), option)) : std::nullopt;
    };
    settled.from = dayOf(settled.options.from, "--from");
    settled.to = dayOf(settled.options.to, "--to");
    return settled;
}

PreparedRequest PrepareRequest(const ReportOptions& given) {
    PreparedRequest prepared;
    SettledOptions settled = Settle(given);
    ReportOptions& options = settled.options;
    prepared.inputs = std::move(settled.inputs);
    prepared.present = settled.present;
    GenerateBillRequest& request = prepared.request;
    const std::string root = *options.root;
    prepared.rootFolder = RootFolderAt(root);
    SetAccount(options, request);
    FindUntold(options, prepared.present);
    SetAccount(options, request);
    SetSettings(options, prepared);
    WarnOfUnusedTemplate(prepared);
    const bool byMarks = SetFormat(options, prepared);
    SetDates(options, prepared);
    CheckFolders(root, request);
    LoadTables(options, prepared);
    if (byMarks) SetFormatByMarks(prepared);
    return prepared;
}

void CheckSharedOptions(const ReportOptions& given, OwnOptions own) {
    PreparedRequest probe;
    ReportOptions options = WithFiles(given, probe.inputs);
    probe.present = PresentDayOf(options);
    SetSettings(options, probe);
    if (options.format && *options.format != kAutoFormat) {
        const bool mayHaveTemplate = own == OwnOptions::Some || probe.request.TemplateName[0] != '\0';
        static_cast<void>(FormatNumber(*options.format, mayHaveTemplate));
    }
    for (const auto& [day, option] : {std::pair(options.from, "--from"), std::pair(options.to, "--to")}) {
        if (day) static_cast<void>(DayOf(DayTextOf(*day, probe.present), option));
    }
    LoadTables(options, probe);
    if (!options.root || own == OwnOptions::Some) return;
    CheckRoot(*options.root);
    probe.rootFolder = RootFolderAt(*options.root);
    RequireTemplate(probe);
}

void RequireTemplate(const PreparedRequest& prepared) {
    if (prepared.request.StatementKind == kForeignKind || prepared.request.TemplateName[0] == '\0') return;
    CReport report;
    report.RootFolder = prepared.rootFolder;
    report.Request = CopyRequest(prepared.request);
    const std::string path = TemplatePath(report);
    CFileBuffer buffer;
    const FileContent content = ReadWholeFile(path, buffer);
    if (content.state == FileState::Read) return;
    if (content.state == FileState::Missing && !prepared.carriedTemplate.empty()) return;
    if (content.state == FileState::Unreadable) throw CUnreadableInput(path, content.reason);
    throw CUsageError("--template: expected the file \"" + path + "\"");
}

}  // namespace tradebill
