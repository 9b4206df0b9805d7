// Which rows are packed, and in which bodies they stand.
#include "page/packed_rows.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "support/unfolded_rows.h"

namespace tradebill::packed_rows_test {
namespace {

using Texts = std::vector<std::string>;

constexpr std::size_t kMiB = std::size_t{1} << 20;

/// One row of `size` bytes, full of `letter`.
std::string RowOf(std::size_t size, char letter = 'a') {
    const std::string begin = "<tr>\r\n<td>";
    const std::string end = "</td></tr>\r\n";
    return begin + std::string(size - begin.size() - end.size(), letter) + end;
}

class PackedRows : public testing::Test {
protected:
    /// What has been written since this was asked last.
    std::string Written() {
        std::string text = out_.str();
        out_.str({});
        return text;
    }

    std::ostringstream out_;
    CPackedRows rows_{out_};
};

TEST_F(PackedRows, StandAsTheyAreUpToABound) {
    const std::string most = RowOf(CPackedRows::kMostPlainBytes);
    rows_.Begin({.columns = 2, .lineClass = "sum"});
    rows_.BeginGroup("20240102");
    rows_.Add(most);
    EXPECT_EQ(Written(), "");
    rows_.End();
    EXPECT_EQ(Written(), most);

    const std::string more = RowOf(CPackedRows::kMostPlainBytes + 1);
    rows_.Begin({.columns = 2, .lineClass = "sum"});
    rows_.Add(more);
    rows_.End();
    const UnfoldedRows unfolded = Unfold(Written());
    EXPECT_EQ(unfolded.order, (Texts{"note", "rows"}));
    EXPECT_EQ(unfolded.pieces, (Texts{more}));
    EXPECT_EQ(unfolded.plain, more);
}

TEST_F(PackedRows, HaveABoundForEachTableAlone) {
    const std::string half = RowOf(CPackedRows::kMostPlainBytes / 2 + 1);
    for (int i = 0; i < 3; ++i) {
        rows_.Begin({.columns = 2, .lineClass = "sum"});
        rows_.Add(half);
        rows_.End();
    }
    EXPECT_EQ(Written(), half + half + half);
    rows_.Begin({.columns = 2, .lineClass = "sum"});
    rows_.Add(half);
    rows_.Add(half);
    rows_.End();
    EXPECT_EQ(Unfold(Written()).pieces, (Texts{half + half}));
    rows_.Begin({.columns = 2, .lineClass = "sum"});
    rows_.End();
    EXPECT_EQ(Written(), "");
}

TEST_F(PackedRows, HaveALineForEachGroup) {
    const std::string first = RowOf(CPackedRows::kMostPlainBytes, 'a');
    const std::string second = RowOf(100, 'b');
    const std::string third = RowOf(200, 'c');
    const std::string fourth = RowOf(300, 'd');
    rows_.Begin({.columns = 2, .lineClass = "sum"});
    rows_.BeginGroup("20240102");
    rows_.Add(first);
    rows_.BeginGroup("<b>&");
    rows_.Add(second);
    rows_.Add(third);
    rows_.BeginGroup("of no rows");
    rows_.BeginGroup("铜");
    rows_.Add(fourth);
    rows_.End();
    const UnfoldedRows unfolded = Unfold(Written());
    EXPECT_EQ(unfolded.order, (Texts{"note", "line", "rows", "line", "rows", "line", "rows"}));
    EXPECT_EQ(unfolded.lines, (Texts{"▸ 20240102", "▸ &lt;b&gt;&amp;", "▸ 铜"}));
    EXPECT_EQ(unfolded.pieces, (Texts{first, second + third, fourth}));
}

TEST_F(PackedRows, ComeInPiecesOfWholeRows) {
    ASSERT_EQ(CPackedRows::kMostPieceBytes, kMiB);
    rows_.Begin({.columns = 2, .lineClass = "sum"});
    const std::string half = RowOf(kMiB / 2);
    const std::string row = RowOf(100);
    for (const std::string& add : {half, half, row, half, half}) rows_.Add(add);
    rows_.End();
    const UnfoldedRows unfolded = Unfold(Written());
    EXPECT_EQ(unfolded.order, (Texts{"note", "rows", "rows", "rows"}));
    EXPECT_EQ(unfolded.pieces, (Texts{half + half, row + half, half}));
}

// A part of eight pieces of a MiB each; the next byte begins the second one.
TEST_F(PackedRows, HaveALineForEachFurtherPart) {
    ASSERT_EQ(CPackedRows::kMostPartBytes, 8 * kMiB);
    const std::string piece = RowOf(kMiB);
    const auto partsOf = [&](std::string_view name) {
        rows_.Begin({.columns = 2, .lineClass = "sum"});
        if (!name.empty()) rows_.BeginGroup(name);
        for (int i = 0; i < 17; ++i) rows_.Add(piece);
        rows_.End();
        return Unfold(Written());
    };
    const UnfoldedRows unnamed = partsOf("");
    EXPECT_EQ(unnamed.lines, (Texts{"▸ 第 2 部分 / part 2", "▸ 第 3 部分 / part 3"}));
    EXPECT_EQ(unnamed.pieces, Texts(17, piece));
    ASSERT_EQ(unnamed.order.size(), 1u + 17u + 2u);
    EXPECT_EQ(unnamed.order[9], "line");
    EXPECT_EQ(unnamed.order[18], "line");
    EXPECT_EQ(partsOf("20240102").lines,
              (Texts{"▸ 20240102", "▸ 20240102 第 2 部分 / part 2", "▸ 20240102 第 3 部分 / part 3"}));
}

TEST_F(PackedRows, SayWhatTheyNeedToBeUnfolded) {
    rows_.Begin({.columns = 9, .lineClass = "sum"});
    rows_.BeginGroup("20240102");
    rows_.Add(RowOf(CPackedRows::kMostPlainBytes + 1));
    rows_.End();
    const std::string written = Written();
    EXPECT_TRUE(written.starts_with(
        "<tbody data-unpackable>\r\n<tr class='billclr2'>\r\n"
        "<td colspan=\"9\" style=\"padding:5px 0px; \"><span class='sum'>"
        "此处折叠的内容需要能运行脚本的新版浏览器和完整的文件才能展开。 / "
        "To unfold what is folded here takes a newer browser that runs scripts, and an undamaged file."
        "</span></td></tr>\r\n</tbody>\r\n"
        "<tbody>\r\n<tr class='billclr2'>\r\n"
        "<td colspan=\"9\" style=\"padding:5px 0px; cursor:pointer; \" data-unfolds role=\"button\" tabindex=\"0\" "
        "aria-expanded=\"false\"><span class='sum'>▸ 20240102</span></td></tr>\r\n</tbody>\r\n"
        "<tbody data-packed><script type=\"application/octet-stream\">"))
        << written.substr(0, 800);
}

// What is packed goes out as it comes: memory doesn't grow with the page.
TEST_F(PackedRows, AreWrittenAsTheyCome) {
    rows_.Begin({.columns = 2, .lineClass = "sum"});
    std::string noise;
    unsigned state = 1;
    for (int i = 0; i < 700'000; ++i)
        noise += static_cast<char>('0' + ((state = state * 1664525U + 1013904223U) >> 27));
    rows_.Add(noise);
    EXPECT_GT(Written().size(), 200'000u);
    rows_.Add(noise);
    EXPECT_GT(Written().size(), 200'000u);
    rows_.End();
}

}  // namespace
}  // namespace tradebill::packed_rows_test
