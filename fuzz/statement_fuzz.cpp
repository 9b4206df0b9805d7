// Any bytes as a statement: the first byte picks the layout, the rest is the text; with a template, its text comes
// first, up to a zero byte. Reading, explaining, statistics and page must come through without a fault.
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "base/ini_file.h"
#include "base/report_error.h"
#include "cli/scan_report.h"
#include "findings/account_findings.h"
#include "findings/statement_watch.h"
#include "findings/template_against.h"
#include "findings/template_check.h"
#include "page/html_builder.h"
#include "page/page_sections.h"
#include "platform/file.h"
#include "readers/layout_marks.h"
#include "readers/statement_loader.h"
#include "report/product_source.h"
#include "report/report.h"
#include "report/request_copy.h"
#include "statistics/account_figures.h"
#include "statistics/daily_series.h"
#include "statistics/money_identity.h"

namespace tradebill {
namespace {

/// A choice: the format, the family, and whether the input begins with a template.
struct Choice {
    std::int32_t format;
    std::int32_t kind;
    bool hasTemplate;
};

constexpr std::array<Choice, 11> kChoices = {{
    {0, 1, false},
    {1, 1, false},
    {3, 1, false},
    {2, 1, false},
    {6, 1, false},
    {201, 1, false},
    {0, kForeignKind, false},
    {1, 1, true},
    {3, 1, true},
    {201, 1, true},
    {5, 1, true},
}};

std::string FileOf(const char* ending) {
    return (std::filesystem::temp_directory_path() / ("statement-fuzz-" + std::to_string(::getpid()) + ending))
        .string();
}

/// Writes the template in front of the text for `report` and takes it off.
std::string_view UseTemplate(std::string_view input, CReport& report) {
    static const std::string path = FileOf(".ini");
    const std::size_t end = std::min(input.find('\0'), input.size());
    CFile file(path, FileMode::Create);
    static_cast<void>(file.Write(input.substr(0, end)));
    report.TemplatePath = path;
    const std::string_view rest = input.substr(std::min(end + 1, input.size()));
    const CIniFile parsed = CIniFile::Parse(input.substr(0, end));
    static_cast<void>(CheckTemplate(parsed));
    static_cast<void>(CheckTemplateAgainst(
        parsed,
        {.text = rest.substr(0, rest.find('\0')), .day = "20240102", .format = report.Request.StatementFormat}));
    return rest;
}

/// An error ends a run, and only the reading. Returns whether there was none.
bool Read(CStatementLoader& loader, std::string_view day, std::string_view text, CScanListener* listener) {
    try {
        loader.Read(day, text, listener);
    } catch (const CReportError&) {
        return false;
    }
    return true;
}

/// Six days of the same statement: enough for the form of its balance.
void LookForFaults(CStatementLoader& loader, std::string_view bytes, CReport& report) {
    const std::string_view text = bytes.substr(0, bytes.find('\0'));
    CStatementWatch watch(report);
    watch.TallyUnits();
    for (int date = 20240104; date < 20240110; ++date) {
        const std::string day = std::to_string(date);
        watch.OnStatement(day, "D1." + day + "o.txt",
                          {.state = StatementState::Read, .reason = {}, .bytes = bytes, .text = text});
        if (Read(loader, day, text, &watch)) watch.OnStatementEnd();
    }
    FindMoneyIdentity(report);
    static_cast<void>(FindingsOf(report, watch));
}

/// Any units, different ones for different contracts, and no codes.
class CLengthsAsUnits final : public CProductSource {
public:
    [[nodiscard]] std::int32_t UnitOf(std::string_view contract, std::string_view delivery) const override {
        return static_cast<std::int32_t>(contract.size() + delivery.size());
    }
    [[nodiscard]] std::optional<std::string> CodeOf(std::string_view /*name*/) const override { return std::nullopt; }
};

void RunOn(std::uint8_t number, std::string_view input) {
    const Choice& choice = kChoices[number % kChoices.size()];
    const CLengthsAsUnits products;
    CReport report;
    report.Request.StatementFormat = choice.format;
    report.Request.StatementKind = choice.kind;
    if (number >= 128) report.Products = &products;
    if (choice.hasTemplate) input = UseTemplate(input, report);
    const std::string_view text = input.substr(0, input.find('\0'));
    CStatementLoader loader(report);
    CScanReport seen(text);
    static_cast<void>(Read(loader, "20240102", text, &seen));
    seen.Finish();
    static_cast<void>(Read(loader, "20240103", text, nullptr));
    LookForFaults(loader, input, report);
    static_cast<void>(LikelyLayouts(text));
    OffsetMargins(report);
    ComputeYields(report);
    ComputeAccountStatistics(report);
    static const std::string path = FileOf(".html");
    CHtmlBuilder page(path);
    AddPageSections(page, report);
}

}  // namespace
}  // namespace tradebill

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    tradebill::RunOn(data[0], {reinterpret_cast<const char*>(data + 1), size - 1});
    return 0;
}
