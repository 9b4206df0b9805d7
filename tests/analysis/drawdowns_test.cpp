// Drawdowns of the index. Accounts start with 1000 on 2 January 2024, a Tuesday, a day for each index.
#include "analysis/drawdowns.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "analysis/analysed_account.h"
#include "analysis/day_results.h"

namespace tradebill::drawdowns_test {
namespace {

class Drawdowns : public AnalysedAccount {
protected:
    DrawdownFigures Found() const { return DrawdownsOf(Days()); }

    /// "peak valley recovery" by days of January, "-" for none.
    std::vector<std::string> Spans() const {
        std::vector<std::string> spans;
        for (const Drawdown& drawdown : Found().drawdowns) {
            const auto day = [](const std::optional<std::string>& text) { return text ? text->substr(6) : "-"; };
            spans.push_back(day(drawdown.peak) + " " + day(drawdown.valley) + " " + day(drawdown.recovery));
        }
        return spans;
    }
    using List = std::vector<std::string>;
};

TEST_F(Drawdowns, GoFromPeakToValleyToRecovery) {
    AddIndexes({1.25, 1.1, 1.0, 1.2, 1.25, 1.3});
    ASSERT_EQ(Spans(), (List{"02 04 06"}));
    const Drawdown drawdown = Found().drawdowns[0];
    EXPECT_NEAR(drawdown.depth, 0.2, 1e-14);  // 1 - 1.0 / 1.25
    EXPECT_EQ(drawdown.money, 250);           // 1250 - 1000
    EXPECT_EQ(drawdown.daysDown, 2);
    EXPECT_EQ(drawdown.daysUp, 2);
    EXPECT_EQ(drawdown.calendarDays, 4);
    EXPECT_EQ(Found().timeUnderWater, 0.5);  // 3 to 5 January, of six days
}

/// A deposit that isn't known goes on to be missing in the money that has come from results.
TEST_F(Drawdowns, HaveNoMoneyBehindACashFlowThatIsUnknown) {
    AddDay("20240102", "1000", "0", "1000");
    AddDay("20240103", "900");
    AddDay("20240104", "1500", "x");
    AddDay("20240105", "1200");
    ASSERT_EQ(Spans(), (List{"02 05 -"}));
    const Drawdown drawdown = Found().drawdowns[0];
    EXPECT_NEAR(drawdown.depth, 0.28, 1e-14);  // 0.9 of the peak, and 1200 of 1500 of that
    EXPECT_EQ(drawdown.money, std::nullopt);
}

TEST_F(Drawdowns, TakeTheStartingBalanceForAPeak) {
    AddIndexes({0.9, 0.8, 1.0});
    ASSERT_EQ(Spans(), (List{"- 03 04"}));
    const Drawdown drawdown = Found().drawdowns[0];
    EXPECT_NEAR(drawdown.depth, 0.2, 1e-14);
    EXPECT_EQ(drawdown.money, 200);
    EXPECT_EQ(drawdown.daysDown, 2);      // the first day is one down already
    EXPECT_EQ(drawdown.calendarDays, 2);  // from the first day
}

TEST_F(Drawdowns, LastWhileTheyArentRecovered) {
    AddIndexes({1.0, 1.1, 0.99, 1.05});
    ASSERT_EQ(Spans(), (List{"03 04 -"}));
    const Drawdown drawdown = Found().drawdowns[0];
    EXPECT_EQ(drawdown.daysUp, std::nullopt);
    EXPECT_EQ(drawdown.calendarDays, 2);  // to the last day
    const Analysis analysis = Analysed();
    EXPECT_EQ(ReasonOf(analysis, "drawdowns[0].recovery"), "it lasts");
    EXPECT_EQ(ReasonOf(analysis, "drawdowns[0].daysUp"), "it lasts");
    EXPECT_EQ(ReasonOf(analysis, "drawdowns[0].peak"), "");
}

TEST_F(Drawdowns, BeginOnThePlateausLastDayAndFallToTheFirstOfEqualLows) {
    AddIndexes({1.1, 1.1, 1.1, 1.0, 0.9, 0.95, 0.9, 1.1, 1.1, 1.0});
    EXPECT_EQ(Spans(), (List{"04 06 09", "10 11 -"}));
}

TEST_F(Drawdowns, AreDeepestFirstAndOfEqualDepthsTheEarlier) {
    // 10 %, 20 %, 10 %: the products of returns leave the two equal ones apart by rounding
    AddIndexes({0.9, 1.0, 0.8, 1.1, 0.99, 1.1});
    EXPECT_EQ(Spans(), (List{"03 04 05", "- 02 03", "05 06 07"}));
}

TEST_F(Drawdowns, AreRecoveredWithinRounding) {
    AddRecord(Money("20240102", {{"KHQY", "900000000000"}, {"CRJ", "0"}, {"QCQY", "1000000000000"}}));
    AddDay("20240103", "999999999999.5");
    AddDay("20240104", "999999999998");
    EXPECT_EQ(Spans(), (List{"- 02 03", "03 04 -"}));  // 5e-13 below the peak, then 2e-12
}

TEST_F(Drawdowns, EndAtNothingWithTheIndex) {
    AddIndexes({1.0, 0.0, 0.0});
    ASSERT_EQ(Spans(), (List{"02 03 -"}));
    EXPECT_EQ(Found().drawdowns[0].depth, 1);
}

TEST_F(Drawdowns, CountMoneyWithoutCashFlows) {
    AddDay("20240102", "2000.00", "1000.00", "1000.00");
    AddDay("20240103", "2400.00", "600.00");  // - 200 of 2600
    ASSERT_EQ(Spans(), (List{"02 03 -"}));
    EXPECT_EQ(Found().drawdowns[0].money, 200);
    EXPECT_NEAR(Found().drawdowns[0].depth, 1.0 / 13, 1e-14);  // 200 / 2600
}

TEST_F(Drawdowns, HaveNoMoneyWhereACashFlowIsntKnown) {
    AddDay("20240102", "1000.00", "x", "1000.00");
    AddDay("20240103", "900.00");
    ASSERT_EQ(Spans(), (List{"02 03 -"}));
    EXPECT_EQ(Found().drawdowns[0].money, std::nullopt);
    EXPECT_EQ(ReasonOf(Analysed(), "drawdowns[0].money"), "the money index of peak or valley isn't known");
}

TEST_F(Drawdowns, AreNoneWhereNothingIsLost) {
    AddIndexes({1.0, 1.0, 1.1});
    EXPECT_EQ(Spans(), List{});
    EXPECT_EQ(Found().timeUnderWater, 0);
}

TEST_F(Drawdowns, OfNoDaysAreUnknown) {
    EXPECT_EQ(Found().timeUnderWater, std::nullopt);
}

}  // namespace
}  // namespace tradebill::drawdowns_test
