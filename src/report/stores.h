// The room of what a run has read: statement rows come in from the readers, one by one, and stay until the next run
// clears them. Statistics, pictures and page read them here.
//
// records.h tells what a row is; money_store.h the account's days and totals; row_store.h the plain lists;
// report_document.h the tally of closed positions; chain_table.h which products belong together.
#pragma once

#include "report/currency_money_store.h"
#include "report/money_store.h"
#include "report/records.h"
#include "report/row_store.h"

namespace tradebill {

using CMatchStore = CRowStore<MatchRecord>;
using CPingDetailStore = CRowStore<PingDetail>;
using COpiDetailStore = CRowStore<OpiDetail>;
using COpiSumStore = CRowStore<OpiSum>;

extern CMatchStore MatchStore;
extern CPingDetailStore PingDetailStore;
extern COpiDetailStore OpiDetailStore;
extern COpiSumStore OpiSumStore;

}  // namespace tradebill
