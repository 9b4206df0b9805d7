// What it costs to write half a million rows as tables and as JSON: export_bench FOLDER. Medians, with the quickest run
// beside them.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

#include "analysis/analysis.h"
#include "base/text.h"
#include "export/csv_set.h"
#include "export/json_writer.h"
#include "export/run_json.h"
#include "export/sqlite_export.h"
#include "export/table.h"
#include "report/account_key.h"
#include "report/records.h"
#include "report/report.h"
#include "timing.h"

namespace tradebill {
namespace {

constexpr int kRows = 500'000;
constexpr int kRepeats = 5;
constexpr double kMegabyte = 1e6;

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

/// How much of `amount` a second: `what` is "rows", "MB".
void Show(const char* name, double amount, const char* what, double least, const std::function<void()>& work) {
    CMeasurements seconds;
    for (int i = 0; i < kRepeats; ++i) seconds.Add(SecondsOf(work));
    std::printf("%-18s %9.0f %s/s, at best %9.0f (at least %.0f)\n", name, amount / seconds.Median(), what,
                amount / seconds.Least(), least);
}

int Measure(const std::string& folder) {
    CReport report;
    FillTrades(report);
    const Analysis analysis;
    const ExportSource source{.report = report, .analysis = analysis};
    const AccountKey account{.user = "demo", .account = "90010002"};
    const std::string database = folder + "/export_bench.db";
    const std::string json = folder + "/export_bench.json";
    bool isWritten = true;
    const auto saveJson = [&] {
        std::ofstream out(json, std::ios::binary);
        WriteJson(report, {.run = RunFacts{}, .analysis = analysis}, out);
        isWritten = isWritten && out.flush().good();
    };
    const auto saveDatabase = [&] {
        isWritten = isWritten && SaveToDatabase(database, account, source, 0).end == DatabaseEnd::Done;
    };
    saveJson();
    Show("JSON", static_cast<double>(std::filesystem::file_size(json)) / kMegabyte, "MB", 200, saveJson);
    Show("CSV", kRows, "rows", 500'000, [&] { isWritten = isWritten && SaveCsvSet(folder, source).IsEmpty(); });
    if (HasSqlite()) {
        Show("SQLite, new", kRows, "rows", 200'000, [&] {
            std::filesystem::remove(database);
            saveDatabase();
        });
        Show("SQLite, replaced", kRows, "rows", 200'000, saveDatabase);
    }
    if (!isWritten) std::fputs("not all could be written\n", stderr);
    return isWritten ? 0 : 1;
}

}  // namespace
}  // namespace tradebill

int main(int argc, char** argv) {
    if (argc == 2) return tradebill::Measure(argv[1]);
    std::fputs("usage: export_bench FOLDER\n", stderr);
    return 2;
}
