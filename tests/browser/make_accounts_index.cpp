// Makes the index of accounts that no batch has run for, for tests in a browser and for measuring: index.html and
// summary.csv. What stands in account N follows from N alone, so that a test can work it out too.
//
// Usage: make_accounts_index N FOLDER [RESULTS], where RESULTS, lines as a batch writes them, come beside the N
// accounts
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <string>

#include "batch/account_result.h"
#include "batch/accounts_page.h"
#include "batch/results_file.h"
#include "batch/summary_csv.h"
#include "explore/viewer_template.h"

namespace tradebill {
namespace {

/// Of 20 accounts one failed, one crashed, one ran out of time, four have findings.
AccountStatus StatusOf(int number) {
    switch (number % 20) {
        case 3:
            return AccountStatus::Failed;
        case 7:
            return AccountStatus::Crashed;
        case 11:
            return AccountStatus::TimedOut;
        case 1:
        case 6:
        case 12:
        case 17:
            return AccountStatus::Findings;
        default:
            return AccountStatus::Ok;
    }
}

void AddFindings(AccountResult& result, int number) {
    result.errors = number % 3;
    result.warnings = 1 + number % 5;
    result.worst = {"2024-01-05: 期末结存与上日不连续 (" + std::to_string(number) + ")", "second finding",
                    "third finding"};
}

void AddFigures(AccountResult& result, int number) {
    result.firstDay = "20230103";
    result.lastDay = number % 4 == 0 ? "20240104" : "20240105";
    result.statements = 244;
    result.trades = 10 * number;
    result.closed = 4 * number;
    result.positions = 3 * number;
    result.equity = 1000.0 * number + 0.25;
    result.pl = number % 2 == 0 ? 10.5 * number : -2.5 * number;
    result.drawdown = (number % 40) / 100.0;
    result.marginUse = (number % 125) / 100.0;
}

void AddFiles(AccountResult& result) {
    const AccountKey& account = result.account;
    const std::string folder =
        "accounts/" + std::string(KindName(account.isForeign)) + "/" + account.user + "/" + account.account;
    for (const char* const name : {"TradeBill.html", "explore.html", "report.json", "csv/trades.csv"}) {
        result.outputs[folder + "/" + name] = std::string(64, 'a');
    }
}

AccountResult MadeAccount(int number) {
    AccountResult result;
    result.account = {.user = "客户 " + std::to_string(number % 100),
                      .account = std::to_string(90000000 + number),
                      .isForeign = number % 5 == 0};
    result.status = StatusOf(number);
    result.seconds = 0.5 + number % 7;
    result.peakMemory = (std::int64_t{20} + number % 50) * 1048576;
    if (result.status == AccountStatus::Failed) result.reason = "statement 2024-01-05 can't be read: permission denied";
    if (result.status == AccountStatus::Crashed) result.reason = "the worker ended by signal 11";
    if (result.status == AccountStatus::TimedOut) result.reason = "longer than 600 s";
    if (result.status == AccountStatus::Findings) AddFindings(result, number);
    if (result.status == AccountStatus::Ok || result.status == AccountStatus::Findings) {
        AddFigures(result, number);
        AddFiles(result);
    }
    return result;
}

int Run(int count, const std::string& folder, const std::string& more) {
    ResultsByAccount results;
    if (!more.empty()) results = LoadResults(more).results;
    for (int number = 0; number < count; ++number) {
        AccountResult result = MadeAccount(number);
        results[result.account] = result;
    }
    std::ofstream page(folder + "/index.html", std::ios::binary);
    std::ofstream csv(folder + "/summary.csv", std::ios::binary);
    const AccountsIndex index{.results = results, .today = "20240108"};
    const bool areWritten = WriteAccountsPage(AccountsTemplate(), index, page) && WriteSummaryCsv(results, csv);
    page.close();
    csv.close();
    return areWritten && page && csv ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace
}  // namespace tradebill

int main(int argc, char** argv) {
    if (argc < 3) {
        std::cerr << "usage: make_accounts_index N FOLDER [RESULTS]\n";
        return EXIT_FAILURE;
    }
    return tradebill::Run(std::atoi(argv[1]), argv[2], argc > 3 ? argv[3] : "");
}
