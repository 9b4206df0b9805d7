// Paths in addresses, which browsers open.
#pragma once

#include <string>
#include <string_view>

namespace tradebill {

/// `path`, whose folders "/" parts, with every byte by its number ("%20") that is no ASCII letter or digit and none of
/// "-._~/" and `alsoPlain`. No text reads as a scheme, a query or a fragment then, unless `alsoPlain` lets it.
[[nodiscard]] std::string AddressPath(std::string_view path, std::string_view alsoPlain = {});

}  // namespace tradebill
