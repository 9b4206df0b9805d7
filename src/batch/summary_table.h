// The results of a batch as one table: a row an account, findings first.
#pragma once

#include <span>

#include "batch/results_file.h"
#include "export/table.h"

namespace tradebill {

/// Who reads the table.
enum class SummaryReader {
    Spreadsheet,  ///< the worst finding alone, and files as paths relative to the batch's folder
    Page,         ///< all worst findings, one a line, and files as addresses relative to the page
};

[[nodiscard]] std::span<const ExportColumn> SummaryColumns();

/// Hands out each account in the order of FindingsFirst. What an account doesn't have is nothing, never 0.
void WalkSummary(const ResultsByAccount& results, SummaryReader reader, CRowSink& sink);

}  // namespace tradebill
