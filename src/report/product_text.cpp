#include "report/product_text.h"

#include <cstddef>
#include <string>
#include <string_view>

#include "base/gbk.h"
#include "base/text.h"
#include "report/product_source.h"

namespace tradebill {
namespace {

std::string_view WithoutDashes(std::string_view text) {
    while (text.ends_with('-')) text.remove_suffix(1);
    return text;
}

/// Where the last character of `text` begins, of two bytes or one.
std::size_t LastCharacterAt(std::string_view text) {
    std::size_t last = 0;
    for (std::size_t at = 0; at < text.size(); at += GbkCharacterLength(text.substr(at))) last = at;
    return last;
}

/// Whether the first number in `contract` is the month of `delivery`, of which it may leave out the decade: SR405.
bool HoldsMonth(std::string_view contract, std::string_view delivery) {
    constexpr std::size_t kShortestMonth = 3;
    const std::string_view behind = contract.substr(UpToFirstDigit(contract).size());
    const std::string_view number = behind.substr(0, behind.find_first_not_of("0123456789"));
    return number.size() >= kShortestMonth && TrimBlanks(delivery).ends_with(number);
}

}  // namespace

bool IsOptionContract(std::string_view contract) {
    contract = Trim(contract);
    const std::size_t right = contract.find_last_not_of("0123456789-");
    if (right == std::string_view::npos || right == 0) return false;
    if (contract[right] != 'C' && contract[right] != 'P') return false;
    const char before = contract[right - 1];
    return IsDigit(before) || before == '-' || static_cast<unsigned char>(before) >= 0x80;
}

CProductText::CProductText(std::string_view contract) {
    CopyField(text_, contract);
}

void CProductText::TakeName(const CProductSource* source) {
    const std::string name(TrimByte(TrimByte(FieldText(text_), ' '), kFullWidthBlankByte));
    CopyField(text_, name);
    if (source == nullptr) return;
    if (const auto code = source->CodeOf(FieldText(text_))) CopyField(text_, *code);
}

std::string_view CProductText::View() const {
    return UpToFirstDigit(FieldText(text_));
}

std::string_view TrimBlanks(std::string_view text) {
    constexpr std::string_view kFullWidthBlank = "　"_gbk;
    for (;;) {
        const std::size_t before = text.size();
        text = TrimByte(text, ' ');
        if (text.starts_with(kFullWidthBlank)) text.remove_prefix(kFullWidthBlank.size());
        if (text.ends_with(kFullWidthBlank)) text.remove_suffix(kFullWidthBlank.size());
        if (text.size() == before) return text;
    }
}

std::string_view ProductOfContract(std::string_view contract) {
    return TrimBlanks(UpToFirstDigit(contract));
}

std::string_view FutureProductOf(std::string_view contract, std::string_view delivery) {
    const std::string_view text = WithoutDashes(ProductOfContract(contract));
    const bool hasDigits = UpToFirstDigit(contract).size() < contract.size();
    if (text.size() < 2 || !hasDigits || (text.back() != 'C' && text.back() != 'P')) return text;
    const std::string_view future = text.substr(0, LastCharacterAt(text));
    if (future.size() + 1 != text.size()) return text;  // half of a Chinese character
    const bool isBehindWord = future.back() == '-' || static_cast<unsigned char>(future.back()) >= 0x80;
    const bool hasStrike = !TrimBlanks(delivery).empty() && !HoldsMonth(contract, delivery);
    const std::string_view product = WithoutDashes(TrimBlanks(future));
    return (isBehindWord || hasStrike) && !product.empty() ? product : text;
}

std::string ContractKey(std::string_view contract, std::string_view delivery, bool standsApart) {
    std::string key(TrimBlanks(contract));
    if (standsApart && !HoldsMonth(contract, delivery)) key += TrimBlanks(delivery);
    return key;
}

}  // namespace tradebill
