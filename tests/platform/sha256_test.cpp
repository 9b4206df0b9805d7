// The digests that FIPS 180-4's examples name, and pieces of any length.
#include "platform/sha256.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace tradebill::sha256_test {
namespace {

std::string DigestOf(std::string_view bytes) {
    CSha256 sha;
    sha.Add(bytes);
    return sha.Digest();
}

TEST(Sha256, IsThatOfTheStandardsExamples) {
    EXPECT_EQ(DigestOf(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    EXPECT_EQ(DigestOf("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(DigestOf("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"),
              "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
    EXPECT_EQ(DigestOf(std::string(1'000'000, 'a')),
              "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
}

TEST(Sha256, DoesNotDependOnThePieces) {
    CSha256 sha;
    for (const std::string_view piece : {"a", "", "b", "c"}) sha.Add(piece);
    EXPECT_EQ(sha.Digest(), DigestOf("abc"));
}

TEST(Sha256, TakesBytesOfEveryValue) {
    EXPECT_EQ(DigestOf(std::string_view("\0\xFF", 2)),
              "06eb7d6a69ee19e5fbdf749018d3d2abfa04bcbd1365db312eb86dc7169389b8");
}

}  // namespace
}  // namespace tradebill::sha256_test
