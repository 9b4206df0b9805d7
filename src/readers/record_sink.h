// Where a reader's records go: each to its store, and to the tallies and series that grow row by row.
#pragma once

#include <memory>
#include <string_view>

#include "readers/scan_listener.h"
#include "report/money_record.h"
#include "report/records.h"

namespace tradebill {

class CReport;

/// Takes the records of one statement, and tells the listener, which may be null, of each.
///
/// REQUIRES: no record is null, and report and listener outlive it.
class CRecordSink {
public:
    CRecordSink(CReport& report, CScanListener* listener) : report_(report), listener_(listener) {}
    CRecordSink(const CRecordSink&) = delete;
    CRecordSink& operator=(const CRecordSink&) = delete;

    void Add(std::unique_ptr<MoneyRecord> record);
    void Add(std::unique_ptr<MatchRecord> record);
    void Add(std::unique_ptr<PingDetail> record);
    void Add(std::unique_ptr<OpiDetail> record);

    /// For layouts that print each position in detail too, and feed that to the series.
    void Add(std::unique_ptr<OpiSum> record);

    /// For layouts whose only positions are sums: the series are fed first.
    void AddOnlyPosition(std::unique_ptr<OpiSum> record);

    /// The money of a foreign account: its base column, and one currency's.
    void AddForeignAccount(const MoneyRecord& record);
    void AddCurrency(const MoneyRecord& record, std::string_view currency);

    /// A closed position of a foreign account is tallied, not kept.
    void AddForeignClosed(const PingDetail& row);

    /// The day's realised P/L, where the money section doesn't state it: `text` becomes PCYK of the day's record. The
    /// series get `amount` even for a day without a record.
    /// REQUIRES: the day's money record, if the statement has one, was added before.
    void SetDayClosedPL(std::string_view day, std::string_view text, double amount);

    /// The day's mark-to-market P/L likewise: `text` becomes CCDSYK.
    void SetDayPositionPL(std::string_view day, std::string_view text, double amount);

private:
    void TellOfRecord() const {
        if (listener_ != nullptr) listener_->OnRecord();
    }

    CReport& report_;
    CScanListener* listener_;
};

}  // namespace tradebill
