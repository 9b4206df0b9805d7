#include "cli/product_tables.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/gbk.h"
#include "base/ini_file.h"
#include "base/number.h"
#include "base/text.h"
#include "cli/input_ini.h"
#include "cli/usage_error.h"

namespace tradebill {
namespace {

constexpr std::size_t kLongestCode = 31;  // bytes

std::string_view TrimAllBlanks(std::string_view text) {
    constexpr std::string_view kFullWidthBlank = "　"_gbk;
    for (;;) {
        const std::size_t before = text.size();
        text = TrimByte(text, ' ');
        if (text.starts_with(kFullWidthBlank)) text.remove_prefix(kFullWidthBlank.size());
        if (text.ends_with(kFullWidthBlank)) text.remove_suffix(kFullWidthBlank.size());
        if (text.size() == before) return text;
    }
}

}  // namespace

void CProductTables::LoadUnits(const std::string& path) {
    const InputIni ini = LoadInputIni(path);
    for (const CIniFile::Entry& entry : RequiredSection(ini, "UNITS").entries) {
        const auto unit = WholeNumber(entry.value);
        if (!unit) throw CUsageError(ini.Place(entry.line) + ": expected product=unit, the unit a whole number");
        units_.emplace(GbkTextOf(ini, entry, entry.key), *unit);
    }
}

void CProductTables::LoadProducts(const std::string& path) {
    const InputIni ini = LoadInputIni(path);
    for (const CIniFile::Entry& entry : RequiredSection(ini, "PRODUCTS").entries) {
        const std::string code = GbkTextOf(ini, entry, entry.value);
        if (code.size() > kLongestCode) {
            throw CUsageError(ini.Place(entry.line) + ": expected name=code, the code of at most 31 bytes");
        }
        codes_.emplace(GbkTextOf(ini, entry, entry.key), code);
    }
}

std::int32_t CProductTables::UnitOf(std::string_view contract, std::string_view /*delivery*/) const {
    const auto found = units_.find(TrimAllBlanks(UpToFirstDigit(contract)));
    return found == units_.end() ? 1 : found->second;
}

std::optional<std::string> CProductTables::CodeOf(std::string_view name) const {
    const auto found = codes_.find(name);
    return found == codes_.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace tradebill
