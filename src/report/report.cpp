#include "report/report.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tradebill {

std::int32_t CReport::AskContractUnit(std::string_view contract, std::string_view delivery) const {
    constexpr std::size_t kLongestText = 63;
    return Products != nullptr ? Products->UnitOf(contract.substr(0, kLongestText), delivery.substr(0, kLongestText))
                               : 1;
}

void CReport::Clear() {
    AccountStatistics.Clear();
    MoneyStore.Clear();
    CurrencyMoneyStore.Clear();
    MatchStore.Clear();
    OpiSumStore.Clear();
    OpiDetailStore.Clear();
    PingDetailStore.Clear();
    ForeignClosedStore.Clear();
    ReportDocument.ClearOffsets();
    ReportDocument.SavedPictures.clear();
    TradeStatistics.Clear();
    ChainTable.Clear();
    PrintedMoney.clear();
    SideRecords = {};
    MoneyIdentity = {};
}

}  // namespace tradebill
