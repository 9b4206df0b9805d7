// Margin of products, day by day, on its way to its figures.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "analysis/compensated_sum.h"
#include "analysis/margin_results.h"

namespace tradebill {

class CProductNames;
class CReport;
struct PositionLine;

using Equities = std::unordered_map<std::int64_t, double>;  ///< above 0, by days

/// Margin of one product.
class CProductDays {
public:
    explicit CProductDays(ProductMargin product) : product_(std::move(product)) {}

    void Add(std::int64_t day, double margin) { days_[day].Add(margin); }

    /// The figures over the days.
    void Finish(const Equities& equities);

    /// REQUIRES: Finish was called.
    [[nodiscard]] const ProductMargin& Figures() const { return product_; }

    void AddDays(std::vector<ProductMarginDay>& days) const;

private:
    void TakeHighest(std::int64_t day, double margin, const Equities& equities);

    ProductMargin product_;
    std::map<std::int64_t, CCompensatedSum> days_;
};

/// The products of one account, or of several.
class CProductMargins {
public:
    /// Adds the rows of open positions, and on days where these state no margin, those of their summary. Neither of the
    /// two is kept.
    void Add(const CReport& report, CProductNames& products);

    /// Those that have margin, the largest first, and their days.
    void Finish(const Equities& equities, MarginResult& margin);

private:
    void Add(const PositionLine& line, CProductNames& products);

    std::vector<CProductDays> margins_;
    std::map<std::string, std::size_t> byKey_;
};

}  // namespace tradebill
