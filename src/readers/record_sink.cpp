#include "readers/record_sink.h"

#include <memory>
#include <utility>

#include "base/text.h"
#include "report/closed_rows.h"
#include "report/money_record.h"
#include "report/money_store.h"
#include "report/product_text.h"
#include "report/records.h"
#include "report/report.h"

namespace tradebill {

void CRecordSink::Add(std::unique_ptr<MoneyRecord> record) {
    if (listener_ != nullptr) listener_->OnMoney(*record, {});
    report_.TradeStatistics.FeedDayMoney(record.get());
    report_.MoneyStore.Add(std::move(record), MoneySource::Statement, report_.Format().equity);
}

template <>
MatchRecord& CRecordSink::NewRow<MatchRecord>() {
    return report_.MatchStore.Rows.NewRow();
}
template <>
PingDetail& CRecordSink::NewRow<PingDetail>() {
    return report_.PingDetailStore.Rows.NewRow();
}
template <>
OpiDetail& CRecordSink::NewRow<OpiDetail>() {
    return report_.OpiDetailStore.Rows.NewRow();
}
template <>
OpiSum& CRecordSink::NewRow<OpiSum>() {
    return report_.OpiSumStore.Rows.NewRow();
}

void CRecordSink::Add(const MatchRecord& row) {
    Tell(&row);
    report_.MatchStore.Rows.KeepRow();
}

void CRecordSink::Add(const PingDetail& row) {
    Tell(&row);
    report_.PingDetailStore.Rows.KeepRow();
    FoldClosedRow(row, report_);
}

void CRecordSink::Add(const OpiDetail& row) {
    Tell(&row);
    CProductText product(FieldText(row.CONTRACT));
    if (report_.Format().printsNames) product.TakeName(report_.Products);
    report_.TradeStatistics.FeedOpiDetail(row, product.View());
    report_.OpiDetailStore.Rows.KeepRow();
}

void CRecordSink::Add(const OpiSum& row) {
    Tell(&row);
    report_.OpiSumStore.Rows.KeepRow();
}

void CRecordSink::AddOnlyPosition(const OpiSum& row) {
    const CProductText product(FieldText(row.CONTRACT));
    report_.TradeStatistics.FeedOpiSum(row, product.View());
    Add(row);
}

void CRecordSink::AddForeignAccount(const MoneyRecord& record) {
    report_.TradeStatistics.FeedDayMoney(&record);
    report_.MoneyStore.Add(std::make_unique<MoneyRecord>(record), MoneySource::Statement, report_.Format().equity);
}

void CRecordSink::AddCurrency(const MoneyRecord& record, std::string_view currency) {
    if (listener_ != nullptr) listener_->OnMoney(record, currency);
    report_.CurrencyMoneyStore.Add(std::make_unique<MoneyRecord>(record), currency, MoneySource::Statement,
                                   report_.Format().equity);
}

void CRecordSink::AddForeignClosed(const PingDetail& row) {
    Tell(&row);
    FoldForeignClosedRow(row, report_);
    report_.ForeignClosedStore.Add() = row;
}

void CRecordSink::SetDayClosedPL(std::string_view day, std::string_view text, double amount) {
    report_.MoneyStore.SetDayClosedPL(day, text);
    report_.TradeStatistics.SetClosedPL(day, amount);
}

void CRecordSink::SetDayPositionPL(std::string_view day, std::string_view text, double amount) {
    report_.MoneyStore.SetDayPositionPL(day, text, amount);
    report_.TradeStatistics.SetPositionPL(day, amount);
}

}  // namespace tradebill
