#include "report/stores.h"

namespace tradebill {

CMatchStore MatchStore;
CPingDetailStore PingDetailStore;
COpiDetailStore OpiDetailStore;
COpiSumStore OpiSumStore;

}  // namespace tradebill
