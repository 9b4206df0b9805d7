#include "report/product_text.h"

#include <cstddef>
#include <string>
#include <string_view>

#include "base/gbk.h"
#include "base/text.h"
#include "report/product_source.h"

namespace tradebill {

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

std::string_view ProductOfContract(std::string_view contract) {
    constexpr std::string_view kFullWidthBlank = "　"_gbk;
    std::string_view text = UpToFirstDigit(contract);
    for (;;) {
        const std::size_t before = text.size();
        text = TrimByte(text, ' ');
        if (text.starts_with(kFullWidthBlank)) text.remove_prefix(kFullWidthBlank.size());
        if (text.ends_with(kFullWidthBlank)) text.remove_suffix(kFullWidthBlank.size());
        if (text.size() == before) return text;
    }
}

}  // namespace tradebill
