#include "intake/file_plan.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "intake/workbook.h"
#include "support/gbk_text.h"

namespace tradebill::file_plan_test {
namespace {

std::string Bill(const std::string& head, const std::string& more = {}) {
    return Statement({"  云山期货有限公司", head, "", "资金状况", "上日结存: 1.00 当日结存: 1.00" + more});
}

std::vector<std::string> DaysOf(const FilePlan& plan) {
    std::vector<std::string> days;
    for (const PlannedStatement& statement : plan.statements) days.push_back(statement.day);
    return days;
}

TEST(FilePlan, HasAccountAndDayFromInside) {
    const std::string text = Bill("客户号: 9001 日期: 20240102");
    const FilePlan plan = PlanFile(text, "D7.20250101o.txt");
    EXPECT_EQ(plan.refusal, "");
    EXPECT_EQ(plan.account, "9001");
    EXPECT_EQ(DaysOf(plan), std::vector<std::string>{"20240102"});
    EXPECT_EQ(plan.statements.front().text, text);
    EXPECT_EQ(plan.layout.name, "fund-status");
    EXPECT_EQ(plan.layout.format, 1);
    EXPECT_FALSE(plan.layout.isForeign);
    EXPECT_EQ(plan.encoding, "GBK");
}

TEST(FilePlan, HasThemFromTheNameWhereTheTextIsSilent) {
    const FilePlan plan = PlanFile(Bill("结算单"), "9001_2024-01-02.txt");
    EXPECT_EQ(plan.refusal, "");
    EXPECT_EQ(plan.account, "9001");
    EXPECT_EQ(DaysOf(plan), std::vector<std::string>{"20240102"});
    EXPECT_EQ(PlanFile(Bill("日期: 20240103"), "D9001.20240102o.txt").account, "9001");
    EXPECT_EQ(DaysOf(PlanFile(Bill("日期: 20240103"), "D9001.20240102o.txt")), std::vector<std::string>{"20240103"});
    EXPECT_EQ(DaysOf(PlanFile(Bill("客户号: 9001"), "20240104.txt")), std::vector<std::string>{"20240104"});
}

TEST(FilePlan, HasTheAccountThatIsGivenBeforeThatOfTheName) {
    EXPECT_EQ(PlanFile(Bill("日期: 20240102"), "D9001.20240102o.txt", "77").account, "77");
    EXPECT_EQ(PlanFile(Bill("客户号: 9001 日期: 20240102"), "x", "77").account, "9001");  // for texts that state none
    EXPECT_EQ(PlanFile(Bill("客户号: 90**01 日期: 20240102"), "x", "77").account, "77");
}

TEST(FilePlan, TrustsANameMoreThanTheDayOfMaking) {
    EXPECT_EQ(DaysOf(PlanFile(Bill("客户号：1 制表时间：20240103"), "D1.20240102o.txt")),
              std::vector<std::string>{"20240102"});
    EXPECT_EQ(DaysOf(PlanFile(Bill("客户号：1 制表时间：20240103"), "bill.txt")), std::vector<std::string>{"20240103"});
}

TEST(FilePlan, IsRefusedWithoutAccountOrDay) {
    EXPECT_EQ(PlanFile(Bill("日期: 20240102"), "bill.txt").refusal,
              "neither the text nor its name says of which account it is: --account is needed");
    EXPECT_EQ(
        PlanFile(Bill("客户号: 9001"), "bill.txt").refusal,
        "neither the text nor its name says of which day it is: a name such as ACCOUNT_2024-01-31.txt says it, as "
        "--account says the account");
    EXPECT_EQ(PlanFile(Bill("客户号: 9001 日期: 20240230"), "bill.txt").refusal,
              "the day that it states, 20240230, is none of the calendar");
}

TEST(FilePlan, IsRefusedForAnAccountThatIsNoPartOfAName) {
    const std::string why = "\" can't be used: one has at most 16 letters, digits, - and _";
    EXPECT_EQ(PlanFile(Bill("客户号: 9/../1 日期: 20240102"), "x").refusal, "the account \"9/../1" + why);
    EXPECT_EQ(PlanFile(Bill("客户号: 12345678901234567 日期: 20240102"), "x").refusal,
              "the account \"12345678901234567" + why);
    EXPECT_EQ(PlanFile(Bill("客户号: 1234567890123456 日期: 20240102"), "x").account, "1234567890123456");
    EXPECT_EQ(PlanFile(Bill("日期: 20240102"), "Da b.20240102o.txt").refusal,
              "the account \"a b" + why + " (--account names another)");
}

TEST(FilePlan, HasEachDayOnceAndInItsOrder) {
    const std::string second = Bill("客户号: 1 日期: 20240103");
    const std::string first = Bill("客户号: 1 日期: 20240102");
    EXPECT_EQ(DaysOf(PlanFile(second + first, "x")), (std::vector<std::string>{"20240102", "20240103"}));
    EXPECT_EQ(DaysOf(PlanFile(second + first + second, "x")), (std::vector<std::string>{"20240102", "20240103"}));
    EXPECT_EQ(PlanFile(second + first + Bill("客户号: 1 日期: 20240103", " 2"), "x").refusal,
              "it has two statements of 20240103 that differ");
}

TEST(FilePlan, IsRefusedWhereNoLayoutKnowsTheText) {
    EXPECT_EQ(PlanFile(Statement({"客户号: 1 日期: 20240102", "1.00"}), "x").refusal,
              "no layout knows it (tradebill layouts lists them)");
    EXPECT_EQ(
        PlanFile(Bill("客户号: 1 日期: 20240102") + Statement({"  云山期货有限公司", "客户号: 1 日期: 20240103"}), "x")
            .refusal,
        "the statement of 20240103: no layout knows it (tradebill layouts lists them)");
}

/// Texts that no marks speak for, and the first of those that marks speak for, may be read by something else.
TEST(FilePlan, HasTheLayoutThatReadsATextInsteadOfThatOfItsMarks) {
    std::vector<std::string> asked;
    const LayoutFinder finder = [&](std::string_view text, const std::string& day) -> std::optional<TextLayout> {
        asked.push_back(day);
        if (text.find("known") == std::string_view::npos) return std::nullopt;
        return TextLayout{.name = "template other", .format = 9};
    };
    const FilePlan known = PlanFile("known", "9001_2024-01-02.txt", {}, {.otherLayouts = finder});
    EXPECT_EQ(known.refusal, "");
    EXPECT_EQ(known.layout.name, "template other");
    EXPECT_EQ(known.layout.format, 9);
    EXPECT_EQ(PlanFile("rubbish", "9001_2024-01-02.txt", {}, {.otherLayouts = finder}).layout.name, "");
    EXPECT_EQ(asked, (std::vector<std::string>{"20240102", "20240102"}));
    asked.clear();
    const std::string texts = Bill("客户号: 9001 日期: 20240102") + Bill("客户号: 9001 日期: 20240103");
    EXPECT_EQ(PlanFile(texts, "a.txt", {}, {.otherLayouts = finder}).layout.name, "fund-status");
    EXPECT_EQ(asked, std::vector<std::string>{"20240102"});
}

TEST(FilePlan, IsRefusedForFilesThatAreNoTexts) {
    const std::string_view starts[] = {"%PDF-1.4", "{\\rtf1"};
    for (const std::string_view start : starts) {
        const FilePlan plan = PlanFile(start, "x");
        EXPECT_TRUE(plan.refusal.find("and no text") != std::string::npos) << plan.refusal;
        EXPECT_EQ(plan.encoding, "");
    }
    for (const std::string_view start : {"PK\x03\x04...", "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"}) {
        const FilePlan plan = PlanFile(start, "x");
        EXPECT_TRUE(plan.refusal.starts_with("it is a workbook")) << plan.refusal;
        EXPECT_EQ(plan.isUnreadable, !CanReadWorkbooks());
    }
    EXPECT_EQ(PlanFile("", "x").refusal, "it is empty");
    EXPECT_EQ(PlanFile(" \r\n\t\r\n", "x").refusal, "it is empty");
    EXPECT_EQ(PlanFile("\xFF\xFE", "x").refusal, "it is empty");
}

TEST(FilePlan, TellsWhatItReplaces) {
    const std::string text = "客户号: 9001 客户名称: 王𠮷 日期: 20240102\n资金状况\n上日结存: 1.00\n";
    const FilePlan plan = PlanFile(text, "x");
    EXPECT_EQ(plan.refusal, "");
    EXPECT_EQ(plan.note, "GBK lacks 𠮷 in line 1: it is replaced by ?");
    EXPECT_EQ(plan.encoding, "UTF-8");
}

}  // namespace
}  // namespace tradebill::file_plan_test
