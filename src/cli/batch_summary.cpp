#include "cli/batch_summary.h"

#include <cstdint>
#include <functional>
#include <iostream>
#include <ostream>
#include <string>

#include "base/day.h"
#include "batch/accounts_page.h"
#include "batch/batch_places.h"
#include "batch/batch_run.h"
#include "batch/results_file.h"
#include "batch/shard.h"
#include "batch/summary_csv.h"
#include "cli/file_address.h"
#include "cli/output_file.h"
#include "cli/shown_text.h"
#include "cli/voice.h"
#include "driver/run_problems.h"
#include "explore/viewer_template.h"
#include "platform/paths.h"
#include "platform/system_error.h"

namespace tradebill {
namespace {

bool Save(const std::string& path, const std::function<bool(std::ostream&)>& write) {
    if (COutputFile("--out", path).Save(write)) return true;
    const std::string reason = SystemErrorText(LastSystemError());
    Fail("can't write " + NativePath(path) + (reason.empty() ? "" : ": " + reason));
    return false;
}

}  // namespace

bool SaveIndex(const CBatchPlaces& places, const IndexOptions& options) {
    const ReadResults read = LoadResults(places.Results());
    if (read.unread) {
        Fail(UnreadFileText(*read.unread));
        return false;
    }
    const auto writeTable = [&](std::ostream& out) { return WriteSummaryCsv(read.results, out); };
    const auto writeIndex = [&](std::ostream& out) {
        return WriteAccountsPage(
            AccountsTemplate(),
            {.results = read.results, .today = DayText(ParseDashedDay(options.today)), .riskLimit = options.riskLimit},
            out);
    };
    const bool isTableSaved = Save(places.PathOf(kSummaryName), writeTable);
    if (AccountsTemplate().empty()) return isTableSaved;  // built without the viewer
    return Save(places.PathOf(kIndexName), writeIndex) && isTableSaved;
}

void ShowBatchSummary(const CBatchPlaces& places, const BatchEnd& end, const Shard& shard) {
    const BatchCounts& counts = end.counts;
    const std::int64_t good = counts.kept + counts.done - counts.findings - counts.failed;
    std::cout << (shard.count > 1 ? "Shard " + ShardName(shard) + ", " : std::string()) << counts.accounts
              << (counts.accounts == 1 ? " account: " : " accounts: ") << good << " well, " << counts.findings
              << " with findings, " << counts.failed << " failed";
    if (counts.Left() > 0) std::cout << ", " << counts.Left() << " left (--resume goes on)";
    std::cout << "\n";
    if (counts.kept > 0) std::cout << "  kept from before  " << counts.kept << "\n";
    std::cout << "  results           " << ShownText(NativePath(places.Results())) << "\n";
    if (shard.count > 1) return;
    std::cout << "  summary           " << ShownText(NativePath(places.PathOf(kSummaryName))) << "\n";
    if (!AccountsTemplate().empty()) {
        std::cout << "  index             " << FileAddressOf(places.PathOf(kIndexName)) << "\n";
    }
}

}  // namespace tradebill
