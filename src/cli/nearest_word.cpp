#include "cli/nearest_word.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tradebill {

std::size_t WordDistance(std::string_view one, std::string_view other) {
    using Line = std::vector<std::size_t>;
    Line twoBefore(other.size() + 1);
    Line before(other.size() + 1);
    Line line(other.size() + 1);
    std::iota(line.begin(), line.end(), std::size_t{0});
    for (std::size_t i = 1; i <= one.size(); ++i) {
        std::swap(twoBefore, before);
        std::swap(before, line);
        line[0] = i;
        for (std::size_t j = 1; j <= other.size(); ++j) {
            const std::size_t change = one[i - 1] == other[j - 1] ? 0 : 1;
            line[j] = std::min({before[j] + 1, line[j - 1] + 1, before[j - 1] + change});
            const bool isSwapped = i > 1 && j > 1 && one[i - 1] == other[j - 2] && one[i - 2] == other[j - 1];
            if (isSwapped) line[j] = std::min(line[j], twoBefore[j - 2] + 1);
        }
    }
    return line[other.size()];
}

std::string_view NearestWord(std::string_view typed, std::span<const std::string> words) {
    std::string_view nearest;
    std::size_t least = std::max<std::size_t>(typed.size() / 3, 1) + 1;
    for (const std::string& word : words) {
        const std::size_t distance = WordDistance(typed, word);
        if (distance >= least || distance >= word.size()) continue;
        nearest = word;
        least = distance;
    }
    return nearest;
}

}  // namespace tradebill
