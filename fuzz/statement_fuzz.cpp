// Any bytes as a statement: the first byte picks the layout, the rest is the text; with a template, its text comes
// first, up to a zero byte. Reading, explaining, statistics and page must come through without a fault.
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "base/report_error.h"
#include "cli/scan_report.h"
#include "cli/template_check.h"
#include "driver/report_run.h"
#include "page/html_builder.h"
#include "page/page_sections.h"
#include "platform/file.h"
#include "readers/layout_marks.h"
#include "readers/statement_loader.h"
#include "readers/statement_template.h"
#include "report/request_copy.h"
#include "report/trade_statistics.h"
#include "statistics/account_figures.h"

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

/// Writes the template in front of the text and takes it off.
std::string_view UseTemplate(std::string_view input) {
    static const std::string path = FileOf(".ini");
    const std::size_t end = std::min(input.find('\0'), input.size());
    CFile file(path, FileMode::Create);
    static_cast<void>(file.Write(input.substr(0, end)));
    SetTemplateFile(path);
    static_cast<void>(CheckTemplate(CIniFile::Parse(input.substr(0, end))));
    return input.substr(std::min(end + 1, input.size()));
}

/// An error ends a run, and only the reading.
void Read(std::string_view day, std::string_view text, CScanListener* listener) {
    try {
        ReadStatement(day, text, listener);
    } catch (const CReportError&) {
    }
}

std::int32_t UnitOf(const char* /*account*/, const char* contract, const char* delivery) {
    return static_cast<std::int32_t>(std::string_view(contract).size() + std::string_view(delivery).size());
}

void RunOn(std::uint8_t number, std::string_view input) {
    const Choice& choice = kChoices[number % kChoices.size()];
    ClearResults();
    SetTemplateFile({});
    Request = ClearedRequest();
    Request.StatementFormat = choice.format;
    Request.StatementKind = choice.kind;
    if (number >= 128) Request.ContractUnitCallback = UnitOf;
    if (choice.hasTemplate) input = UseTemplate(input);
    const std::string_view text = input.substr(0, input.find('\0'));
    CScanReport report(text);
    Read("20240102", text, &report);
    report.Finish();
    Read("20240103", text, nullptr);
    static_cast<void>(LikelyLayouts(text));
    TradeStatistics.OffsetMargins();
    TradeStatistics.ComputeYields();
    ComputeAccountStatistics();
    static const std::string path = FileOf(".html");
    CHtmlBuilder page(path);
    AddPageSections(page);
}

}  // namespace
}  // namespace tradebill

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    tradebill::RunOn(data[0], {reinterpret_cast<const char*>(data + 1), size - 1});
    return 0;
}
