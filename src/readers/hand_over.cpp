#include "readers/hand_over.h"

#include <utility>

#include "report/report_document.h"
#include "report/stores.h"
#include "report/trade_statistics.h"

namespace tradebill {
namespace {

void TellOfRecord(CScanListener* listener) {
    if (listener != nullptr) listener->OnRecord();
}

}  // namespace

void HandOver(std::unique_ptr<MoneyRecord> record, CScanListener* listener) {
    if (listener != nullptr) listener->OnMoney(*record, {});
    TradeStatistics.FeedDayMoney(record.get());
    MoneyStore.Add(std::move(record), MoneySource::Statement);
}

void HandOver(std::unique_ptr<MatchRecord> record, CScanListener* listener) {
    TellOfRecord(listener);
    MatchStore.Add(std::move(record));
}

void HandOver(std::unique_ptr<PingDetail> record, CScanListener* listener) {
    TellOfRecord(listener);
    const PingDetail& row = *record;
    PingDetailStore.Add(std::move(record));
    ReportDocument.FoldClosedRow(row);
}

void HandOver(std::unique_ptr<OpiDetail> record, CScanListener* listener) {
    TellOfRecord(listener);
    TradeStatistics.FeedOpiDetail(*record);
    OpiDetailStore.Add(std::move(record));
}

void HandOver(std::unique_ptr<OpiSum> record, CScanListener* listener) {
    TellOfRecord(listener);
    OpiSumStore.Add(std::move(record));
}

void FeedAndHandOver(std::unique_ptr<OpiSum> record, CScanListener* listener) {
    TradeStatistics.FeedOpiSum(*record);
    HandOver(std::move(record), listener);
}

void ReportDayClosedPL(std::string_view day, std::string_view text, double amount) {
    CMoneyStore::SetDayClosedPL(day, text);
    TradeStatistics.SetClosedPL(day, amount);
}

void ReportDayPositionPL(std::string_view day, std::string_view text, double amount) {
    MoneyStore.SetDayPositionPL(day, text, amount);
    TradeStatistics.SetPositionPL(day, amount);
}

}  // namespace tradebill
