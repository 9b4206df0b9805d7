#include "readers/layout_marks.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "support/gbk_text.h"

namespace tradebill::layout_marks_test {
namespace {

using Formats = std::vector<std::int32_t>;  // -1 is the foreign kind

Formats FormatsOf(const std::vector<const Layout*>& layouts) {
    Formats formats;
    for (const Layout* const layout : layouts) formats.push_back(layout->isForeign ? -1 : layout->format);
    return formats;
}

Formats Marked(std::initializer_list<std::string_view> lines) {
    return FormatsOf(MarkedLayouts(Statement(lines)));
}

Formats Likely(std::initializer_list<std::string_view> lines) {
    return FormatsOf(LikelyLayouts(Statement(lines)));
}

TEST(LayoutMarks, TellEachLayout) {
    EXPECT_EQ(Marked({"x", "资金类别 金额"}), Formats{0});
    EXPECT_EQ(Marked({"x", "资金状况"}), Formats{1});
    EXPECT_EQ(Marked({"x", "资金状况", "权利金"}), Formats{1});
    EXPECT_EQ(Marked({"客户帐单_资金清单"}), (Formats{2, 201}));
    EXPECT_EQ(Marked({"成 交 记 录 单"}), Formats{6});
    EXPECT_EQ(Marked({"资 金 清 单"}), Formats{6});
    EXPECT_EQ(Marked({"客户权益 Client Equity：：  5"}), Formats{3});
    EXPECT_EQ(Marked({"客户权益 Client Equity:  5"}), Formats{3});
    EXPECT_EQ(Marked({"资金汇总", "币种 Base HKD"}), Formats{-1});
    EXPECT_EQ(Marked({"资金汇总"}), Formats{});
    EXPECT_EQ(Marked({"客户权益 Client Equity：  5"}), Formats{});
    EXPECT_EQ(Marked({"成交记录单"}), Formats{});
    EXPECT_EQ(Marked({}), Formats{});
}

TEST(LayoutMarks, TellAFramedStatementByItsBars) {
    EXPECT_EQ(Marked({"制表时间：20240102", "资金状况", "|1|2|"}), Formats{3});
    EXPECT_EQ(Marked({"制表时间：20240102", "资金状况", "1|2|"}), Formats{1});
    EXPECT_EQ(Marked({"资金状况", "客户权益 Client Equity:  5"}), Formats{3});
}

TEST(LayoutMarks, CanStandTogether) {
    EXPECT_EQ(Marked({"资金类别", "资金状况"}), (Formats{0, 1}));
    EXPECT_EQ(Likely({"资金类别", "资金汇总 Base"}), Formats{0});
}

TEST(LayoutMarks, TellTheTwoClientBillsByTheirEquity) {
    constexpr std::string_view kTitle = "客户帐单_资金清单";
    // Closing balance, available funds and margin: 100 = 60 + 40 reads alike in both formats.
    EXPECT_EQ(Likely({kTitle, "a", "b", "c", "1 0 0 0 0 100.00 60.00 9% 40.00"}), Formats{2});
    EXPECT_EQ(Likely({kTitle, "a", "b", "c", "1 0 0 0 0 100.00 60.00 9% 40.01"}), (Formats{2, 201}));
    EXPECT_EQ(Likely({kTitle, "a", "b", "c", "1 0 0 0 0 100.00 60.00 40.00"}), (Formats{2, 201}));
    EXPECT_EQ(Likely({kTitle, "a", "b"}), (Formats{2, 201}));
    // With options a row of 16 columns prints the equity itself.
    EXPECT_EQ(Likely({kTitle, "a", "b", "权利金", "x 1 0 0 0 0 100 60 9% 41 0 0 0 0 0 101"}), Formats{201});
    EXPECT_EQ(Likely({kTitle, "a", "b", "权利金", "x 1 0 0 0 0 100 60 9% 40 0 0 0 0 0"}), Formats{2});
    EXPECT_EQ(Likely({kTitle, "a", "b", "权利金", "x 1 0 0 0 0 100 60 9% 41 0 0 0 0 0"}), (Formats{2, 201}));
}

TEST(LayoutMarks, LeaveBothClientBillsWhereTheMarginIsMissing) {
    EXPECT_EQ(Likely({"客户帐单_资金清单", "a", "b", "权利金", "x 1 0 0 0 0 100 60 9%"}), (Formats{2, 201}));
}

TEST(LayoutMarks, AreThoseOfOneFormat) {
    const auto bears = [](std::initializer_list<std::string_view> lines, std::int32_t format, bool isForeign = false) {
        return BearsMarksOf(Statement(lines), format, isForeign);
    };
    EXPECT_TRUE(bears({"资金状况"}, 1));
    EXPECT_FALSE(bears({"资金状况"}, 2));
    EXPECT_FALSE(bears({"资金状况"}, 1, true));
    EXPECT_TRUE(bears({"客户帐单_资金清单"}, 2));
    EXPECT_TRUE(bears({"客户帐单_资金清单"}, 201));
    EXPECT_TRUE(bears({"资金汇总", "币种 Base HKD"}, 1, true));
    EXPECT_FALSE(bears({"资金汇总", "币种 Base HKD"}, 1));
    EXPECT_FALSE(bears({"资金状况", "客户权益 Client Equity:  5"}, 1));  // framed
    EXPECT_TRUE(bears({"资金状况", "客户权益 Client Equity:  5"}, 3));
    EXPECT_FALSE(bears({}, 1));
}

}  // namespace
}  // namespace tradebill::layout_marks_test
