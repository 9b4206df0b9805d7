#include "base/text_hash.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace tradebill::text_hash_test {
namespace {

TEST(TextMap, IsAskedByAnyText) {
    TextMap<int> map;
    map.emplace(std::string_view("rb2405"), 10);
    const std::string longer = "rb24051";
    EXPECT_EQ(map.find(std::string_view(longer).substr(0, 6))->second, 10);
    EXPECT_EQ(map.find("rb2405")->second, 10);
    EXPECT_EQ(map.find(longer), map.end());
    EXPECT_EQ(map.find(""), map.end());
}

TEST(TextMap, OwnsItsTexts) {
    TextMap<int> map;
    std::string text = "a text of more bytes than fit into a string itself";
    map.emplace(std::string_view(text), 1);
    const std::string copy = text;
    text.assign(text.size(), 'x');
    EXPECT_EQ(map.count(copy), 1U);
    EXPECT_EQ(map.count(text), 0U);
}

}  // namespace
}  // namespace tradebill::text_hash_test
