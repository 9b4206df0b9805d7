// Accounts made up by dice: clean ones give no error and no warning, however they are printed.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "findings/account_check.h"
#include "findings/account_maker.h"
#include "findings/account_pages.h"
#include "findings/made_accounts.h"

namespace tradebill::generated_accounts_test {
namespace {

TEST(GeneratedAccounts, AreCleanHoweverTheyArePrinted) {
    for (const MadeLayout layout : kMadeLayouts) {
        for (unsigned seed = 1; seed <= 30; ++seed) {
            const MadeStatements made(seed, layout, WishesFor(layout, seed));
            SCOPED_TRACE(TraceOf(made, seed));
            EXPECT_EQ(made.Keys(), made.PairKeys());
        }
    }
}

}  // namespace
}  // namespace tradebill::generated_accounts_test
