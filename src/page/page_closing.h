// What a closing and a style make of a page's text.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/gbk.h"

namespace tradebill {

/// What a page begins with until it is closed.
inline constexpr std::string_view kPageHeadLines = "<head>\r\n<title> 交易及账单报告 </title>\r\n</head>\r\n"_gbk;

inline constexpr std::string_view kPageEnd = "</body>\r\n</html>\r\n";
inline constexpr std::string_view kPageLineEnd = "\r\n";

/// The page with its wrappers in place and each line ended once.
[[nodiscard]] std::string WrappedPage(std::string_view page);

/// Where the line with </head> begins; where the last line begins if there is none.
[[nodiscard]] std::size_t HeadEndLine(std::string_view page);

/// `block`, and `rest` behind it with each of its lines ended once.
[[nodiscard]] std::string WithBlockBefore(std::string_view rest, std::string_view block);

}  // namespace tradebill
