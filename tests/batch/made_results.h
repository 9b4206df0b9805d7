// Results of accounts for the tests of batches.
#pragma once

#include <string>

#include "batch/account_result.h"

namespace tradebill {

/// Everything of it says something.
inline AccountResult MadeResult(const std::string& account) {
    AccountResult result;
    result.account = {.user = "demo", .account = account, .isForeign = false};
    result.status = AccountStatus::Findings;
    result.reason = "no \"room\"";
    result.firstDay = "20240102";
    result.lastDay = "20240105";
    result.statements = 4;
    result.trades = 20;
    result.closed = 9;
    result.positions = 7;
    result.errors = 1;
    result.warnings = 2;
    result.notes = 3;
    result.worst = {"2024-01-02: 余额", "b"};
    result.equity = 1.5;
    result.pl = -0.1;
    result.drawdown = 0.25;
    result.marginUse = 0.3;
    result.seconds = 0.0125;
    result.peakMemory = 12345678901;
    result.options = "0a";
    result.inputs = "0b";
    result.outputs = {{"demo/1/TradeBill.html", "0c"}, {"demo/1/report.json", "0d"}};
    result.version = "0.1.0";
    return result;
}

}  // namespace tradebill
