// Where a reader's records go: each to its store, and to the statistics that grow row by row.
#pragma once

#include <memory>
#include <string_view>

#include "readers/scan_listener.h"
#include "report/records.h"

namespace tradebill {

void HandOver(std::unique_ptr<MoneyRecord> record, CScanListener* listener = nullptr);
void HandOver(std::unique_ptr<MatchRecord> record, CScanListener* listener = nullptr);
void HandOver(std::unique_ptr<PingDetail> record, CScanListener* listener = nullptr);
void HandOver(std::unique_ptr<OpiDetail> record, CScanListener* listener = nullptr);

/// For layouts that print each position in detail too, and feed that to the statistics.
void HandOver(std::unique_ptr<OpiSum> record, CScanListener* listener = nullptr);

/// For layouts whose only positions are sums: the statistics are fed first.
void FeedAndHandOver(std::unique_ptr<OpiSum> record, CScanListener* listener = nullptr);

/// The day's realised P/L, where the money section doesn't state it: `text` becomes PCYK of the day's record. The
/// statistics get `amount` even for a day without a record.
void ReportDayClosedPL(std::string_view day, std::string_view text, double amount);

/// The day's mark-to-market P/L likewise: `text` becomes CCDSYK.
void ReportDayPositionPL(std::string_view day, std::string_view text, double amount);

}  // namespace tradebill
