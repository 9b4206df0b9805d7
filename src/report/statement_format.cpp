#include "report/statement_format.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <span>
#include <string>

namespace tradebill {
namespace {

constexpr StatementFormat kFormats[] = {
    {.number = 0, .namesDeliveryApart = true, .printsNames = true, .tradeColumns = TradeColumns::FundClass},
    {.number = 1, .namesDeliveryApart = true, .tradeColumns = TradeColumns::FundStatus},
    {.number = 2, .equity = EquityRule::MarginAndAvailable},
    {.number = 3, .namesDeliveryApart = true},
    {.number = 6, .showsExchangeOfClosed = false, .equity = EquityRule::MarginAndAvailable},
    {.number = 201},
};
constexpr StatementFormat kOtherFormat{.number = -1};

const StatementFormat* FindFormat(std::int32_t number) {
    const auto* const found = std::ranges::find(kFormats, number, &StatementFormat::number);
    return found != std::end(kFormats) ? found : nullptr;
}

}  // namespace

std::span<const StatementFormat> StatementFormats() {
    return kFormats;
}

const StatementFormat& FormatOf(std::int32_t number) {
    const StatementFormat* const format = FindFormat(number);
    return format != nullptr ? *format : kOtherFormat;
}

bool IsKnownFormat(std::int32_t number) {
    return FindFormat(number) != nullptr;
}

std::string FormatNumbers() {
    std::string text;
    for (const StatementFormat& format : kFormats) {
        if (!text.empty()) text += ", ";
        text += std::to_string(format.number);
    }
    return text;
}

}  // namespace tradebill
