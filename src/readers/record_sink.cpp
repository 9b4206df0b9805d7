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

void CRecordSink::Add(std::unique_ptr<MatchRecord> record) {
    TellOfRecord();
    report_.MatchStore.Add(std::move(record));
}

void CRecordSink::Add(std::unique_ptr<PingDetail> record) {
    TellOfRecord();
    const PingDetail& row = *record;
    report_.PingDetailStore.Add(std::move(record));
    FoldClosedRow(row, report_);
}

void CRecordSink::Add(std::unique_ptr<OpiDetail> record) {
    TellOfRecord();
    CProductText product(FieldText(record->CONTRACT));
    if (report_.Format().printsNames) product.TakeName(report_.Products);
    report_.TradeStatistics.FeedOpiDetail(*record, product.View());
    report_.OpiDetailStore.Add(std::move(record));
}

void CRecordSink::Add(std::unique_ptr<OpiSum> record) {
    TellOfRecord();
    report_.OpiSumStore.Add(std::move(record));
}

void CRecordSink::AddOnlyPosition(std::unique_ptr<OpiSum> record) {
    const CProductText product(FieldText(record->CONTRACT));
    report_.TradeStatistics.FeedOpiSum(*record, product.View());
    Add(std::move(record));
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
    TellOfRecord();
    FoldForeignClosedRow(row, report_);
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
