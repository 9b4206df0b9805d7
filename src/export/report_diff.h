// What differs between two reports, figure by figure.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace tradebill {

class CReportFigures;

/// A figure that isn't the same, or a row or name that only one of them has.
struct ReportDifference {
    std::string place;                 ///< "money.Records[20240103].KHQY"
    std::optional<std::string> left;   ///< as JSON; nothing: it isn't there
    std::optional<std::string> right;  ///< likewise
};

/// Tells `onDifference` of all of them, block by block in the order of the JSON. Rows are compared by their keys,
/// wherever they stand. Of an amount that a record has as text and as number the text alone is told.
void CompareReports(const CReportFigures& left, const CReportFigures& right,
                    const std::function<void(const ReportDifference&)>& onDifference);

}  // namespace tradebill
