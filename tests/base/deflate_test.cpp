// Packed bytes are unpacked by zlib's own inflate.
#include "base/deflate.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

#include "support/packed_text.h"

namespace tradebill::deflate_test {
namespace {

std::string Packed(std::string_view bytes, std::size_t piece, int level = CDeflater::kUsualLevel) {
    std::string packed;
    CDeflater deflater([&](std::string_view part) { packed += part; }, level);
    for (; !bytes.empty(); bytes.remove_prefix(std::min(piece, bytes.size()))) deflater.Add(bytes.substr(0, piece));
    deflater.Finish();
    return packed;
}

/// Bytes that hardly pack.
std::string Noise(std::size_t size) {
    std::string bytes;
    unsigned state = 1;
    for (std::size_t i = 0; i < size; ++i) bytes += static_cast<char>((state = state * 1664525U + 1013904223U) >> 24);
    return bytes;
}

TEST(Deflate, GivesBackWhatWasPacked) {
    const std::string noise = Noise(300'000);  // more than fills the packer's own room several times
    for (const std::string& bytes : {std::string(), std::string("a"), std::string(300'000, 'a'), noise}) {
        EXPECT_EQ(Inflated(Packed(bytes, 1'000)), bytes);
        EXPECT_EQ(Inflated(Packed(bytes, bytes.size() + 1, 9)), bytes);
    }
}

TEST(Deflate, PacksTheSameBytesAlikeHoweverTheyCome) {
    const std::string bytes = "1234.50,1234.50,1235.00," + Noise(100'000);
    EXPECT_EQ(Packed(bytes, 7), Packed(bytes, bytes.size()));
}

TEST(Deflate, PacksRepetitions) {
    EXPECT_LT(Packed(std::string(300'000, 'a'), 4'096).size(), 1'000U);
}

TEST(Deflate, BeginsAnewWhenFinished) {
    std::string packed;
    CDeflater deflater([&](std::string_view part) { packed += part; });
    deflater.Add("one");
    deflater.Finish();
    const std::string first = packed;
    packed.clear();
    deflater.Add("one");
    deflater.Finish();
    EXPECT_EQ(packed, first);
    EXPECT_EQ(Inflated(packed), "one");
}

}  // namespace
}  // namespace tradebill::deflate_test
