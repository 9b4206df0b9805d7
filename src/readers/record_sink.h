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
/// REQUIRES: no money record is null, and report and listener outlive it.
class CRecordSink {
public:
    CRecordSink(CReport& report, CScanListener* listener) : report_(report), listener_(listener) {}
    CRecordSink(const CRecordSink&) = delete;
    CRecordSink& operator=(const CRecordSink&) = delete;

    void Add(std::unique_ptr<MoneyRecord> record);

    /// A cleared row in its place behind the store's last, to be filled and added. One that isn't added is as if it had
    /// never been.
    template <class Record>
    [[nodiscard]] Record& NewRow();

    // REQUIRES, of the next five: the row is the one that NewRow gave last.
    void Add(const MatchRecord& row);
    void Add(const PingDetail& row);
    void Add(const OpiDetail& row);

    /// For layouts that print each position in detail too, and feed that to the series.
    void Add(const OpiSum& row);

    /// For layouts whose only positions are sums: the series are fed first.
    void AddOnlyPosition(const OpiSum& row);

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
    void Tell(const RecordSeen& record) const {
        if (listener_ != nullptr) listener_->OnRecord(record);
    }

    CReport& report_;
    CScanListener* listener_;
};

template <>
MatchRecord& CRecordSink::NewRow<MatchRecord>();
template <>
PingDetail& CRecordSink::NewRow<PingDetail>();
template <>
OpiDetail& CRecordSink::NewRow<OpiDetail>();
template <>
OpiSum& CRecordSink::NewRow<OpiSum>();

}  // namespace tradebill
