#include "analysis/product_margins.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "analysis/compensated_sum.h"
#include "analysis/group_key.h"
#include "analysis/margin_results.h"
#include "analysis/position_rows.h"
#include "analysis/product_names.h"
#include "base/day_number.h"
#include "report/report.h"

namespace tradebill {
namespace {

/// Of the days that have margin.
template <class Days, class OnDay>
void ForEachDay(const Days& days, OnDay onDay) {
    for (const auto& [day, amount] : days) {
        if (const double margin = amount.Total(); margin > 0) onDay(day, margin);
    }
}

}  // namespace

void CProductDays::Finish(const Equities& equities) {
    CCompensatedSum sum;
    ForEachDay(days_, [&](std::int64_t day, double margin) {
        ++product_.days;
        sum.Add(margin);
        TakeHighest(day, margin, equities);
    });
    if (product_.days > 0) product_.mean = sum.Total() / static_cast<double>(product_.days);
}

void CProductDays::AddDays(std::vector<ProductMarginDay>& days) const {
    ForEachDay(days_, [&](std::int64_t day, double margin) {
        days.push_back({.day = NumberedDay(day),
                        .product = product_.product,
                        .name = product_.name,
                        .currency = product_.currency,
                        .margin = margin});
    });
}

void CProductDays::TakeHighest(std::int64_t day, double margin, const Equities& equities) {
    if (margin > product_.max) {
        product_.max = margin;
        product_.maxDay = NumberedDay(day);
    }
    const auto equity = equities.find(day);
    if (equity == equities.end()) return;
    product_.maxUse = std::max(product_.maxUse.value_or(0), margin / equity->second);
}

void CProductMargins::Add(const CReport& report, CProductNames& products) {
    std::set<std::int64_t> detailedDays;
    ForEachDetailLine(report, [&](const PositionLine& line) {
        Add(line, products);
        if (line.margin) detailedDays.insert(line.day);
    });
    ForEachSummaryLine(report, [&](const PositionLine& line) {
        if (!detailedDays.contains(line.day)) Add(line, products);
    });
}

/// A line whose margin isn't stated adds nothing.
void CProductMargins::Add(const PositionLine& line, CProductNames& products) {
    if (!line.margin) return;
    const ProductName& product = products.Of(line.contract, line.delivery);
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

void CProductMargins::Finish(const Equities& equities, MarginResult& margin) {
    for (CProductDays& days : margins_) days.Finish(equities);
    std::erase_if(margins_, [](const CProductDays& days) { return days.Figures().days == 0; });
    std::ranges::stable_sort(margins_, std::greater{}, [](const CProductDays& days) { return days.Figures().max; });
    for (const CProductDays& days : margins_) {
        margin.products.push_back(days.Figures());
        days.AddDays(margin.productDays);
    }
}

}  // namespace tradebill
