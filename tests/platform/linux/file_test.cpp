#include "platform/file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <string>

#include "support/temp_folder.h"

namespace tradebill::linux_file_test {
namespace {

TEST(LinuxStatementFile, IsNotReadIfItIsNoPlainFile) {
    const CTempFolder folder;
    const std::string pipe = folder.Path("pipe");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_FALSE(ReadStatementFile(pipe).has_value());
    EXPECT_FALSE(ReadStatementFile("/dev/zero").has_value());
}

TEST(LinuxStatementFile, IsNotReadIfItCantBeWritten) {
    // A program that runs can be read but not be opened for writing, not even by root.
    EXPECT_TRUE(CFile("/proc/self/exe", FileMode::Read).IsOpen());
    EXPECT_FALSE(ReadStatementFile("/proc/self/exe").has_value());
}

}  // namespace
}  // namespace tradebill::linux_file_test
