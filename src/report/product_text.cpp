#include "report/product_text.h"

#include <cstddef>
#include <string>
#include <string_view>

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

}  // namespace tradebill
