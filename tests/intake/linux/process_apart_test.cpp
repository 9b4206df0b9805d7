// Work in a process of its own: what it returns comes over, and nothing of its harm.
#include "intake/linux/process_apart.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdlib>
#include <new>
#include <optional>
#include <string>

namespace tradebill::linux_process_apart_test {
namespace {

TEST(WorkApart, HandsOverWhatItReturns) {
    EXPECT_EQ(DoneApart([] { return std::string("done\0+", 6); }), std::string("done\0+", 6));
    EXPECT_EQ(DoneApart([] { return std::string(); }), "");
    const std::string large(10u << 20, 'x');
    EXPECT_EQ(DoneApart([&] { return large; }), large);
}

TEST(WorkApart, ChangesNothingHere) {
    int value = 1;
    EXPECT_EQ(DoneApart([&] { return std::to_string(++value); }), "2");
    EXPECT_EQ(value, 1);
}

TEST(WorkApart, ComesToNothingWhereItCrashesOrEndsEarly) {
    EXPECT_EQ(DoneApart([]() -> std::string { std::abort(); }), std::nullopt);
    EXPECT_EQ(DoneApart([]() -> std::string { std::_Exit(0); }), std::nullopt);
    EXPECT_EQ(DoneApart([]() -> std::string { throw std::bad_alloc(); }), std::nullopt);
}

TEST(WorkApart, GetsAFewHundredMegabytesOfMemory) {
    const auto sizeOf = [](std::size_t megabytes) {
        return [=] { return std::to_string(std::string(megabytes << 20, 'x').size()); };
    };
    EXPECT_EQ(DoneApart(sizeOf(300)), std::to_string(300u << 20));
    EXPECT_EQ(DoneApart(sizeOf(500)), std::nullopt);
}

TEST(WorkApart, EndsWithTheSecondsThatItMayTake) {
    const auto began = std::chrono::steady_clock::now();
    const auto forever = []() -> std::string {
        for (std::atomic<int> i = 0;; ++i) {
        }
    };
    EXPECT_EQ(DoneApart(forever, 1), std::nullopt);
    EXPECT_LT(std::chrono::steady_clock::now() - began, std::chrono::seconds(60));
    EXPECT_EQ(kMostSecondsApart, 5u);
}

}  // namespace
}  // namespace tradebill::linux_process_apart_test
