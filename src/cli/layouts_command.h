// The command `layouts`: the table of layouts that can be read.
#pragma once

namespace tradebill {

/// Prints the table.
void PrintLayouts();

}  // namespace tradebill
