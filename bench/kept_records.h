// How much a report keeps of its statements.
#pragma once

#include "report/report.h"

namespace tradebill {

namespace kept_records {

/// Calls `onStore(store's count, bytes of one of its records)` for each store.
template <class OnStore>
void ForEachStore(const CReport& report, OnStore onStore) {
    onStore(report.MoneyStore.Count(), sizeof(MoneyRecord));
    onStore(report.MatchStore.Count(), sizeof(MatchRecord));
    onStore(report.PingDetailStore.Count(), sizeof(PingDetail));
    onStore(report.OpiDetailStore.Count(), sizeof(OpiDetail));
    onStore(report.OpiSumStore.Count(), sizeof(OpiSum));
    for (const std::string& name : report.CurrencyMoneyStore.Names) {
        onStore(report.CurrencyMoneyStore.Find(name)->Count(), sizeof(MoneyRecord));
    }
}

}  // namespace kept_records

[[nodiscard]] inline double KeptRows(const CReport& report) {
    double rows = 0;
    kept_records::ForEachStore(report, [&](double count, std::size_t) { rows += count; });
    return rows;
}

/// The records' own bytes, and nothing of what holds them together.
[[nodiscard]] inline double KeptBytes(const CReport& report) {
    double bytes = 0;
    kept_records::ForEachStore(report,
                               [&](double count, std::size_t size) { bytes += count * static_cast<double>(size); });
    return bytes;
}

}  // namespace tradebill
