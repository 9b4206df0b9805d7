// The contract units that the program carries inside.
#pragma once

#include <string_view>

namespace tradebill {

/// The bytes of samples/units.ini: the units of the Chinese futures and options, by code and by name. The source is
/// made from the file as the build is set up (cmake/unit_table.cmake).
[[nodiscard]] std::string_view UnitTableText();

}  // namespace tradebill
