#include "findings/other_currencies.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <vector>

#include "base/gbk.h"
#include "base/text.h"

namespace tradebill {
namespace {

constexpr std::string_view kCurrencyWords[] = {"币种"_gbk, "Currency"};
constexpr std::string_view kColon = "："_gbk;

}  // namespace

std::string_view CurrencyOfTitle(std::string_view titleRow) {
    for (const std::string_view word : kCurrencyWords) {
        const std::size_t at = FindText(titleRow, word);
        if (at == std::string_view::npos) continue;
        std::string_view rest = TrimLeft(titleRow.substr(at + word.size()));
        for (const std::string_view colon : {kColon, std::string_view(":")}) {
            if (rest.starts_with(colon)) rest = TrimLeft(rest.substr(colon.size()));
        }
        return TrimRight(rest.substr(0, rest.find_first_of(" \t\r")));
    }
    return {};
}

std::vector<std::string_view> TitlesOfOtherCurrencies(std::string_view text, std::string_view first,
                                                      std::string_view titleWord) {
    std::vector<std::string_view> titles;
    std::vector<std::string_view> known{CurrencyOfTitle(first)};
    if (known.front().empty() || titleWord.empty()) return titles;
    std::string_view rest = text.substr(static_cast<std::size_t>(first.data() - text.data()) + first.size());
    for (std::size_t at = FindText(rest, titleWord); at != std::string_view::npos; at = FindText(rest, titleWord)) {
        const std::size_t begin = rest.rfind('\n', at) + 1;  // 0 where there is none
        const std::string_view row = rest.substr(begin, rest.find('\n', at) - begin);
        const std::string_view currency = CurrencyOfTitle(row);
        if (!currency.empty() && std::ranges::find(known, currency) == known.end()) {
            known.push_back(currency);
            titles.push_back(row);
        }
        rest.remove_prefix(begin + row.size());
    }
    return titles;
}

}  // namespace tradebill
