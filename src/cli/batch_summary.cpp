#include "cli/batch_summary.h"

#include <cstdint>
#include <iostream>
#include <string>

#include "batch/batch_places.h"
#include "batch/batch_run.h"
#include "batch/results_file.h"
#include "batch/shard.h"
#include "cli/file_address.h"
#include "cli/shown_text.h"
#include "cli/watched_run.h"
#include "driver/run_problems.h"
#include "platform/paths.h"

namespace tradebill {

bool SaveIndex(const CBatchPlaces& places, const IndexOptions& /*options*/) {
    const ReadResults read = LoadResults(places.Results());
    if (read.unread) {
        Fail(UnreadFileText(*read.unread));
        return false;
    }
    return true;
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
    const std::string index = places.PathOf(kIndexName);
    if (IsPlainFile(index)) std::cout << "  index             " << FileAddressOf(index) << "\n";
}

}  // namespace tradebill
