// The results of a batch for spreadsheets and other programs.
#pragma once

#include <iosfwd>

#include "batch/results_file.h"

namespace tradebill {

/// A table as csv_text.h writes it, a row an account, findings first. Paths are relative to the batch's folder. False
/// if not all could be written.
[[nodiscard]] bool WriteSummaryCsv(const ResultsByAccount& results, std::ostream& out);

}  // namespace tradebill
