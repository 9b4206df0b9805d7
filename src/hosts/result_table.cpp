#include "hosts/result_table.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

#include "hosts/tradebill.h"

namespace tradebill {
namespace {

struct KnownResult {
    std::int32_t result;
    const char* name;
    const char* meaning;
};

constexpr KnownResult kUnknown{-1, "UNKNOWN", "nobody knows why"};

// clang-format off
constexpr KnownResult kResults[] = {
    {TRADEBILL_DONE,           "DONE",           ""},
    {TRADEBILL_INCOMPLETE,     "INCOMPLETE",     "something is missing"},
    {TRADEBILL_WRONG_REQUEST,  "WRONG_REQUEST",  "the request can't be meant so"},
    {TRADEBILL_NOTHING_READ,   "NOTHING_READ",   "no statement could be read"},
    {TRADEBILL_STOPPED,        "STOPPED",        "stopped"},
    {TRADEBILL_PLACE_TAKEN,    "PLACE_TAKEN",    "another program writes the same page"},
    {TRADEBILL_FAILED,         "FAILED",         "it could not be made"},
    {TRADEBILL_OUT_OF_MEMORY,  "OUT_OF_MEMORY",  "out of memory"},
    {TRADEBILL_NO_REPORT,      "NO_REPORT",      "no report has been made or read"},
    {TRADEBILL_NO_SUCH_NAME,   "NO_SUCH_NAME",   "no table, column or chart is called so"},
    {TRADEBILL_WRONG_ARGUMENT, "WRONG_ARGUMENT", "an argument is null, or a record or size that can't be"},
    {TRADEBILL_BUSY,           "BUSY",           "called from the report's own progress function"},
};
// clang-format on

const KnownResult& Known(std::int32_t result) {
    const auto* const found = std::ranges::find(kResults, result, &KnownResult::result);
    return found == std::end(kResults) ? kUnknown : *found;
}

}  // namespace

const char* ResultName(std::int32_t result) {
    return Known(result).name;
}

const char* ResultMeaning(std::int32_t result) {
    return Known(result).meaning;
}

}  // namespace tradebill
