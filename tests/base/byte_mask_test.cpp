#include "base/byte_mask.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <random>
#include <string>
#include <string_view>

namespace tradebill::byte_mask_test {
namespace {

TEST(ByteMask, HasABitForEachByteOfTheBlock) {
    EXPECT_EQ(EqualMask("a b  c", 0, ' '), 0b011010U);
    EXPECT_EQ(EqualMask("a b  c", 2, ' '), 0b0110U);
    EXPECT_EQ(EqualMask("", 0, ' '), 0U);
    EXPECT_EQ(EqualMask(std::string(64, '|'), 0, '|'), ~std::uint64_t{0});
    EXPECT_EQ(EqualMask(std::string(200, '|'), 64, '|'), ~std::uint64_t{0});
    EXPECT_EQ(EqualMask(std::string(65, '|'), 64, '|'), 1U);
    EXPECT_EQ(EqualMask(std::string(63, '|'), 0, '|'), ~std::uint64_t{0} >> 1);
}

TEST(ByteMask, KnowsTheSixWhiteSpaceBytesInEveryPlaceOfAVector) {
    for (int byte = 0; byte < 256; ++byte) {
        for (const std::size_t place : {0U, 1U, 15U, 16U, 40U, 63U}) {
            std::string text(64, 'x');
            text[place] = static_cast<char>(byte);
            const std::uint64_t expected = IsWhiteSpace(static_cast<char>(byte)) ? std::uint64_t{1} << place : 0;
            EXPECT_EQ(WhiteSpaceMask(text, 0), expected) << byte << " at " << place;
        }
    }
}

/// The text lies at the very end of its memory, where a byte too much is seen by a sanitizer.
TEST(ByteMask, IsThatOfThePlainLoopInTextsOfAllLengthsAndPlaces) {
    std::mt19937 random(5);
    const std::string_view bytes = " |\t\r\nab\x7F\x80\xA1\xB9\xFF";
    std::uniform_int_distribution<std::size_t> pick(0, bytes.size() - 1);
    for (std::size_t size = 0; size <= 140; ++size) {
        for (std::size_t shift = 0; shift < 16; ++shift) {
            const auto memory = std::make_unique<char[]>(shift + size);
            std::generate_n(memory.get(), shift + size, [&] { return bytes[pick(random)]; });
            const std::string_view text(memory.get() + shift, size);
            for (std::size_t at = 0; at < size; at += kMaskedBytes) {
                for (const char byte : {' ', '|', '\xB9'}) {
                    ASSERT_EQ(EqualMask(text, at, byte), plain::EqualMask(text, at, byte)) << size << " " << shift;
                }
                ASSERT_EQ(WhiteSpaceMask(text, at), plain::WhiteSpaceMask(text, at)) << size << " " << shift;
            }
        }
    }
}

}  // namespace
}  // namespace tradebill::byte_mask_test
