#include "cli/host_tables.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <string_view>

#include "base/gbk.h"
#include "base/text.h"
#include "cli/input_ini.h"
#include "cli/usage_error.h"

namespace tradebill {
namespace {

constexpr std::size_t kCodeSize = 32;  // of the buffer that a product's code goes into

// The callbacks carry no context of their own, and there is one run at a time.
std::map<std::string, std::int32_t, std::less<>> units;
std::map<std::string, std::string, std::less<>> productCodes;

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

std::int32_t UnitOf(const char* /*account*/, const char* contract, const char* /*delivery*/) {
    const std::string_view text(contract);
    const auto digit = std::ranges::find_if(text, IsDigit);
    const auto product = TrimAllBlanks(text.substr(0, static_cast<std::size_t>(digit - text.begin())));
    const auto found = units.find(product);
    return found == units.end() ? 1 : found->second;
}

std::int32_t CodeOf(const char* name, char* code) {
    const auto found = productCodes.find(std::string_view(name));
    if (found == productCodes.end()) return 0;
    found->second.copy(code, kCodeSize - 1);
    code[found->second.size()] = '\0';
    return 1;
}

}  // namespace

void UseUnitFile(const std::string& path, GenerateBillRequest& request) {
    const InputIni ini = LoadInputIni(path);
    units.clear();
    for (const CIniFile::Entry& entry : RequiredSection(ini, "UNITS").entries) {
        const auto unit = WholeNumber(entry.value);
        if (!unit) throw CUsageError(ini.Place(entry.line) + ": expected product=unit, the unit a whole number");
        units.emplace(GbkTextOf(ini, entry, entry.key), *unit);
    }
    request.ContractUnitCallback = UnitOf;
}

void UseProductFile(const std::string& path, GenerateBillRequest& request) {
    const InputIni ini = LoadInputIni(path);
    productCodes.clear();
    for (const CIniFile::Entry& entry : RequiredSection(ini, "PRODUCTS").entries) {
        const std::string code = GbkTextOf(ini, entry, entry.value);
        if (code.size() >= kCodeSize) {
            throw CUsageError(ini.Place(entry.line) + ": expected name=code, the code of at most 31 bytes");
        }
        productCodes.emplace(GbkTextOf(ini, entry, entry.key), code);
    }
    request.ProductNameCallback = CodeOf;
}

}  // namespace tradebill
