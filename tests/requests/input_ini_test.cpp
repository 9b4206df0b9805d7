#include "requests/input_ini.h"

#include <gtest/gtest.h>

#include <string>

#include "cli/cli_fixture.h"

namespace tradebill::input_ini_test {
namespace {

class InputIniFile : public testing::Test {
protected:
    [[nodiscard]] InputIni Loaded(std::string_view content) const {
        return LoadInputIni(folder_.Write("a.ini", content));
    }
    [[nodiscard]] std::string Refusal(std::string_view content) const {
        return UsageErrorOf([&] { return Loaded(content); });
    }

    CTempFolder folder_;
};

TEST_F(InputIniFile, HasSectionsAndKeysWithTheirLines) {
    const InputIni ini = Loaded("; comment\r\n[A]\r\nkey = value\r\n\r\n[B]\r\nother=1");
    EXPECT_EQ(ini.path, folder_.Path("a.ini"));
    const auto& entries = RequiredSection(ini, "a").entries;
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].key, "key");
    EXPECT_EQ(entries[0].value, "value");
    EXPECT_EQ(entries[0].line, 3);
    EXPECT_EQ(ini.Place(entries[0].line), folder_.Path("a.ini") + ", line 3");
    EXPECT_EQ(RequiredSection(ini, "B").entries[0].line, 6);
}

TEST_F(InputIniFile, IsRefusedWithTheLineOfWhatItCantRead) {
    const std::string file = folder_.Path("a.ini");
    EXPECT_PRED2(IsClearLine, Refusal("[A]\nkey=1\nwhat is this\n"), file + ", line 3:");
    EXPECT_PRED2(IsClearLine, Refusal("key=1\n[A]\n"), file + ", line 1:");  // no section yet
    EXPECT_PRED2(IsClearLine, Refusal("[A]\n\n\n[B\n"), file + ", line 4:");
    EXPECT_PRED2(IsClearLine, Refusal("[A]\n# no comment\n[B\n"), file + ", line 2:");  // the first of two
}

TEST_F(InputIniFile, QuotesABrokenLineWithoutItsLength) {
    const std::string message = Refusal("[A]\n" + std::string(5000, 'x') + "\n");
    EXPECT_LT(message.size(), 300U);
    EXPECT_NE(message.find("xxxx"), std::string::npos);
}

TEST_F(InputIniFile, MayBeEmptyOfWhatItDoesntNeed) {
    EXPECT_EQ(Refusal(""), "");
    EXPECT_EQ(Refusal("\xEF\xBB\xBF[A]\nkey=1\n"), "");  // a byte order mark
}

TEST_F(InputIniFile, IsRefusedIfItCantBeRead) {
    const std::string missing = folder_.Path("missing.ini");
    EXPECT_PRED2(IsClearLine, UsageErrorOf([&] { return LoadInputIni(missing); }), missing);
    EXPECT_PRED2(IsClearLine, UsageErrorOf([&] { return LoadInputIni(folder_.Path()); }), folder_.Path());
    EXPECT_NE(UsageErrorOf([] { return LoadInputIni(""); }), "");
}

TEST_F(InputIniFile, IsRefusedWithoutItsSection) {
    const InputIni ini = Loaded("[A]\n");
    EXPECT_PRED2(IsClearLine, UsageErrorOf([&] { return RequiredSection(ini, "UNITS"); }), "[UNITS]");
    EXPECT_PRED2(IsClearLine, UsageErrorOf([&] { return RequiredSection(ini, "UNITS"); }), folder_.Path("a.ini"));
}

TEST_F(InputIniFile, BecomesGbkOrIsRefusedWithItsLine) {
    const InputIni ini = Loaded("[A]\ngood=铜\nbad=\xFF\nkorean=\xED\x95\x9C\n");
    const auto& entries = RequiredSection(ini, "A").entries;
    ASSERT_EQ(entries.size(), 3U);
    EXPECT_EQ(GbkTextOf(ini, entries[0], entries[0].value), "\xCD\xAD");
    EXPECT_PRED2(IsClearLine, UsageErrorOf([&] { return GbkTextOf(ini, entries[1], entries[1].value); }), ", line 3:");
    EXPECT_PRED2(IsClearLine, UsageErrorOf([&] { return GbkTextOf(ini, entries[2], entries[2].value); }), ", line 4:");
}

}  // namespace
}  // namespace tradebill::input_ini_test
