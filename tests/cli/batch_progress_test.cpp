#include "cli/batch_progress.h"

#include <gtest/gtest.h>

#include <string>

#include "batch/account_result.h"
#include "batch/batch_run.h"

namespace tradebill::batch_progress_test {
namespace {

TEST(BatchProgress, TellsRateAndTimeLeftOnceItCan) {
    BatchCounts counts{.accounts = 1000};
    EXPECT_EQ(BatchProgressText(counts, 0), "done 0 of 1000, 0 failed");
    counts.done = 100;
    counts.failed = 2;
    EXPECT_EQ(BatchProgressText(counts, 2), "done 100 of 1000, 2 failed, 50.0 accounts/s, 0:18 left");
    EXPECT_EQ(BatchProgressText(counts, 1000), "done 100 of 1000, 2 failed, 0.1 accounts/s, 2:30:00 left");
}

TEST(BatchProgress, CountsWhatWasKeptAsDoneAndNotAsWork) {
    const BatchCounts counts{.accounts = 1000, .kept = 900, .done = 50};
    EXPECT_EQ(BatchProgressText(counts, 1), "done 950 of 1000, 0 failed, 50.0 accounts/s, 0:01 left");
    const BatchCounts all{.accounts = 10, .kept = 5, .done = 5};
    EXPECT_EQ(BatchProgressText(all, 2), "done 10 of 10, 0 failed, 2.5 accounts/s");
}

TEST(BatchProgress, NamesTheAccountOfEachLine) {
    testing::internal::CaptureStderr();
    {
        CBatchProgress progress(true);
        AccountResult result{.account = {.user = "demo", .account = "1", .isForeign = true},
                             .status = AccountStatus::Failed,
                             .reason = "no \x1B[31mroom"};
        progress.OnAccount(result, {"a file is odd"}, {.accounts = 2, .done = 1, .failed = 1});
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "tradebill: --user demo --account 1 --kind foreign: warning: a file is odd\n"
              "tradebill: --user demo --account 1 --kind foreign: failed: no \\u001b[31mroom\n");
}

}  // namespace
}  // namespace tradebill::batch_progress_test
