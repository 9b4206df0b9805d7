#include "batch/manifest.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tradebill::manifest_test {
namespace {

constexpr std::string_view kColumns[] = {"user", "account", "from", "margin_offset"};

/// Each row as "LINE column=text column=text".
std::vector<std::string> Read(std::string_view text) {
    std::vector<std::string> rows;
    ReadManifest(text, kColumns, [&](std::size_t line, std::span<const ManifestCell> cells) {
        std::string row = std::to_string(line);
        for (const ManifestCell& cell : cells) row.append(" ").append(cell.column).append("=").append(cell.text);
        rows.push_back(row);
    });
    return rows;
}

std::string Refused(std::string_view text) {
    try {
        static_cast<void>(Read(text));
    } catch (const CNoManifest& error) {
        return error.what();
    }
    return "taken";
}

using Rows = std::vector<std::string>;

TEST(Manifest, IsATableInCsv) {
    EXPECT_EQ(Read("account,user\n90010002,demo\n90010003,demo\n"),
              (Rows{"2 account=90010002 user=demo", "3 account=90010003 user=demo"}));
}

TEST(Manifest, MayHaveAMarkEitherEndOfLineAndNoneAtItsEnd) {
    EXPECT_EQ(Read("\xEF\xBB\xBF"
                   "Account,USER\r\n1,a\r\n2,b"),
              (Rows{"2 account=1 user=a", "3 account=2 user=b"}));
}

TEST(Manifest, LeavesOutWhatSaysNothing) {
    EXPECT_EQ(Read("account,user,from\n1,,\n,,\n\n 2 , b \n3\n4,c,2024-01-02,,\n"),
              (Rows{"2 account=1", "5 account=2 user=b", "6 account=3", "7 account=4 user=c from=2024-01-02"}));
    EXPECT_EQ(Read("account,user\n"), Rows());
    EXPECT_EQ(Read(" \r\n"), Rows());
    EXPECT_EQ(Read(""), Rows());
}

TEST(Manifest, TakesQuotedFields) {
    EXPECT_EQ(Read("user,account\n\"a,b \"\"c\"\"\",1\n\"line\nend\",2\nx,3\n"),
              (Rows{"2 user=a,b \"c\" account=1", "3 user=line\nend account=2", "5 user=x account=3"}));
}

TEST(Manifest, IsLinesOfJson) {
    EXPECT_EQ(Read("\n{\"user\":\"me\",\"account\":90010002}\r\n\n"
                   "{\"ACCOUNT\":\"7\",\"margin_offset\":true,\"from\":null}\n{}\n{\"margin_offset\":false}"),
              (Rows{"2 account=90010002 user=me", "4 account=7 margin_offset=1", "6 margin_offset=0"}));
}

TEST(Manifest, NamesTheLineOfWhatItCanNotTake) {
    EXPECT_EQ(Refused("account,usr\n1,2\n"),
              "line 1: expected a column out of user, account, from, margin_offset, found \"usr\"");
    EXPECT_EQ(Refused("account,user,Account\n"), "line 1: the column account comes twice");
    EXPECT_EQ(Refused("account\n1\n2,x\n"), "line 3: expected at most 1 fields, found 2");
    EXPECT_EQ(Refused("account\n\"1\n2\n"), "line 2: a quote stands where none may, or isn't closed");
    EXPECT_EQ(Refused("account\n\"1\"2\n"), "line 2: a quote stands where none may, or isn't closed");
    EXPECT_EQ(Refused("account\n1\"2\n"), "line 2: a quote stands where none may, or isn't closed");
    EXPECT_EQ(Refused("account,user\n1,\xD6\xD0\n"), "line 2: expected UTF-8");
    EXPECT_EQ(Refused("{\"account\":\"1\"}\n{\"usr\":\"1\"}"),
              "line 2: expected a column out of user, account, from, margin_offset, found \"usr\"");
    EXPECT_EQ(Refused("{\"account\":\"1\"}\n{\"account\":"), "line 2: expected one JSON object");
    EXPECT_EQ(Refused("{\"account\":1.5}"), "line 1: expected a text, a whole number, true, false or null for account");
    EXPECT_EQ(Refused("{\"account\":[1]}"), "line 1: expected a text, a whole number, true, false or null for account");
    EXPECT_EQ(Refused("{\"account\":1,\"Account\":2}"), "line 1: the column account comes twice");
    EXPECT_EQ(Refused("{\"account\":1,\"account\":2}"), "line 1: the column account comes twice");
    EXPECT_EQ(Refused("{\"account\":\"\xD6\"}"), "line 1: expected one JSON object");
}

TEST(Manifest, MayBeLong) {
    std::string text = "account\n";
    for (int i = 0; i < 200'000; ++i) text.append(std::to_string(i)).append("\n");
    std::size_t rows = 0;
    ReadManifest(text, kColumns, [&](std::size_t line, std::span<const ManifestCell> cells) {
        ++rows;
        ASSERT_EQ(cells.front().text, std::to_string(line - 2));
    });
    EXPECT_EQ(rows, 200'000U);
}

}  // namespace
}  // namespace tradebill::manifest_test
