#include "driver/report_counts.h"

#include "report/report.h"

namespace tradebill {

int CountClosedRows(const CReport& report) {
    int rows = report.PingDetailStore.Count();
    if (!report.IsForeign()) return rows;
    for (const auto& offset : report.ReportDocument.Offsets) rows += offset->LONG_COUNT + offset->SHORT_COUNT;
    return rows;
}

int CountRecords(const CReport& report) {
    return report.MoneyStore.Count() + report.MatchStore.Count() + CountClosedRows(report) +
           report.OpiDetailStore.Count() + report.OpiSumStore.Count();
}

}  // namespace tradebill
