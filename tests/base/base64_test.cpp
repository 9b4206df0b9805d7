// The vectors are those of RFC 4648, section 10.
#include "base/base64.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace tradebill::base64_test {
namespace {

TEST(Base64, PadsTheLastGroup) {
    const std::pair<std::string_view, std::string_view> cases[] = {{"", ""},
                                                                   {"f", "Zg=="},
                                                                   {"fo", "Zm8="},
                                                                   {"foo", "Zm9v"},
                                                                   {"foob", "Zm9vYg=="},
                                                                   {"fooba", "Zm9vYmE="},
                                                                   {"foobar", "Zm9vYmFy"}};
    for (const auto& [bytes, text] : cases) EXPECT_EQ(Base64(bytes), text);
}

TEST(Base64, HasAllDigits) {
    // Three bytes hold four numbers of six bits: here 60, 61, 62 and 63, and 0, 25, 26 and 51.
    EXPECT_EQ(Base64("\xF3\xDF\xBF"), "89+/");
    EXPECT_EQ(Base64(std::string_view("\x01\x96\xB3", 3)), "AZaz");
}

TEST(Base64, IsTheSameInPieces) {
    const std::string_view bytes = "foobarfoobarfo";
    for (std::size_t first = 0; first <= bytes.size(); ++first) {
        for (std::size_t second = first; second <= bytes.size(); ++second) {
            CBase64Text base64;
            std::string text;
            base64.Add(bytes.substr(0, first), text);
            base64.Add(bytes.substr(first, second - first), text);
            base64.Add(bytes.substr(second), text);
            base64.Finish(text);
            EXPECT_EQ(text, "Zm9vYmFyZm9vYmFyZm8=") << first << " " << second;
        }
    }
}

TEST(Base64, BeginsAnewWhenFinished) {
    CBase64Text base64;
    std::string text;
    for (int i = 0; i < 2; ++i) {
        base64.Add("f", text);
        base64.Finish(text);
    }
    EXPECT_EQ(text, "Zg==Zg==");
}

}  // namespace
}  // namespace tradebill::base64_test
