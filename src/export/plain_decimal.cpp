#include "export/plain_decimal.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "base/text.h"

namespace tradebill {
namespace {

/// Whether the commas of `whole` stand before each three digits from the end.
bool AreThousands(std::string_view whole) {
    for (std::size_t fromEnd = 1; fromEnd <= whole.size(); ++fromEnd) {
        if ((whole[whole.size() - fromEnd] == ',') != (fromEnd % 4 == 0)) return false;
    }
    return whole.front() != ',';
}

}  // namespace

CPlainDecimal::CPlainDecimal(std::string_view text) {
    text = Trim(text);
    if (text.empty() || text.size() > kLongest) return;
    const bool hasSign = text.front() == '-' || text.front() == '+';
    if (text.front() == '-') Put('-');
    if (!Take(text.substr(hasSign ? 1 : 0))) size_ = 0;
}

bool CPlainDecimal::Take(std::string_view digits) {
    const std::size_t point = std::min(digits.find('.'), digits.size());
    const std::string_view whole = digits.substr(0, point);
    const std::string_view fraction = digits.substr(std::min(point + 1, digits.size()));
    if (whole.empty() && fraction.empty()) return false;
    if (whole.find(',') != std::string_view::npos && !AreThousands(whole)) return false;
    const std::size_t start = size_;
    for (const char byte : whole) {
        if (byte == ',') continue;
        if (!IsDigit(byte)) return false;
        if (size_ == start + 1 && chars_[start] == '0') size_ = start;  // a leading zero
        Put(byte);
    }
    if (whole.empty()) Put('0');
    if (fraction.empty()) return true;
    Put('.');
    for (const char byte : fraction) {
        if (!IsDigit(byte)) return false;
        Put(byte);
    }
    return true;
}

}  // namespace tradebill
