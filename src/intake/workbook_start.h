// What the files of workbooks begin with.
#pragma once

#include <string_view>

namespace tradebill {

inline constexpr std::string_view kZipStart{"PK\x03\x04"};
inline constexpr std::string_view kCompoundStart{"\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"};

}  // namespace tradebill
