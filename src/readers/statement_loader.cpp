#include "readers/statement_loader.h"

#include <algorithm>
#include <iterator>

#include "base/gbk.h"
#include "base/text.h"
#include "platform/file.h"
#include "readers/fixed_readers.h"
#include "statement/request_copy.h"

namespace tradebill {
namespace {

using Reader = void (*)(std::string_view day, std::string_view text);

/// The readers of a format: which of the two is chosen by whether the text speaks of option premium.
struct FormatReaders {
    std::int32_t format;
    Reader plain;
    Reader premium;
};

// clang-format off
constexpr FormatReaders kFormats[] = {
    {0,   ReadFundClassStatement,  ReadFundClassStatement},
    {1,   ReadFundStatusStatement, ReadFundStatusPremiumStatement},
    {2,   nullptr,                 nullptr},
    {3,   ReadTabulatedStatement,  nullptr},
    {6,   nullptr,                 nullptr},
    {201, nullptr,                 nullptr},
};
// clang-format on

const FormatReaders* ReadersOf(std::int32_t format) {
    const auto* const found = std::ranges::find(kFormats, format, &FormatReaders::format);
    return found == std::end(kFormats) ? nullptr : found;
}

}  // namespace

bool IsKnownFormat(std::int32_t format) {
    return ReadersOf(format) != nullptr;
}

void ReadStatement(std::string_view day, std::string_view text) {
    if (IsForeign()) return;
    const FormatReaders* const readers = ReadersOf(Request.StatementFormat);
    if (readers == nullptr) return;
    const bool paired = readers->plain != readers->premium;
    const Reader reader = paired && Contains(text, "权利金"_gbk) ? readers->premium : readers->plain;
    if (reader != nullptr) reader(day, text);
}

bool LoadStatement(std::string_view day, const std::string& path) {
    const auto text = ReadStatementFile(path);
    if (!text) return false;
    ReadStatement(day, *text);
    return true;
}

}  // namespace tradebill
