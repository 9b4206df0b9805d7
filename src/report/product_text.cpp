#include "report/product_text.h"

#include <string>
#include <string_view>

#include "base/text.h"
#include "report/product_source.h"

namespace tradebill {

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
