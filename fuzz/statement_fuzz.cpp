// Any bytes as a statement: the first byte picks the layout, the rest is the text. Reading, statistics and page must
// come through without a fault.
#include <unistd.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "driver/report_run.h"
#include "page/html_builder.h"
#include "page/page_sections.h"
#include "readers/statement_loader.h"
#include "statement/request_copy.h"
#include "statistics/account_figures.h"
#include "statistics/trade_statistics.h"

namespace tradebill {
namespace {

constexpr std::array<std::int32_t, 3> kFormats = {0, 1, 3};

std::int32_t UnitOf(const char* /*account*/, const char* contract, const char* delivery) {
    return static_cast<std::int32_t>(std::string_view(contract).size() + std::string_view(delivery).size());
}

void RunOn(std::uint8_t choice, std::string_view text) {
    ClearResults();
    Request = ClearedRequest();
    Request.StatementFormat = kFormats[choice % kFormats.size()];
    if (choice >= 128) Request.ContractUnitCallback = UnitOf;
    ReadStatement("20240102", text.substr(0, text.find('\0')));
    ReadStatement("20240103", text.substr(0, text.find('\0')));
    TradeStatistics.OffsetMargins();
    TradeStatistics.ComputeYields();
    ComputeAccountStatistics();
    static const std::string path =
        std::filesystem::temp_directory_path() / ("statement-fuzz-" + std::to_string(::getpid()) + ".html");
    CHtmlBuilder page(path);
    AddTradeSection(page);
    AddPositionSection(page);
    AddMatchSection(page);
    AddOffsetSection(page);
    AddNotesSection(page);
}

}  // namespace
}  // namespace tradebill

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    tradebill::RunOn(data[0], {reinterpret_cast<const char*>(data + 1), size - 1});
    return 0;
}
