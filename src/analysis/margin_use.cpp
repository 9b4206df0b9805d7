#include "analysis/margin_use.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "analysis/compensated_sum.h"
#include "analysis/day_figures.h"
#include "analysis/day_results.h"
#include "analysis/group_key.h"
#include "analysis/margin_results.h"
#include "analysis/position_rows.h"
#include "analysis/product_names.h"
#include "base/day_number.h"
#include "report/report.h"

namespace tradebill {
namespace {

using Equities = std::unordered_map<std::int64_t, double>;  ///< above 0, by days

/// Margin of one product, day by day.
class CProductDays {
public:
    explicit CProductDays(ProductMargin product) : product_(std::move(product)) {}

    void Add(std::int64_t day, double margin) { days_[day].Add(margin); }

    /// The figures over the days.
    void Finish(const Equities& equities) {
        CCompensatedSum sum;
        ForEachDay([&](std::int64_t day, double margin) {
            ++product_.days;
            sum.Add(margin);
            TakeHighest(day, margin, equities);
        });
        if (product_.days > 0) product_.mean = sum.Total() / static_cast<double>(product_.days);
    }

    /// REQUIRES: Finish was called.
    [[nodiscard]] const ProductMargin& Figures() const { return product_; }

    void AddDays(std::vector<ProductMarginDay>& days) const {
        ForEachDay([&](std::int64_t day, double margin) {
            days.push_back({.day = NumberedDay(day),
                            .product = product_.product,
                            .name = product_.name,
                            .currency = product_.currency,
                            .margin = margin});
        });
    }

private:
    /// Of those that have margin.
    template <class OnDay>
    void ForEachDay(OnDay onDay) const {
        for (const auto& [day, amount] : days_) {
            if (const double margin = amount.Total(); margin > 0) onDay(day, margin);
        }
    }

    void TakeHighest(std::int64_t day, double margin, const Equities& equities) {
        if (margin > product_.max) {
            product_.max = margin;
            product_.maxDay = NumberedDay(day);
        }
        const auto equity = equities.find(day);
        if (equity == equities.end()) return;
        product_.maxUse = std::max(product_.maxUse.value_or(0), margin / equity->second);
    }

    ProductMargin product_;
    std::map<std::int64_t, CCompensatedSum> days_;
};

class CMarginWalk {
public:
    explicit CMarginWalk(CProductNames& products) : products_(products) {}

    /// A line whose margin isn't stated adds nothing.
    void Add(const PositionLine& line) {
        if (!line.margin) return;
        const ProductName& product = products_.Of(line.contract, line.delivery);
        const auto [found, isNew] = byKey_.try_emplace(GroupKey(line.currency, product.key), margins_.size());
        if (isNew) {
            ProductMargin margin;
            margin.product = product.key;
            margin.name = product.name;
            margin.currency = line.currency;
            margins_.emplace_back(std::move(margin));
        }
        margins_[found->second].Add(line.day, *line.margin);
    }

    /// Those that have margin, the largest first, and their days.
    void Finish(const Equities& equities, MarginResult& margin) {
        for (CProductDays& days : margins_) days.Finish(equities);
        std::erase_if(margins_, [](const CProductDays& days) { return days.Figures().days == 0; });
        std::ranges::stable_sort(margins_, std::greater{}, [](const CProductDays& days) { return days.Figures().max; });
        for (const CProductDays& days : margins_) {
            margin.products.push_back(days.Figures());
            days.AddDays(margin.productDays);
        }
    }

private:
    CProductNames& products_;
    std::vector<CProductDays> margins_;
    std::map<std::string, std::size_t> byKey_;
};

Equities EquitiesOf(const DayFigures& days) {
    Equities equities;
    for (std::size_t i = 0; i < days.days.size(); ++i) {
        const auto& equity = days.results[i].equity;
        if (equity && *equity > 0) equities[days.days[i].number] = *equity;
    }
    return equities;
}

void TakeUses(const std::vector<DayResult>& days, MarginResult& margin) {
    CCompensatedSum sum;
    std::int64_t count = 0;
    for (const DayResult& day : days) {
        if (!day.marginUse) continue;
        ++count;
        sum.Add(*day.marginUse);
        margin.max = std::max(margin.max.value_or(*day.marginUse), *day.marginUse);
        margin.above50 += *day.marginUse > 0.5 ? 1 : 0;
        margin.above80 += *day.marginUse > 0.8 ? 1 : 0;
        margin.above100 += *day.marginUse > 1 ? 1 : 0;
    }
    if (count > 0) margin.mean = sum.Total() / static_cast<double>(count);
}

}  // namespace

MarginResult MarginOf(const CReport& report, const DayFigures& days, CProductNames& products) {
    MarginResult margin;
    TakeUses(days.results, margin);
    CMarginWalk walk(products);
    std::set<std::int64_t> detailedDays;
    ForEachDetailLine(report, [&](const PositionLine& line) {
        walk.Add(line);
        if (line.margin) detailedDays.insert(line.day);
    });
    ForEachSummaryLine(report, [&](const PositionLine& line) {
        if (!detailedDays.contains(line.day)) walk.Add(line);
    });
    walk.Finish(report.IsForeign() ? Equities() : EquitiesOf(days), margin);
    return margin;
}

}  // namespace tradebill
