#include "intake/workbook_figures.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/decimal.h"
#include "base/ini_file.h"
#include "base/number.h"
#include "intake/workbook_day.h"
#include "report/product_text.h"

namespace tradebill {
namespace {

constexpr std::int64_t kCent = kDecimalSteps / 100;

std::string ProductIn(const std::string& contract) {
    return std::string(FutureProductOf(contract, {}));
}

/// The unit that a trade tells: its turnover over its price and its lots, if that is whole.
std::optional<std::int64_t> UnitIn(const DayTrade& trade) {
    constexpr double kMost = 1e6;
    constexpr double kRounding = 1e-4;  // of the turnover's cents, and of a price that is an average
    if (trade.price <= 0 || trade.lots <= 0 || trade.turnover <= 0) return std::nullopt;
    const double ratio =
        static_cast<double>(trade.turnover) / static_cast<double>(trade.price) / static_cast<double>(trade.lots);
    const double whole = std::round(ratio);
    if (whole < 1 || whole > kMost || std::abs(ratio - whole) > kRounding * whole) return std::nullopt;
    return static_cast<std::int64_t>(whole);
}

/// Spreads `total` over some positions by their weights, to the cent; the cents that are left go where they are due.
void Spread(std::int64_t total, const std::vector<std::size_t>& which, const std::vector<double>& weights,
            std::vector<std::int64_t>& margins) {
    double sum = 0;
    for (const std::size_t i : which) sum += weights[i];
    double reached = 0;
    std::int64_t given = 0;
    for (const std::size_t i : which) {
        reached += weights[i];
        const double share = sum > 0 ? reached / sum : i == which.back() ? 1.0 : 0.0;
        const std::int64_t upTo =
            i == which.back()
                ? total
                : static_cast<std::int64_t>(std::llround(static_cast<double>(total / kCent) * share)) * kCent;
        margins[i] = upTo - given;
        given = upTo;
    }
}

}  // namespace

CDayUnits::CDayUnits(const WorkbookDay& day, std::string_view units) {
    for (const DayTrade& trade : day.trades) {
        if (const auto unit = UnitIn(trade)) units_.try_emplace(ProductIn(trade.contract), *unit);
    }
    const CIniFile table = CIniFile::Parse(units);
    const CIniFile::Section* const section = table.FindSection("UNITS");
    if (section == nullptr) return;
    for (const CIniFile::Entry& entry : section->entries) {
        const auto unit = WholeNumber(entry.value);
        if (unit && *unit > 0) units_.try_emplace(entry.key, *unit);
    }
}

std::optional<std::int64_t> CDayUnits::Of(const std::string& contract) const {
    const auto found = units_.find(ProductIn(contract));
    return found != units_.end() ? std::optional(found->second) : std::nullopt;
}

std::vector<std::int64_t> MarginsOf(const WorkbookDay& day, const CDayUnits& units) {
    std::vector<std::int64_t> margins(day.positions.size(), 0);
    std::vector<double> weights(day.positions.size(), 0);
    std::map<std::string, std::vector<std::size_t>> byContract;
    std::vector<std::size_t> all;
    std::int64_t rest = day.money.margin;
    for (std::size_t i = 0; i < day.positions.size(); ++i) {
        const DayPosition& position = day.positions[i];
        if (position.margin) {
            margins[i] = *position.margin;
            rest -= *position.margin;
            continue;
        }
        weights[i] = static_cast<double>(position.lots) * static_cast<double>(position.settled) *
                     static_cast<double>(units.Of(position.contract).value_or(1));
        byContract[position.contract].push_back(i);
        all.push_back(i);
    }
    if (!day.margins) {
        if (!all.empty()) Spread(rest, all, weights, margins);
        return margins;
    }
    std::map<std::string, std::int64_t> totals;
    for (const DayMargin& margin : *day.margins) totals[margin.contract] += margin.margin;
    for (const auto& [contract, which] : byContract) Spread(totals[contract], which, weights, margins);
    return margins;
}

std::optional<std::int64_t> FloatingOf(const DayPosition& position, const CDayUnits& units) {
    constexpr double kMost = 1e17;
    const auto unit = units.Of(position.contract);
    if (!unit) return std::nullopt;
    const std::int64_t gain =
        position.isLong ? position.settled - position.openPrice : position.openPrice - position.settled;
    const std::int64_t lots = position.lots * *unit;
    if (std::abs(static_cast<double>(gain) * static_cast<double>(lots)) > kMost) return std::nullopt;
    return gain * lots;
}

}  // namespace tradebill
