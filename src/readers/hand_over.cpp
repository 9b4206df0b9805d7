#include "readers/hand_over.h"

#include <utility>

#include "statement/report_document.h"
#include "statement/stores.h"
#include "statistics/trade_statistics.h"

namespace tradebill {

void HandOver(std::unique_ptr<MoneyRecord> record) {
    TradeStatistics.FeedDayMoney(record.get());
    MoneyStore.Add(std::move(record), MoneySource::Statement);
}

void HandOver(std::unique_ptr<MatchRecord> record) {
    MatchStore.Add(std::move(record));
}

void HandOver(std::unique_ptr<PingDetail> record) {
    const PingDetail& row = *record;
    PingDetailStore.Add(std::move(record));
    ReportDocument.FoldClosedRow(row);
}

void HandOver(std::unique_ptr<OpiDetail> record) {
    TradeStatistics.FeedOpiDetail(*record);
    OpiDetailStore.Add(std::move(record));
}

void HandOver(std::unique_ptr<OpiSum> record) {
    OpiSumStore.Add(std::move(record));
}

}  // namespace tradebill
