#include <algorithm>
#include <iterator>
#include <span>
#include <string_view>

#include "fuzz_target.h"

namespace tradebill {
namespace {

// clang-format off
constexpr FuzzTarget kTargets[] = {
    {"anonymise",    FuzzAnonymise},
    {"chart",        FuzzChart},
    {"diff",         FuzzDiff},
    {"findings",     FuzzFindings},
    {"host",         FuzzHost},
    {"ini",          FuzzIni},
    {"intake",       FuzzIntake},
    {"json",         FuzzJson},
    {"numbers",      FuzzNumbers},
    {"page",         FuzzPage},
    {"picture",      FuzzPicture},
    {"readers",      FuzzReaders},
    {"request",      FuzzRequest},
    {"run",          FuzzRun},
    {"run_pictures", FuzzRunWithPictures},
    {"tables",       FuzzTables},
    {"template",     FuzzTemplate},
    {"text",         FuzzText},
    {"workbook",     FuzzWorkbook},
};
// clang-format on

}  // namespace

std::span<const FuzzTarget> FuzzTargets() {
    return kTargets;
}

const FuzzTarget* FindFuzzTarget(std::string_view name) {
    const auto* const found = std::ranges::find(kTargets, name, &FuzzTarget::name);
    return found == std::end(kTargets) ? nullptr : found;
}

}  // namespace tradebill
