// A file that is there, and whose reading fails.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <string>

namespace tradebill {

/// A plain file of the system's own: it opens, and has nothing to answer for a device that never leaves the machine.
inline const std::string kFailingFile = "/sys/class/net/lo/speed";
inline const std::string kFailingReason = "Invalid argument";

/// Puts it at `path`, in the place of what is there.
inline void PutFailingFile(const std::string& path) {
    ASSERT_TRUE(std::filesystem::is_regular_file(kFailingFile));
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    std::filesystem::remove(path);
    std::filesystem::create_symlink(kFailingFile, path);
}

}  // namespace tradebill
