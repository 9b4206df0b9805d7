// What it costs to write tables of half a million rows, in rows a second: table_bench FOLDER
#include <cstdio>
#include <string>

#include "analysis/analysis.h"
#include "base/text.h"
#include "export/csv_set.h"
#include "export/sqlite_export.h"
#include "export/table.h"
#include "report/records.h"
#include "report/report.h"
#include "timing.h"

namespace tradebill {
namespace {

constexpr int kRows = 500'000;
constexpr int kRepeats = 3;

/// Trades as the layouts with the most columns have them.
void FillTrades(CReport& report) {
    for (int i = 0; i < kRows; ++i) {
        MatchRecord& trade = report.MatchStore.Add();
        CopyField(trade.BILL_DATE, "20240102");
        CopyField(trade.MATCH_DATE, "20240102");
        CopyField(trade.EXCH_NAME, "\xD6\xA3\xC9\xCC\xCB\xF9");
        CopyField(trade.CONTRACT, "CF" + std::to_string(401 + i % 12));
        CopyField(trade.HEDGE, "\xCD\xB6");
        CopyField(trade.BID, i % 2 == 0 ? "\xC2\xF2" : "\xC2\xF4");
        CopyField(trade.MATCH_PRICE, std::to_string(15000 + i % 997));
        CopyField(trade.MATCH_VOL, std::to_string(1 + i % 9));
        CopyField(trade.TURNOVER, std::to_string(75000 + i) + ".00");
        CopyField(trade.OFFSET, "\xBF\xAA");
        CopyField(trade.POUNDAGE, "17.20");
        CopyField(trade.OFFSETPL, std::to_string(i % 4001 - 2000) + ".50");
        CopyField(trade.MATCHNO, std::to_string(10'000'000 + i));
        CopyField(trade.ROYALTY, "0.00");
    }
}

void Show(const char* what, double seconds) {
    std::printf("%-24s %8.0f rows/s\n", what, kRows / seconds);
}

int Measure(const std::string& folder) {
    CReport report;
    FillTrades(report);
    const Analysis analysis;
    const ExportSource source{.report = report, .analysis = analysis};
    const AccountKey account{.user = "demo", .account = "90010002", .kind = "domestic"};
    const std::string database = folder + "/table_bench.db";
    bool isWritten = true;
    Show("CSV", LeastSecondsOf(kRepeats, [&] { isWritten = isWritten && SaveCsvSet(folder, source).IsEmpty(); }));
    const auto save = [&] {
        isWritten = isWritten && SaveToDatabase(database, account, source, 0).end == DatabaseEnd::Done;
    };
    if (HasSqlite()) {
        Show("SQLite, new", SecondsOf(save));
        Show("SQLite, replaced", LeastSecondsOf(kRepeats, save));
    }
    if (!isWritten) std::fputs("not all could be written\n", stderr);
    return isWritten ? 0 : 1;
}

}  // namespace
}  // namespace tradebill

int main(int argc, char** argv) {
    if (argc == 2) return tradebill::Measure(argv[1]);
    std::fputs("usage: table_bench FOLDER\n", stderr);
    return 2;
}
