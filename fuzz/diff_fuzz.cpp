// Any two texts as the JSON of two runs: what is no report is refused, and what is compared is the same both ways.
#include <cstddef>
#include <exception>
#include <memory>
#include <string>
#include <string_view>

#include "export/report_diff.h"
#include "export/report_figures.h"
#include "fuzz_target.h"

namespace tradebill {
namespace {

/// Null for what is no JSON of a report.
std::unique_ptr<CReportFigures> FiguresOf(std::string_view text) {
    try {
        return std::make_unique<CReportFigures>(text);
    } catch (const CNoReportJson&) {
        return nullptr;
    }
}

std::size_t CountDifferences(const CReportFigures& left, const CReportFigures& right) {
    std::size_t count = 0;
    CompareReports(left, right, [&](const ReportDifference& difference) {
        Require(difference.left.has_value() || difference.right.has_value(), "a difference is of one side at least");
        ++count;
    });
    return count;
}

}  // namespace

void FuzzDiff(std::string_view bytes) {
    const std::size_t end = bytes.find('\0');
    const auto left = FiguresOf(bytes.substr(0, end));
    if (left == nullptr) return;
    Require(CountDifferences(*left, *left) == 0, "a report doesn't differ from itself");
    const auto right = FiguresOf(end == std::string_view::npos ? std::string_view() : bytes.substr(end + 1));
    if (right == nullptr) return;
    Require(CountDifferences(*left, *right) == CountDifferences(*right, *left), "differences are the same both ways");
}

}  // namespace tradebill
