// The least that reading a statement can be.
#pragma once

#include <cstddef>
#include <vector>

namespace tradebill {

/// Opens a file, reads it at once and finds its newlines; how many there are, none if there is no file. `buffer` grows
/// to what is needed. Throws std::runtime_error if the file can't be read.
std::size_t CountLines(const char* path, std::vector<char>& buffer);

}  // namespace tradebill
