#include "base/word_bytes.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>

namespace tradebill::word_bytes_test {
namespace {

TEST(WordBytes, RepeatAByte) {
    EXPECT_EQ(Repeated('\0'), 0U);
    EXPECT_EQ(Repeated('A'), 0x4141414141414141U);
    EXPECT_EQ(Repeated('\xFF'), 0xFFFFFFFFFFFFFFFFU);
}

TEST(WordBytes, AreLoadedFromAnyPlace) {
    const std::string bytes = "0123456789abcdef";
    for (std::size_t at = 0; at + kWordBytes <= bytes.size(); ++at) {
        const std::uint64_t word = LoadWord(bytes.data() + at);
        EXPECT_EQ(bytes.compare(at, kWordBytes, reinterpret_cast<const char*>(&word), kWordBytes), 0) << at;
    }
}

TEST(WordBytes, MarkTheLowestThatIsEqual) {
    for (const char other : {'\0', '\x01', '<', '=', '\x7F', '\x80', '\xBC', '\xFF'}) {
        for (const char wanted : {'\0', '<', '\n', '\x80', '\xFF'}) {
            const std::uint64_t all = Repeated(other);
            EXPECT_EQ(EqualBytes(all, wanted) != 0, other == wanted);
            for (int place = 0; place < 8 && other != wanted; ++place) {
                const std::uint64_t cleared = all & ~(std::uint64_t{0xFF} << 8 * place);
                const std::uint64_t word = cleared | std::uint64_t{static_cast<unsigned char>(wanted)} << 8 * place;
                ASSERT_NE(EqualBytes(word, wanted), 0U);
                EXPECT_EQ(std::countr_zero(EqualBytes(word, wanted)), 8 * place + 7);
            }
        }
    }
}

TEST(WordBytes, AreCopiedAndSeenForEveryLength) {
    for (std::size_t length = 0; length <= 40; ++length) {
        std::string text;
        for (std::size_t i = 0; i < length; ++i) text += static_cast<char>('a' + i % 26);
        std::string copy(length + 2, '.');
        CopyWords(copy.data() + 1, text, [](std::uint64_t) {});
        EXPECT_EQ(copy, "." + text + ".");
        for (std::size_t at = 0; at < length; ++at) {
            std::string marked = text;
            marked[at] = '<';
            std::uint64_t seen = 0;
            CopyWords(copy.data() + 1, marked, [&seen](std::uint64_t word) { seen |= EqualBytes(word, '<'); });
            EXPECT_NE(seen, 0U) << length << " " << at;
        }
        std::uint64_t seen = 0;
        CopyWords(copy.data() + 1, text, [&seen](std::uint64_t word) { seen |= EqualBytes(word, '<'); });
        EXPECT_EQ(seen, 0U) << length;
    }
}

}  // namespace
}  // namespace tradebill::word_bytes_test
