#include "analysis/margin_use.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "analysis/compensated_sum.h"
#include "analysis/day_figures.h"
#include "analysis/day_results.h"
#include "analysis/margin_results.h"
#include "analysis/product_margins.h"

namespace tradebill {
namespace {

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

MarginResult MarginOf(CProductMargins products, const DayFigures& days, bool isForeign) {
    MarginResult margin;
    TakeUses(days.results, margin);
    products.Finish(isForeign ? Equities() : EquitiesOf(days), margin);
    return margin;
}

}  // namespace tradebill
