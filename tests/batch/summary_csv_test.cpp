#include "batch/summary_csv.h"

#include <gtest/gtest.h>

#include <ostream>
#include <sstream>
#include <string>

#include "batch/account_result.h"
#include "batch/made_results.h"
#include "batch/results_file.h"

namespace tradebill::summary_csv_test {
namespace {

constexpr const char* kHead =
    "\xEF\xBB\xBFuser,account,kind,status,reason,first_day,last_day,statements,trades,closed,positions,errors,warnings,"
    "notes,worst,equity,pl,drawdown,margin_use,seconds,peak_memory,page,explore,json\r\n";

std::string CsvOf(const std::vector<AccountResult>& results) {
    ResultsByAccount byAccount;
    for (const AccountResult& result : results) byAccount[result.account] = result;
    std::ostringstream out;
    EXPECT_TRUE(WriteSummaryCsv(byAccount, out));
    return out.str();
}

TEST(SummaryCsv, HasARowAnAccount) {
    AccountResult result = MadeResult("1");
    result.outputs["demo/1/explore.html"] = "0e";
    EXPECT_EQ(CsvOf({result}), std::string(kHead) +
                                   "demo,1,domestic,findings,\"no \"\"room\"\"\",2024-01-02,2024-01-05,4,20,9,7,1,2,3,"
                                   "2024-01-02: 余额,1.5,-0.1,0.25,0.3,0.0125,12345678901,demo/1/TradeBill.html,"
                                   "demo/1/explore.html,demo/1/report.json\r\n");
}

TEST(SummaryCsv, LeavesEmptyWhatAnAccountHasNot) {
    AccountResult result;
    result.account = {.user = "a", .account = "2", .isForeign = true};
    result.status = AccountStatus::TimedOut;
    result.seconds = 600;
    EXPECT_EQ(CsvOf({result}), std::string(kHead) + "a,2,foreign,timeout,,,,0,0,0,0,0,0,0,,,,,,600,0,,,\r\n");
}

TEST(SummaryCsv, KeepsTextsFromBeingFormulas) {
    AccountResult result;
    result.account = {.user = "=1+1", .account = "@a", .isForeign = false};
    result.reason = "-a,b";
    result.worst = {"+x\r\ny", "second"};
    EXPECT_EQ(CsvOf({result}),
              std::string(kHead) + "'=1+1,'@a,domestic,ok,\"'-a,b\",,,0,0,0,0,0,0,0,\"'+x\r\ny\",,,,,0,0,,,\r\n");
}

TEST(SummaryCsv, KnowsFilesByTheirWholeName) {
    AccountResult result;
    result.account = {.user = "a", .account = "1", .isForeign = false};
    result.outputs = {
        {"a/b c/not_TradeBill.html", "0a"}, {"a/b c/csv/trades.csv", "0b"}, {"a/账 户/TradeBill.html", "0c"}};
    EXPECT_EQ(CsvOf({result}),
              std::string(kHead) + "a,1,domestic,ok,,,,0,0,0,0,0,0,0,,,,,,0,0,a/账 户/TradeBill.html,,\r\n");
    result.outputs = {{"report.json", "0a"}};
    EXPECT_EQ(CsvOf({result}), std::string(kHead) + "a,1,domestic,ok,,,,0,0,0,0,0,0,0,,,,,,0,0,,,report.json\r\n");
}

TEST(SummaryCsv, PutsWhatFailedFirst) {
    AccountResult failed = MadeResult("2");
    failed.status = AccountStatus::Failed;
    const std::string csv = CsvOf({MadeResult("1"), failed});
    EXPECT_LT(csv.find("demo,2,"), csv.find("demo,1,"));
}

TEST(SummaryCsv, TellsWhatIsNotWritten) {
    std::ostream nowhere(nullptr);
    EXPECT_FALSE(WriteSummaryCsv({}, nowhere));
}

}  // namespace
}  // namespace tradebill::summary_csv_test
