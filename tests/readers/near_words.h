// Words that nearly are the ones that a layout looks for.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tradebill {

/// `word` (UTF-8, of Chinese characters at both ends) without its first and without its last character.
inline std::vector<std::string> NearWords(std::string_view word) {
    constexpr std::size_t kCharacter = 3;
    return {std::string(word.substr(kCharacter)), std::string(word.substr(0, word.size() - kCharacter))};
}

}  // namespace tradebill
