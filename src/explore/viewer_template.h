// The page that shows an account's data in a browser, but for the data. The program carries it, the module doesn't.
#pragma once

#include <string_view>

namespace tradebill {

/// UTF-8, with the line kDataMark (explore_page.h) in it; empty in a program that was built without the viewer.
[[nodiscard]] std::string_view ViewerTemplate();

}  // namespace tradebill
