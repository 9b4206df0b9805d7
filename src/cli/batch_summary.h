// What a batch leaves for people: the accounts' index, a table of them, and a few lines.
#pragma once

#include <string>

#include "batch/batch_places.h"
#include "batch/batch_run.h"
#include "batch/shard.h"

namespace tradebill {

struct IndexOptions {
    std::string today;  ///< of the batch, yyyy-mm-dd
    double riskLimit;   ///< of margin use
};

/// Writes index and table of all accounts in the results. False if they can't be written, which is told.
[[nodiscard]] bool SaveIndex(const CBatchPlaces& places, const IndexOptions& options);

/// Prints what came of the accounts, and where all of it is.
void ShowBatchSummary(const CBatchPlaces& places, const BatchEnd& end, const Shard& shard);

}  // namespace tradebill
