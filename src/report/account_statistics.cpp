#include "report/account_statistics.h"

namespace tradebill {

constinit CAccountStatistics AccountStatistics;

}  // namespace tradebill
