#include "hosts/result_table.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "hosts/tradebill.h"

namespace tradebill::result_table_test {
namespace {

TEST(ResultTable, NamesEachResultOnce) {
    EXPECT_STREQ(TradeBillResultName(TRADEBILL_DONE), "DONE");
    EXPECT_STREQ(TradeBillResultName(TRADEBILL_PLACE_TAKEN), "PLACE_TAKEN");
    std::set<std::string> names;
    std::set<std::string> meanings;
    for (int result = TRADEBILL_DONE; result <= TRADEBILL_BUSY; ++result) {
        EXPECT_TRUE(names.insert(ResultName(result)).second) << result;
        EXPECT_TRUE(meanings.insert(ResultMeaning(result)).second) << result;
    }
    EXPECT_FALSE(names.contains("UNKNOWN"));
}

TEST(ResultTable, HasAWordForWhatIsNone) {
    EXPECT_STREQ(TradeBillResultName(TRADEBILL_BUSY + 1), "UNKNOWN");
    EXPECT_STREQ(TradeBillResultName(-2), "UNKNOWN");
    EXPECT_STREQ(ResultMeaning(1000), "nobody knows why");
}

}  // namespace
}  // namespace tradebill::result_table_test
