#include "requests/live_figures.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <string>
#include <string_view>
#include <system_error>

#include "base/ini_file.h"
#include "driver/report_request.h"
#include "export/file_digest.h"
#include "report/money_record.h"
#include "report/record_fields.h"
#include "report/records.h"
#include "requests/input_ini.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

double RateOf(const InputIni& ini, const CIniFile::Entry& entry) {
    double rate = 0;
    const char* const end = entry.value.data() + entry.value.size();
    const auto [stop, error] = std::from_chars(entry.value.data(), end, rate);
    if (error != std::errc{} || stop != end || !std::isfinite(rate))
        throw CUsageError(ini.Place(entry.line) + ": expected a decimal number");
    return rate;
}

void SetField(const InputIni& ini, const CIniFile::Entry& entry, MoneyRecord& money) {
    if (EqualsIgnoringCase(entry.key, "EXCHANGE_RATE")) {
        money.EXCHANGE_RATE = RateOf(ini, entry);
        return;
    }
    const auto* const field = std::ranges::find_if(
        kMoneyFields, [&](const auto& candidate) { return EqualsIgnoringCase(candidate.name, entry.key); });
    if (field == std::end(kMoneyFields)) {
        throw CUsageError(ini.Place(entry.line) + ": expected the name of a money field, found \"" + entry.key + "\"");
    }
    const std::string value = GbkTextOf(ini, entry, entry.value);
    const auto bytes = field->bytes(money);
    if (value.size() >= bytes.size()) {
        throw CUsageError(ini.Place(entry.line) + ": expected at most " + std::to_string(bytes.size() - 1) +
                          " bytes for " + std::string(field->name));
    }
    *std::ranges::copy(value, bytes.begin()).out = '\0';
}

MoneyRecord MoneyOf(const InputIni& ini, const CIniFile::Section& section) {
    MoneyRecord money = ClearedMoneyRecord();
    for (const CIniFile::Entry& entry : section.entries) SetField(ini, entry, money);
    return money;
}

void RefuseOtherSections(const InputIni& ini, int currencies) {
    for (const CIniFile::Section& section : ini.file.Sections()) {
        bool known = EqualsIgnoringCase(section.name, "BASE");
        for (int i = 1; i <= currencies && !known; ++i) {
            known = EqualsIgnoringCase(section.name, "CURRENCY" + std::to_string(i));
        }
        if (!known) {
            throw CUsageError(ini.Place(section.line) + ": expected [BASE] or [CURRENCY1] to [CURRENCY" +
                              std::to_string(kCurrencyMoneyCapacity) + "] without a gap, found [" + section.name + "]");
        }
    }
}

}  // namespace

FileDigest UseLiveFile(const std::string& path, GenerateBillRequest& request) {
    const InputIni ini = LoadInputIni(path);
    request.BaseMoney = MoneyOf(ini, RequiredSection(ini, "BASE"));
    int count = 0;
    while (count < kCurrencyMoneyCapacity) {
        const CIniFile::Section* const section = ini.file.FindSection("CURRENCY" + std::to_string(count + 1));
        if (section == nullptr) break;
        request.CurrencyMoney[count++] = MoneyOf(ini, *section);
    }
    RefuseOtherSections(ini, count);
    request.CurrencyCount = count;
    return ini.digest;
}

}  // namespace tradebill
