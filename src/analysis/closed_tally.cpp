#include "analysis/closed_tally.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "analysis/closed_results.h"

namespace tradebill {
namespace {

/// REQUIRES: there is a value; they are in order.
double MedianOf(const std::vector<std::int64_t>& values) {
    const std::size_t half = values.size() / 2;
    if (values.size() % 2 != 0) return static_cast<double>(values[half]);
    return static_cast<double>(values[half - 1] + values[half]) / 2;
}

double Share(std::int64_t part, std::int64_t all) {
    return static_cast<double>(part) / static_cast<double>(all);
}

}  // namespace

void CClosedTally::Add(const ClosedRow& row) {
    ++count_;
    lots_ += row.lots;
    AddResult(row.pl);
    statedPl_.Add(row.statedPl.value_or(0));
    statesPl_ &= row.statedPl.has_value();
    if (row.holdingDays) holdingDays_.push_back(*row.holdingDays);
    fees_.Add(row.fees.value_or(0));
    knowsFees_ |= row.fees.has_value();
    if (row.lacksFees) lotsWithoutFees_ += row.lots;
    turnover_.Add(row.turnover.value_or(0));
    knowsTurnover_ &= row.turnover.has_value();
}

void CClosedTally::AddResult(double pl) {
    pl_.Add(pl);
    if (pl > 0) {
        ++winCount_;
        wins_.Add(pl);
        largestWin_ = std::max(largestWin_, pl);
    } else if (pl < 0) {
        ++lossCount_;
        losses_.Add(pl);
        largestLoss_ = std::min(largestLoss_, pl);
    }
}

void CClosedTally::Fill(ClosedGroup& group) {
    group.count = count_;
    group.lots = lots_;
    group.pl = pl_.Total();
    if (statesPl_) group.statedPl = statedPl_.Total();
    FillResults(group);
    FillHolding(group);
    if (knowsFees_) group.fees = fees_.Total();
    group.lotsWithoutFees = lotsWithoutFees_;
    if (knowsTurnover_) group.turnover = turnover_.Total();
}

void CClosedTally::FillResults(ClosedGroup& group) const {
    group.wins = winCount_;
    group.losses = lossCount_;
    group.flats = count_ - winCount_ - lossCount_;
    group.winRate = Share(winCount_, count_);
    group.expectancy = pl_.Total() / static_cast<double>(count_);
    if (winCount_ > 0) {
        group.averageWin = wins_.Total() / static_cast<double>(winCount_);
        group.largestWin = largestWin_;
    }
    if (lossCount_ > 0) {
        group.averageLoss = losses_.Total() / static_cast<double>(lossCount_);
        group.largestLoss = largestLoss_;
        group.profitFactor = wins_.Total() / std::fabs(losses_.Total());
    }
}

void CClosedTally::FillHolding(ClosedGroup& group) {
    if (holdingDays_.empty()) return;
    std::ranges::sort(holdingDays_);
    const auto rows = static_cast<std::int64_t>(holdingDays_.size());
    std::int64_t sum = 0;
    for (const std::int64_t days : holdingDays_) sum += days;
    group.medianHoldingDays = MedianOf(holdingDays_);
    group.meanHoldingDays = Share(sum, rows);
    group.intradayShare = Share(std::ranges::count(holdingDays_, 0), rows);
}

}  // namespace tradebill
