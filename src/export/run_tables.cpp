#include "export/run_tables.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "analysis/analysis.h"
#include "analysis/analysis_fields.h"
#include "export/table.h"
#include "findings/finding.h"
#include "findings/finding_table.h"
#include "readers/scan_listener.h"
#include "report/figure_fields.h"
#include "report/product_source.h"
#include "report/product_unit.h"
#include "report/report.h"

namespace tradebill {
namespace {

ExportCell NumberCell(const FigureValue& figure) {
    if (const auto* const count = std::get_if<std::int32_t>(&figure)) return static_cast<double>(*count);
    return std::get<double>(figure);
}

template <class Owner, std::size_t N>
void WalkFiguresOf(const Owner& owner, const FigureField<Owner> (&fields)[N], const std::string& path, CRowSink& sink) {
    std::array<ExportCell, std::size(kFigureColumns)> cells;
    for (const auto& field : fields) {
        const FigureValue figure = field.value(owner);
        if (std::holds_alternative<std::string_view>(figure)) continue;
        const std::string name = path + (field.isInner ? "inner." : "") + std::string(field.name);
        cells = {Utf8Cell{name}, NumberCell(figure), {}};
        sink.OnRow(cells);
    }
}

ExportCell ReasonOf(const Analysis& analysis, std::string_view path) {
    const auto found = std::ranges::find(analysis.reasons, path, &NullReason::path);
    return found == analysis.reasons.end() ? ExportCell() : ExportCell(Utf8Cell{found->reason});
}

/// A count is a number among others here.
ExportCell NumberCell(const AnalysisValue& value) {
    if (const auto* const count = std::get_if<std::int64_t>(&value)) return static_cast<double>(*count);
    const auto* const number = std::get_if<double>(&value);
    return number == nullptr ? ExportCell() : ExportCell(*number);
}

}  // namespace

void WalkUnits(const ExportSource& source, CRowSink& sink) {
    if (source.report.Products == nullptr) return;
    std::array<ExportCell, std::size(kUnitColumns)> cells;
    const std::vector<ProductUnit> units = source.report.Products->UsedUnits();
    for (const ProductUnit& used : units) {
        cells = {GbkCell{used.product}, std::int64_t{used.unit}, Utf8Cell{UnitSourceName(used.source)}};
        sink.OnRow(cells);
    }
}

void WalkFigures(const ExportSource& source, CRowSink& sink) {
    WalkFiguresOf(source.report.MoneyStore, kMoneyFigures, "money.", sink);
    WalkFiguresOf(source.report.AccountStatistics, kAccountFigures, "account.", sink);
    WalkAnalysisFigures(source, sink);
}

void WalkAnalysisFigures(const ExportSource& source, CRowSink& sink) {
    const Analysis& analysis = source.analysis;
    std::array<ExportCell, std::size(kFigureColumns)> cells;
    const auto onObject = [&](std::string_view object, const auto& owner, const auto& fields) {
        for (const auto& field : fields) {
            const std::string name = std::string(object).append(".").append(field.name);
            cells = {Utf8Cell{name}, NumberCell(field.value(owner)), ReasonOf(analysis, name)};
            sink.OnRow(cells);
        }
    };
    cells = {Utf8Cell{"tradingDays"}, static_cast<double>(analysis.tradingDays), {}};
    sink.OnRow(cells);
    VisitAnalysis(analysis, onObject, [](std::string_view, const auto&, const auto&) {});
}

void WalkFindings(const ExportSource& source, CRowSink& sink) {
    std::array<ExportCell, std::size(kFindingColumns)> cells;
    for (const Finding& finding : source.findings) {
        const std::string text = SentencesOf(finding);
        cells = {Utf8Cell{KindOf(finding.code).name},
                 Utf8Cell{SeverityName(finding.severity)},
                 DayCell{finding.day},
                 Utf8Cell{finding.file},
                 finding.row ? ExportCell(std::int64_t{*finding.row}) : ExportCell(),
                 Utf8Cell{finding.section ? SectionName(*finding.section) : std::string_view()},
                 Utf8Cell{finding.expected},
                 Utf8Cell{finding.found},
                 Utf8Cell{text}};
        sink.OnRow(cells);
    }
}

}  // namespace tradebill
