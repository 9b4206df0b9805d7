#include "report/chain_table.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "base/ini_file.h"
#include "base/number.h"
#include "platform/file.h"

namespace tradebill {

namespace {

constexpr std::size_t kLongestProduct = 31;
constexpr std::int32_t kAlwaysListed = 99;  ///< items up to this number are listed even if the file lacks them

/// The number in `name` if it is `prefix` and a number of at least `digits` digits, written as "%0<digits>d" writes it.
std::optional<std::int32_t> NumberIn(std::string_view name, std::string_view prefix, std::size_t digits) {
    if (name.size() < prefix.size() + digits) return std::nullopt;
    if (!EqualsIgnoringCase(name.substr(0, prefix.size()), prefix)) return std::nullopt;
    const std::string_view text = name.substr(prefix.size());
    if (text.size() > digits && text.front() == '0') return std::nullopt;
    std::int32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size() || number < 1) return std::nullopt;
    return number;
}

/// The chain sections that the file really has, by number. A file may claim two billion of them.
std::map<std::int32_t, const CIniFile::Section*> ChainSections(const CIniFile& file, std::int32_t count) {
    std::map<std::int32_t, const CIniFile::Section*> sections;
    for (const CIniFile::Section& section : file.Sections()) {
        const auto number = NumberIn(section.name, "CHAIN", 3);
        if (number && *number <= count) sections.emplace(*number, &section);  // the first of a name counts
    }
    return sections;
}

std::string ProductText(std::string_view text) {
    return std::string(text.substr(0, kLongestProduct));
}

std::vector<std::string> ReadItems(const CIniFile::Section& section) {
    const CIniFile::Entry* const numEntry = FindEntry(section, "Num");
    const std::int32_t count = numEntry != nullptr ? ParseInteger(numEntry->value) : 0;
    std::map<std::int32_t, std::string_view> named;
    for (const CIniFile::Entry& entry : section.entries) {
        const auto number = NumberIn(entry.key, "Item", 2);
        if (number && *number <= count) named.emplace(*number, entry.value);
    }
    std::vector<std::string> items;
    for (std::int32_t k = 1; k <= std::min(count, kAlwaysListed); ++k) {
        const auto found = named.find(k);
        items.push_back(found == named.end() ? std::string() : ProductText(found->second));
    }
    for (auto later = named.upper_bound(kAlwaysListed); later != named.end(); ++later) {
        items.push_back(ProductText(later->second));
    }
    // Beyond those, one empty text says as much as all that the file lacks.
    if (count > kAlwaysListed && static_cast<std::int64_t>(named.size()) < count) items.emplace_back();
    return items;
}

}  // namespace

bool CContractChain::Contains(std::string_view product) const {
    return std::ranges::find(Items, product) != Items.end();
}

std::optional<UnreadFile> CChainTable::Load(const std::string& path) {
    IniFileContent content = LoadIniFile(path);
    if (content.state != FileState::Read && content.state != FileState::Missing) {
        return UnreadFile{path, content.state, std::move(content.reason)};
    }
    const CIniFile& file = content.file;
    for (const auto& [number, section] : ChainSections(file, file.Integer("CHAINNUM", "Num", 0))) {
        const CIniFile::Entry* const base = FindEntry(*section, "ItemBase");
        if (base == nullptr || base->value.empty()) continue;
        auto chain = std::make_unique<CContractChain>(ProductText(base->value));
        chain->Items = ReadItems(*section);
        byBase_[chain->ItemBase] = chain.get();
        Chains.push_back(std::move(chain));
    }
    return std::nullopt;
}

const CContractChain* CChainTable::FindChain(std::string_view product) const {
    const auto found = byBase_.find(std::string(product));
    return found == byBase_.end() ? nullptr : found->second;
}

void CChainTable::Clear() {
    Chains.clear();
    byBase_.clear();
}

}  // namespace tradebill
