// The pages that show accounts in a browser, but for their data. The program carries them, the module doesn't.
#pragma once

#include <string_view>

namespace tradebill {

/// An account's page: UTF-8, with the line kDataMark (explore_page.h) in it; empty in a program that was built without
/// the viewer.
[[nodiscard]] std::string_view ViewerTemplate();

/// The same of the page that lists the accounts of a batch.
[[nodiscard]] std::string_view AccountsTemplate();

}  // namespace tradebill
