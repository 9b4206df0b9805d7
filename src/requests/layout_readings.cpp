#include "requests/layout_readings.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/report_error.h"
#include "base/text.h"
#include "driver/bill_folders.h"
#include "driver/report_request.h"
#include "driver/request_names.h"
#include "platform/paths.h"
#include "readers/layout_marks.h"
#include "readers/layout_table.h"
#include "readers/statement_loader.h"
#include "report/report.h"
#include "report/request_copy.h"
#include "requests/carried_templates.h"
#include "requests/input_file.h"
#include "requests/scan_report.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

/// The layout at hand may be another one of the same format than `tried`.
std::string NameOf(const CScanReport& seen, const Layout& tried) {
    for (const Layout& layout : Layouts()) {
        if (layout.isForeign == tried.isForeign && layout.format == tried.format && seen.IsReadAs(layout.name)) {
            return std::string(layout.name);
        }
    }
    return std::string(tried.name);
}

/// Counts what the last reader saw.
void Count(const CScanReport& seen, LayoutReading& reading) {
    reading.sections = seen.FoundSections();
    reading.hasMoney = seen.MoneyRecords() > 0;
    reading.isDeclined = !seen.IsReadByTemplate();
    if (seen.Passes().empty()) return;
    for (const SectionReport& section : seen.Passes().back().sections) {
        reading.rows += section.rowsRead;
        reading.records += section.records;
    }
}

/// Reads `text` into `report`, as its request says. Throws CUnreadableInput for a template that can't be read: `text`
/// would be read as another one without it.
void ReadInto(CReport& report, CScanReport& seen, std::string_view text, const std::string& day,
              LayoutReading& reading) {
    CStatementLoader loader(report);
    try {
        loader.Read(day, text, &seen);
    } catch (const CReportError&) {
        reading.isStopped = true;
    }
    if (loader.TemplateProblem())
        throw CUnreadableInput(loader.TemplateProblem()->path, loader.TemplateProblem()->reason);
    seen.Finish();
    Count(seen, reading);
}

}  // namespace

std::vector<std::string> OwnTemplates(const std::string& rootFolder) {
    constexpr std::string_view kEnding = ".ini";
    std::vector<std::string> templates;
    if (rootFolder.empty()) return templates;
    auto files = NamesIn(rootFolder + "/BillTemplate");  // a folder that isn't there has none
    if (!files) return templates;
    for (std::string& file : *files) {
        if (!file.ends_with(kEnding)) continue;
        file.erase(file.size() - kEnding.size());
        const bool isName = !file.empty() && file.size() < sizeof GenerateBillRequest::TemplateName &&
                            WhyNoName(Utf8Path(file)).empty();
        if (isName && std::ranges::find(CarriedTemplates(), file, &CarriedTemplate::name) == CarriedTemplates().end()) {
            templates.push_back(std::move(file));
        }
    }
    std::ranges::sort(templates);
    return templates;
}

LayoutReading ReadByLayout(const Layout& layout, std::string_view text, const std::string& day) {
    CReport report;
    report.Request = ClearedRequest();
    report.Request.StatementFormat = layout.format;
    report.Request.StatementKind = layout.isForeign ? kForeignKind : 1;
    CScanReport seen(text);
    LayoutReading reading{.name = {}, .format = layout.format, .isForeign = layout.isForeign};
    ReadInto(report, seen, text, day, reading);
    reading.name = NameOf(seen, layout);
    reading.hasMarks = BearsMarksOf(text, layout.format, layout.isForeign);
    return reading;
}

LayoutReading ReadByCarried(const CarriedTemplate& carried, const std::string& rootFolder, std::string_view text,
                            const std::string& day) {
    CReport report;
    report.Request = ClearedRequest();
    report.RootFolder = rootFolder;
    CopyField(report.Request.TemplateName, carried.name);
    report.TemplatePath = rootFolder.empty() ? std::string() : TemplatePath(report);
    report.CarriedTemplate = carried.text;
    const auto format = FormatOfTemplate(report.TemplatePath, carried.text);
    report.Request.StatementFormat = format.value_or(0);
    CScanReport seen(text);
    LayoutReading reading{.name = "template " + std::string(carried.name),
                          .templateName = std::string(carried.name),
                          .format = report.Request.StatementFormat,
                          .namesFormat = format.has_value()};
    ReadInto(report, seen, text, day, reading);
    return reading;
}

std::optional<LayoutReading> ReadByFittingTemplate(const std::string& rootFolder, std::string_view text,
                                                   const std::string& day) {
    const auto isReadBy = [&](const Layout* layout) { return ReadByLayout(*layout, text, day).sections > 0; };
    if (std::ranges::any_of(LikelyLayouts(text), isReadBy)) return std::nullopt;
    for (const CarriedTemplate& carried : CarriedTemplates()) {
        LayoutReading reading = ReadByCarried(carried, rootFolder, text, day);
        if (reading.IsReport()) return reading;
    }
    std::optional<LayoutReading> fitting;
    for (const std::string& name : OwnTemplates(rootFolder)) {
        LayoutReading reading = ReadByCarried({.name = name, .text = {}}, rootFolder, text, day);
        if (!reading.IsReport()) continue;
        if (fitting) {
            throw CUsageError("--format auto: the templates " + fitting->templateName + " and " + name +
                              " both read it: expected --template with one of them");
        }
        fitting = std::move(reading);
    }
    if (fitting && !fitting->namesFormat) {
        throw CUsageError(
            "--format auto: the template " + fitting->templateName +
            " reads it and doesn't name its format: expected FORMAT in its first section, or --template " +
            fitting->templateName + " and --format with a number");
    }
    return fitting;
}

std::vector<LayoutReading> ReadByEachLayout(std::string_view text, const std::string& day) {
    std::vector<LayoutReading> readings;
    std::set<std::pair<bool, std::int32_t>> tried;
    for (const Layout& layout : Layouts()) {
        if (tried.emplace(layout.isForeign, layout.isForeign ? 0 : layout.format).second) {
            readings.push_back(ReadByLayout(layout, text, day));
        }
    }
    for (const CarriedTemplate& carried : CarriedTemplates()) {
        LayoutReading reading = ReadByCarried(carried, {}, text, day);
        if (reading.isDeclined) {
            reading = {.name = reading.name, .templateName = reading.templateName, .format = reading.format};
        }
        readings.push_back(std::move(reading));
    }
    return readings;
}

}  // namespace tradebill
