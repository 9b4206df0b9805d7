#include "requests/product_tables.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/ini_file.h"
#include "base/number.h"
#include "export/file_digest.h"
#include "report/product_text.h"
#include "report/product_unit.h"
#include "requests/input_ini.h"
#include "requests/unit_table.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

constexpr std::size_t kLongestCode = 31;  // bytes

}  // namespace

void CProductTables::TakeUnits(const InputIni& ini) {
    for (const CIniFile::Entry& entry : RequiredSection(ini, "UNITS").entries) {
        const auto unit = WholeNumber(entry.value);
        if (!unit) throw CUsageError(ini.Place(entry.line) + ": expected product=unit, the unit a whole number");
        units_.emplace(GbkTextOf(ini, entry, entry.key), *unit);
    }
}

FileDigest CProductTables::LoadUnits(const std::string& path) {
    const InputIni ini = LoadInputIni(path);
    TakeUnits(ini);
    tableSource_ = UnitSource::File;
    return ini.digest;
}

FileDigest CProductTables::LoadCarriedUnits() {
    TakeUnits({.path = "the carried table", .file = CIniFile::Parse(UnitTableText())});
    tableSource_ = UnitSource::Table;
    return DigestOfBytes("units.ini", UnitTableText());
}

FileDigest CProductTables::LoadProducts(const std::string& path) {
    const InputIni ini = LoadInputIni(path);
    for (const CIniFile::Entry& entry : RequiredSection(ini, "PRODUCTS").entries) {
        const std::string code = GbkTextOf(ini, entry, entry.value);
        if (code.size() > kLongestCode) {
            throw CUsageError(ini.Place(entry.line) + ": expected name=code, the code of at most 31 bytes");
        }
        codes_.emplace(GbkTextOf(ini, entry, entry.key), code);
    }
    return ini.digest;
}

ProductUnit CProductTables::Choose(std::string_view product) const {
    ProductUnit chosen{.product = std::string(product), .unit = 1, .source = UnitSource::Unknown};
    const auto inTable = units_.find(product);
    if (waived_) {
        chosen.source = UnitSource::Waived;
    } else if (const auto byTrades = trades_.UnitOf(product)) {
        chosen.unit = *byTrades;
        chosen.source = UnitSource::Trades;
    } else if (inTable != units_.end()) {
        chosen.unit = inTable->second;
        chosen.source = tableSource_;
    }
    return chosen;
}

std::int32_t CProductTables::UnitOf(std::string_view contract, std::string_view /*delivery*/) const {
    const std::string_view product = ProductOfContract(contract);
    const auto found = usedPlaces_.find(product);
    if (found != usedPlaces_.end()) return used_[found->second].unit;
    usedPlaces_.emplace(product, used_.size());
    return used_.emplace_back(Choose(product)).unit;
}

std::optional<std::string> CProductTables::CodeOf(std::string_view name) const {
    const auto found = codes_.find(name);
    return found == codes_.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace tradebill
