#include "batch/accounts_page.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <nlohmann/json.hpp>
#include <ostream>
#include <sstream>
#include <string>
#include <string_view>

#include "batch/account_result.h"
#include "batch/made_results.h"
#include "batch/results_file.h"
#include "explore/page_blocks.h"
#include "explore/viewer_template.h"

namespace tradebill::accounts_page_test {
namespace {

using Json = nlohmann::json;

constexpr std::string_view kTemplate = "<p>\n<!--tradebill data-->\n</p>\n";

std::string PageOf(const AccountsIndex& index, std::string_view pageTemplate = kTemplate) {
    std::ostringstream out;
    EXPECT_TRUE(WriteAccountsPage(pageTemplate, index, out));
    return out.str();
}

/// What a row of the page has under a column.
Json CellOf(const std::string& page, const std::string& name, std::size_t row = 0) {
    const Json accounts = BlockOf(page, "accounts");
    for (const Json& column : accounts["columns"]) {
        if (column["name"] != name) continue;
        if (column.contains("values")) return column["values"][row];
        const auto code = column["codes"][row].get<int>();
        return code < 0 ? Json() : column["texts"][static_cast<std::size_t>(code)];
    }
    return "no such column";
}

TEST(AccountsPage, StandsInThePlaceOfTheMark) {
    const std::string page = PageOf({.results = {}});
    EXPECT_TRUE(page.starts_with("<p>\n<script type=")) << page;
    EXPECT_TRUE(page.ends_with("</script>\n</p>\n")) << page;
    EXPECT_EQ(BlockOf(page, "accounts")["rows"], 0);
}

TEST(AccountsPage, TellsDayAndLimit) {
    const Json head = BlockOf(PageOf({.results = {}, .today = "20240108", .riskLimit = 0.75}), "head");
    EXPECT_EQ(head["schema"], 1);
    EXPECT_EQ(head["program"], "tradebill " TRADEBILL_VERSION);
    EXPECT_EQ(head["day"], "20240108");
    EXPECT_EQ(head["riskLimit"], 0.75);
    EXPECT_EQ(BlockOf(PageOf({.results = {}}), "head")["riskLimit"], 0.8);
}

TEST(AccountsPage, HasEachAccountWithAllItsWorstFindings) {
    AccountResult failed = MadeResult("2");
    failed.status = AccountStatus::Failed;
    failed.marginUse.reset();
    const ResultsByAccount results = {{MadeResult("1").account, MadeResult("1")}, {failed.account, failed}};
    const std::string page = PageOf({.results = results});
    EXPECT_EQ(CellOf(page, "account", 0), "2");
    EXPECT_EQ(CellOf(page, "margin_use", 0), Json());
    EXPECT_EQ(CellOf(page, "account", 1), "1");
    EXPECT_EQ(CellOf(page, "margin_use", 1), 0.3);
    EXPECT_EQ(CellOf(page, "first_day", 1), "20240102");
    EXPECT_EQ(CellOf(page, "worst", 1), "2024-01-02: 余额\nb");
    EXPECT_EQ(CellOf(page, "explore", 1), Json());
}

TEST(AccountsPage, LinksToFilesWhateverTheirNames) {
    AccountResult result = MadeResult("1");
    result.outputs = {{"a b/#1/what?/100%/账/TradeBill.html", "0a"}, {"javascript:alert(1)/report.json", "0b"}};
    const ResultsByAccount results = {{result.account, result}};
    const std::string page = PageOf({.results = results});
    EXPECT_EQ(CellOf(page, "page"), "./a%20b/%231/what%3F/100%25/%E8%B4%A6/TradeBill.html");
    EXPECT_EQ(CellOf(page, "json"), "./javascript%3Aalert%281%29/report.json");
}

TEST(AccountsPage, HoldsHostileTextsWithoutShowingThemToTheBrowser) {
    AccountResult result = MadeResult("1");
    result.reason = "</script><script>alert(1)</script>";
    const ResultsByAccount results = {{result.account, result}};
    const std::string page = PageOf({.results = results});
    EXPECT_EQ(page.find("alert"), std::string::npos);
    EXPECT_EQ(CellOf(page, "reason"), result.reason);
}

TEST(AccountsPage, NeedsATemplateWithAMark) {
    std::ostringstream out;
    EXPECT_FALSE(WriteAccountsPage("", {.results = {}}, out));
    EXPECT_FALSE(WriteAccountsPage("<p></p>", {.results = {}}, out));
    EXPECT_EQ(out.str(), "");
}

TEST(AccountsPage, TellsWhatIsNotWritten) {
    std::ostream nowhere(nullptr);
    EXPECT_FALSE(WriteAccountsPage(kTemplate, {.results = {}}, nowhere));
}

TEST(AccountsPage, FillsTheTemplateThatTheProgramCarries) {
    if (ViewerTemplate().empty()) {
        EXPECT_TRUE(AccountsTemplate().empty());
        GTEST_SKIP() << "built without the viewer";
    }
    EXPECT_NE(AccountsTemplate(), ViewerTemplate());
    EXPECT_EQ(BlockOf(PageOf({.results = {}}, AccountsTemplate()), "accounts")["rows"], 0);
}

}  // namespace
}  // namespace tradebill::accounts_page_test
