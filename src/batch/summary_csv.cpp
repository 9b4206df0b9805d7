#include "batch/summary_csv.h"

#include <ios>
#include <ostream>
#include <string_view>

#include "batch/results_file.h"
#include "batch/summary_table.h"
#include "export/csv_text.h"

namespace tradebill {

bool WriteSummaryCsv(const ResultsByAccount& results, std::ostream& out) {
    CCsvText text(SummaryColumns(), [&](std::string_view piece) {
        return out.write(piece.data(), static_cast<std::streamsize>(piece.size())).good();
    });
    WalkSummary(results, SummaryReader::Spreadsheet, text);
    return text.Finish();
}

}  // namespace tradebill
