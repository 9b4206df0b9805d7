// Which layout serves which format, kind and word.
#include "readers/layout_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>

#include "report/statement_format.h"
#include "support/gbk_text.h"

namespace tradebill::layout_table_test {
namespace {

std::string_view NameFor(std::int32_t format, std::string_view text) {
    const Layout* const layout = FindLayout(format, text);
    return layout == nullptr ? "none" : layout->name;
}

TEST(LayoutTable, ChoosesByFormatAndThePremiumWord) {
    const struct {
        std::int32_t format;
        std::string_view without;
        std::string_view with;
    } rows[] = {
        {0, "fund-class", "fund-class"},
        {1, "fund-status", "fund-status-premium"},
        {2, "client-bill", "client-bill-premium"},
        {201, "client-bill", "client-bill-premium"},
        {3, "tabulated", "bilingual"},
        {6, "spaced-title", "spaced-title-premium"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(NameFor(row.format, Gbk("结算单\r\n权利 金")), row.without) << row.format;
        EXPECT_EQ(NameFor(row.format, ""), row.without) << row.format;
        EXPECT_EQ(NameFor(row.format, Gbk("结算单\r\n注: 含权利金收入")), row.with) << row.format;
    }
}

TEST(LayoutTable, HasNoReaderForOtherFormats) {
    for (const std::int32_t format : {-1, 4, 5, 7, 20, 200, 202, 2147483647}) {
        EXPECT_EQ(NameFor(format, Gbk("资金状况 权利金")), "none") << format;
        EXPECT_FALSE(IsKnownFormat(format)) << format;
    }
    for (const std::int32_t format : {0, 1, 2, 3, 6, 201}) EXPECT_TRUE(IsKnownFormat(format)) << format;
}

TEST(LayoutTable, NamesTheMarkOfEachLayout) {
    const struct {
        std::string_view name;
        std::string_view mark;
    } rows[] = {
        {"fund-class", "资金类别"},
        {"fund-status", "资金状况"},
        {"fund-status-premium", "资金状况"},
        {"client-bill", "客户帐单_资金清单"},
        {"client-bill-premium", "客户帐单_资金清单"},
        {"tabulated", "制表时间："},
        {"bilingual", "客户权益 Client Equity：："},
        {"bilingual-new", "客户权益 Client Equity:"},
        {"spaced-title", "成 交 记 录 单"},
        {"spaced-title-premium", "成 交 记 录 单"},
        {"foreign", "资金汇总"},
    };
    std::set<std::string_view> names;
    for (const Layout& layout : Layouts()) {
        names.insert(layout.name);
        const auto* const row = std::ranges::find(rows, layout.name, [](const auto& item) { return item.name; });
        ASSERT_NE(row, std::end(rows)) << layout.name;
        EXPECT_EQ(layout.marks.mark, Gbk(row->mark)) << layout.name;
        EXPECT_EQ(layout.isForeign, layout.name == "foreign") << layout.name;
        EXPECT_NE(layout.read, nullptr) << layout.name;
    }
    EXPECT_EQ(names.size(), std::size(rows));
    EXPECT_EQ(Layouts().size(), 13U);  // the client bills stand there for each of their two formats
}

TEST(LayoutTable, HasALayoutForEachFormatAndAFormatForEachDomesticLayout) {
    std::set<std::int32_t> served;
    for (const Layout& layout : Layouts()) {
        if (layout.isForeign) continue;
        EXPECT_TRUE(IsKnownFormat(layout.format)) << layout.name;
        served.insert(layout.format);
    }
    std::set<std::int32_t> formats;
    for (const StatementFormat& format : StatementFormats()) {
        EXPECT_TRUE(formats.insert(format.number).second) << format.number << " stands twice";
        for (const std::string& text : {std::string(), Gbk("权利金")}) {
            EXPECT_NE(FindLayout(format.number, text), nullptr) << format.number << ' ' << text;
        }
    }
    EXPECT_EQ(served, formats);
}

TEST(LayoutTable, NeverGivesADomesticTextToTheForeignReader) {
    for (const std::int32_t format : {0, 1, 2, 3, 6, 201}) {
        EXPECT_FALSE(FindLayout(format, Gbk("资金汇总 权利金"))->isForeign) << format;
    }
}

}  // namespace
}  // namespace tradebill::layout_table_test
