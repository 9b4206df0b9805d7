#include "statement/stores.h"

namespace tradebill {

constinit CMatchStore MatchStore;
constinit CPingDetailStore PingDetailStore;
constinit COpiDetailStore OpiDetailStore;
constinit COpiSumStore OpiSumStore;

}  // namespace tradebill
