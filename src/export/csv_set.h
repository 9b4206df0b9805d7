// All tables as CSV files of one folder.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "export/table.h"

namespace tradebill {

inline constexpr std::string_view kLongestCsvName = "/position_sums.csv.older";  ///< behind a folder's path

struct CsvProblem {
    std::string path;
    std::string reason;  ///< in words, UTF-8; may be empty
};

struct CsvProblems {
    std::optional<CsvProblem> unwritten;  ///< the file that kept the set from its places
    std::optional<CsvProblem> leftover;   ///< what can't be removed beside them, which the next run does

    [[nodiscard]] bool IsEmpty() const { return !unwritten && !leftover; }
};

/// Whether `name` is that of a file that SaveCsvSet writes.
[[nodiscard]] bool IsCsvName(std::string_view name);

/// Writes each table into the file of its name in `folder`. All are made beside their places, on the disk itself, and
/// take them at the end, one after the other. If that fails, the files of before are all in their places; those that
/// can't get back there stay beside them as NAME.csv.older. What a dead run has left is cleared up.
///
/// REQUIRES: nobody else writes to `folder`.
[[nodiscard]] CsvProblems SaveCsvSet(const std::string& folder, const ExportSource& source);

}  // namespace tradebill
