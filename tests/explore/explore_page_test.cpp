#include "explore/explore_page.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>
#include <string>

#include "analysis/account_sum.h"
#include "analysis/analysed_account.h"
#include "analysis/analysis.h"
#include "explore/page_blocks.h"
#include "export/run_json.h"
#include "export/table.h"

namespace tradebill::explore_page_test {
namespace {

class ExplorePage : public AnalysedAccount {
protected:
    void AddTo(CExplorePage& page) const {
        const Analysis analysis = Analysed();
        page.Add({.source = {.report = report, .analysis = analysis}, .run = RunFacts()});
    }

    std::ostringstream out_;
};

TEST_F(ExplorePage, IsTheTemplateAroundTheData) {
    CExplorePage page("<p>before\n<!--tradebill data-->\nafter</p>\n", out_);
    EXPECT_EQ(out_.str(), "");
    AddTo(page);
    EXPECT_TRUE(page.Finish());
    EXPECT_TRUE(out_.str().starts_with("<p>before\n<script type=\"application/octet-stream\" id=\"0."));
    EXPECT_TRUE(out_.str().ends_with("</script>\nafter</p>\n"));
}

TEST_F(ExplorePage, IsNoneWithoutItsMark) {
    CExplorePage page("<p>", out_);
    AddTo(page);
    EXPECT_FALSE(page.Finish());
}

TEST_F(ExplorePage, HasTheAccountsOneBehindTheOtherAndTheirSumLast) {
    CExplorePage page("<!--tradebill data-->", out_);
    CAccountSum sum;
    AddDay("20240102", "1100", "0", "1000");
    AddTrade({.day = "20240102", .contract = "rb2405", .lots = "2", .fee = "4"});
    AddTo(page);
    sum.Add(report);
    report.Clear();
    AddDay("20240103", "500", "0", "400");
    AddTo(page);
    sum.Add(report);
    page.AddSum(sum.Finish(), false);
    ASSERT_TRUE(page.Finish());
    const nlohmann::json accounts = BlockOf(out_.str(), "head")["accounts"];
    ASSERT_EQ(accounts.size(), 3U);
    EXPECT_EQ(accounts[0]["tables"]["trades"], 1);
    EXPECT_EQ(accounts[1]["tables"]["trades"], 0);
    EXPECT_EQ(accounts[1]["isSum"], false);
    EXPECT_EQ(accounts[2]["isSum"], true);
    EXPECT_EQ(accounts[2]["opening"], 1000);
    EXPECT_EQ(accounts[2]["tables"]["days"], 2);
    EXPECT_FALSE(accounts[2].contains("run"));
    const auto blocks = PackedBlocksOf(out_.str());
    EXPECT_TRUE(blocks.contains("0.trades"));
    EXPECT_FALSE(blocks.contains("1.trades"));
    EXPECT_EQ(BlockOf(out_.str(), "2.days")["columns"][1]["values"], nlohmann::json({1100, 1600}));
    EXPECT_TRUE(blocks.contains("2.figures"));
}

TEST_F(ExplorePage, SaysWhereTheSumsOpeningIsUnknown) {
    CExplorePage page("<!--tradebill data-->", out_);
    CAccountSum sum;
    AddDay("20240102", "1100");
    sum.Add(report);
    page.AddSum(sum.Finish(), true);
    ASSERT_TRUE(page.Finish());
    const nlohmann::json account = BlockOf(out_.str(), "head")["accounts"][0];
    EXPECT_TRUE(account["opening"].is_null());
    EXPECT_EQ(account["kind"], "foreign");
    EXPECT_EQ(account["reasons"]["days[0].pl"], "the opening balance isn't stated");
}

}  // namespace
}  // namespace tradebill::explore_page_test
