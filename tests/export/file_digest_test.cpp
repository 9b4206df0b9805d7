// Name, size and digest of a file.
#include "export/file_digest.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

#include "support/temp_folder.h"

namespace tradebill::file_digest_test {
namespace {

TEST(FileDigest, NamesTheFileWithoutItsFolder) {
    const FileDigest digest = DigestOfBytes("/some/where/D1.20240102o.txt", "abc");
    EXPECT_EQ(digest.file, "D1.20240102o.txt");
    EXPECT_EQ(digest.size, 3U);
    EXPECT_EQ(digest.sha256, "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
}

/// Blocks of 256 KiB are read.
TEST(FileDigest, IsThatOfTheBytesWhateverTheirNumber) {
    const CTempFolder folder;
    constexpr std::size_t kBlock = std::size_t{256} * 1024;
    for (const std::size_t size : {std::size_t{0}, std::size_t{1}, kBlock - 1, kBlock, kBlock + 1, 2 * kBlock}) {
        std::string bytes(size, 'x');
        if (size > 0) bytes.back() = 'y';
        const std::string path = folder.Write("page.html", bytes);
        const auto digest = DigestOfFile(path);
        ASSERT_TRUE(digest) << size;
        const FileDigest expected = DigestOfBytes(path, bytes);
        EXPECT_EQ(digest->file, "page.html");
        EXPECT_EQ(digest->size, size);
        EXPECT_EQ(digest->sha256, expected.sha256);
    }
}

TEST(FileDigest, IsNothingForWhatCannotBeRead) {
    const CTempFolder folder;
    EXPECT_FALSE(DigestOfFile(folder.Path("none")));
    EXPECT_FALSE(DigestOfFile(folder.Path()));
}

}  // namespace
}  // namespace tradebill::file_digest_test
