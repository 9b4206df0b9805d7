// Values written one after the other are what the JSON library writes of a tree of them.
#include "export/json_text.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <nlohmann/json.hpp>
#include <random>
#include <sstream>
#include <string>

#include "platform/text_encoding.h"
#include "support/gbk_text.h"

namespace tradebill::json_text_test {
namespace {

using Json = nlohmann::ordered_json;

template <class Action>
std::string Written(Action action) {
    std::ostringstream out;
    {
        CJsonText json(out);
        action(json);
    }
    return out.str();
}

std::string WrittenText(const std::string& gbk) {
    return Written([&](CJsonText& json) { json.Text(gbk); });
}

std::string WrittenNumber(double number) {
    return Written([&](CJsonText& json) { json.Number(number); });
}

TEST(JsonText, SetsCommasBetweenValuesAndMembers) {
    const std::string text = Written([](CJsonText& json) {
        json.OpenObject();
        json.Name("a");
        json.OpenList();
        json.CloseList();
        json.Name("b");
        json.OpenList();
        json.Number(std::int32_t{-7});
        json.Text("t");
        json.OpenObject();
        json.CloseObject();
        json.OpenObject();
        json.Name("c");
        json.Number(0.5);
        json.CloseObject();
        json.CloseList();
        json.Name("d");
        json.Text("");
        json.CloseObject();
    });
    EXPECT_EQ(text, R"({"a":[],"b":[-7,"t",{},{"c":0.5}],"d":""})");
}

TEST(JsonText, SetsSpaceBehindTheComma) {
    const std::string text = Written([](CJsonText& json) {
        json.OpenList();
        for (const std::int32_t number : {1, 2}) {
            json.Space('\n');
            json.Number(number);
        }
        json.Space(' ');
        json.CloseList();
        json.EndLine();
    });
    EXPECT_EQ(text, "[\n1,\n2 ]\n");
}

TEST(JsonText, EscapesEachByteAsTheLibraryDoes) {
    for (int byte = 0; byte < 0x80; ++byte) {
        for (const std::size_t before : {0u, 1u, 7u, 8u, 9u, 15u, 16u}) {
            const std::string text = std::string(before, 'x') + static_cast<char>(byte) + "tail";
            EXPECT_EQ(WrittenText(text), Json(text).dump()) << byte << " behind " << before;
            EXPECT_EQ(WrittenText(text.substr(0, before + 1)), Json(text.substr(0, before + 1)).dump()) << byte;
        }
    }
    EXPECT_EQ(WrittenText("\"\\/\b\f\n\r\t\x1F\x7F"), "\"\\\"\\\\/\\b\\f\\n\\r\\t\\u001f\x7F\"");
}

TEST(JsonText, DecodesGbkOfAnyLength) {
    for (const char* const text : {"上期所", "铜\"a\n", "　中文 mixed", "很长的一个名字很长的一个名字很长的一个名字"}) {
        EXPECT_EQ(WrittenText(Gbk(text)), Json(text).dump());
    }
    EXPECT_EQ(WrittenText("a\xFF\xFF-"), "\"a\xEF\xBF\xBD\xEF\xBF\xBD-\"");
    EXPECT_EQ(WrittenText("ab\xCD"), "\"ab\xEF\xBF\xBD\"");
}

/// More texts than are kept, each met again and again.
TEST(JsonText, ConfusesNoTexts) {
    std::minstd_rand random(1);
    std::string expected = "[";
    const std::string text = Written([&](CJsonText& json) {
        json.OpenList();
        for (int i = 0; i < 20'000; ++i) {
            std::string gbk(random() % 6, '\0');
            for (char& byte : gbk) byte = "\xB0\xA1\xB2\xFF\n\"a1"[random() % 8];
            json.Text(gbk);
            expected += (i == 0 ? "" : ",") + Json(GbkToUtf8(gbk)).dump();
        }
        json.CloseList();
    });
    EXPECT_TRUE(text == expected + "]");
}

TEST(JsonText, WritesNumbersAsTheLibraryDoes) {
    std::mt19937_64 random(1);
    std::uniform_int_distribution<std::int64_t> cents(-1'000'000'000'000, 1'000'000'000'000);
    for (int i = 0; i < 10'000; ++i) {
        const double amount = static_cast<double>(cents(random)) / 100.0;
        ASSERT_EQ(WrittenNumber(amount), Json(amount).dump());
    }
    for (const double number : {0.0, -0.0, 7.0, 0.1 + 0.2, 1e14, 1e15, 1e16, 1e300, -1e-300, 5e-324}) {
        EXPECT_EQ(WrittenNumber(number), Json(number).dump());
    }
    EXPECT_EQ(WrittenNumber(std::numeric_limits<double>::infinity()), "\"inf\"");
    EXPECT_EQ(WrittenNumber(-std::numeric_limits<double>::infinity()), "\"-inf\"");
    EXPECT_EQ(WrittenNumber(std::numeric_limits<double>::quiet_NaN()), "\"nan\"");
    EXPECT_EQ(Written([](CJsonText& json) { json.Number(std::numeric_limits<std::int32_t>::min()); }), "-2147483648");
}

/// Blocks end anywhere, and a text may be longer than one.
TEST(JsonText, KeepsTextsThatCrossBlocks) {
    for (const std::size_t length : {1u, 131'068u, 131'069u, 131'070u, 131'071u, 131'072u, 400'000u}) {
        const std::string first(length, 'a');
        const std::string text = Written([&](CJsonText& json) {
            json.OpenList();
            json.Text(first);
            json.Text("next");
            json.CloseList();
        });
        EXPECT_TRUE(text == "[\"" + first + "\",\"next\"]") << length;
    }
}

}  // namespace
}  // namespace tradebill::json_text_test
