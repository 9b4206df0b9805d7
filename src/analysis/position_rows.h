// The open positions that statements list, row by row, whichever table of theirs has them.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "report/report.h"

namespace tradebill {

/// One row of open positions, or of their summary. Texts point into the report.
struct PositionLine {
    std::int64_t day = 0;  ///< DayNumberOf
    std::string_view contract;
    std::string_view delivery;
    std::string_view bid;
    std::string_view currency;  ///< of a foreign account
    std::int64_t lots = 0;
    std::optional<std::int64_t> openDay;
    std::optional<double> floatPl;
    /// As the statement's row states it. Where that holds both sides of a contract, its buy line has the margin of
    /// both, and its sell line none.
    std::optional<double> margin;
    bool sharesMargin = false;  ///< the statement's row holds both sides
};

/// Nothing for a row of no day.
[[nodiscard]] std::optional<PositionLine> LineOf(const OpiDetail& row, const CReport& report);
[[nodiscard]] std::optional<PositionLine> LineOf(const OpiSum& row);

/// Whether both are made of one row of a statement, which states one margin: all that the row says once is the same,
/// and they are its two sides.
[[nodiscard]] bool AreSidesOfOneRow(const OpiSum& bought, const OpiSum& sold);

/// Calls `onLine(const PositionLine&)` for each row of open positions, in the order of reading.
template <class OnLine>
void ForEachDetailLine(const CReport& report, OnLine onLine) {
    for (const OpiDetail& row : report.OpiDetailStore.Rows) {
        if (const auto line = LineOf(row, report)) onLine(*line);
    }
}

/// The same for each row of their summary.
template <class OnLine>
void ForEachSummaryLine(const CReport& report, OnLine onLine) {
    const OpiSum* before = nullptr;
    std::optional<PositionLine> waiting;  // the line of `before`, until it is known what comes behind it
    for (const OpiSum& row : report.OpiSumStore.Rows) {
        auto line = LineOf(row);
        if (line && waiting && AreSidesOfOneRow(*before, row)) {
            line->margin.reset();
            line->sharesMargin = waiting->sharesMargin = true;
        }
        if (waiting) onLine(*waiting);
        waiting = line;
        before = &row;
    }
    if (waiting) onLine(*waiting);
}

}  // namespace tradebill
