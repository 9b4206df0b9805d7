// Where a reader's records go: each to its store, and to the statistics that grow row by row.
#pragma once

#include <memory>

#include "statement/records.h"

namespace tradebill {

void HandOver(std::unique_ptr<MoneyRecord> record);
void HandOver(std::unique_ptr<MatchRecord> record);
void HandOver(std::unique_ptr<PingDetail> record);
void HandOver(std::unique_ptr<OpiDetail> record);
void HandOver(std::unique_ptr<OpiSum> record);  ///< not fed to the statistics: these layouts feed their detail rows

}  // namespace tradebill
