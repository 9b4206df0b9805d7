#include "cli/product_tables.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/ini_file.h"
#include "base/number.h"
#include "cli/input_ini.h"
#include "cli/usage_error.h"
#include "report/product_text.h"

namespace tradebill {
namespace {

constexpr std::size_t kLongestCode = 31;  // bytes

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
    const auto found = units_.find(ProductOfContract(contract));
    return found == units_.end() ? 1 : found->second;
}

std::optional<std::string> CProductTables::CodeOf(std::string_view name) const {
    const auto found = codes_.find(name);
    return found == codes_.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace tradebill
