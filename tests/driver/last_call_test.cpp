#include "driver/last_call.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <thread>

#include "driver/report_request.h"

namespace tradebill::last_call_test {
namespace {

constexpr TradeBillCounts kCounts{
    .Size = sizeof(TradeBillCounts), .Days = 1, .Statements = 2, .Unreadable = 3, .Records = 4, .Pictures = 5};

/// What is told of kCounts to a caller whose record has `size` bytes; all of it was 0xFF before.
TradeBillCounts ToldWithin(std::uint32_t size) {
    CLastCall call;
    call.Keep("", kCounts);
    TradeBillCounts counts;
    std::memset(&counts, 0xFF, sizeof counts);
    counts.Size = size;
    call.Tell(&counts);
    return counts;
}

constexpr std::uint32_t kUntouched = 0xFFFFFFFF;

TEST(LastCall, IsEmptyAtFirst) {
    const CLastCall call;
    EXPECT_STREQ(call.Error(), "");
    TradeBillCounts counts = kCounts;
    call.Tell(&counts);
    EXPECT_EQ(counts.Size, sizeof(TradeBillCounts));
    EXPECT_EQ(counts.Days + counts.Statements + counts.Unreadable + counts.Records + counts.Pictures, 0U);
}

TEST(LastCall, TellsAllThatTheCallerKnows) {
    const TradeBillCounts counts = ToldWithin(sizeof(TradeBillCounts));
    EXPECT_EQ(std::memcmp(&counts, &kCounts, sizeof counts), 0);
}

TEST(LastCall, WritesNothingBehindTheCallersSize) {
    for (const std::uint32_t size : {0U, 1U, 4U, 7U}) {
        const TradeBillCounts counts = ToldWithin(size);
        EXPECT_EQ(counts.Size, size);
        EXPECT_EQ(counts.Days, kUntouched) << size;
    }
    for (const std::uint32_t size : {12U, 15U}) {  // half a field is none
        const TradeBillCounts counts = ToldWithin(size);
        EXPECT_EQ(counts.Size, size);
        EXPECT_EQ(counts.Days, 1U);
        EXPECT_EQ(counts.Statements, 2U);
        EXPECT_EQ(counts.Unreadable, kUntouched) << size;
        EXPECT_EQ(counts.Pictures, kUntouched) << size;
    }
}

TEST(LastCall, LeavesTheSizeOfALaterCallersRecord) {
    struct {
        TradeBillCounts counts;
        std::uint32_t later = 7;
    } wide;
    wide.counts.Size = sizeof wide;
    CLastCall call;
    call.Keep("", kCounts);
    call.Tell(&wide.counts);
    EXPECT_EQ(wide.counts.Size, sizeof wide);
    EXPECT_EQ(wide.counts.Pictures, 5U);
    EXPECT_EQ(wide.later, 7U);
}

TEST(LastCall, PassesOverNull) {
    CLastCall call;
    call.Keep("", kCounts);
    call.Tell(nullptr);
}

TEST(LastCall, ForgetsTheCallBefore) {
    CLastCall call;
    call.Keep("first", kCounts);
    call.Keep("second", kCounts);
    EXPECT_STREQ(call.Error(), "second");
    call.Keep("", kCounts);
    EXPECT_STREQ(call.Error(), "");
}

TEST(LastCall, IsAskedWhileCallsEnd) {
    CLastCall call;
    std::atomic<bool> ends = false;
    std::thread asking([&] {
        while (!ends) {
            TradeBillCounts counts{};
            counts.Size = sizeof counts;
            call.Tell(&counts);
            EXPECT_EQ(counts.Days, counts.Pictures);  // all of one call
            EXPECT_NE(call.Error(), nullptr);
        }
    });
    for (std::uint32_t i = 0; i < 20000; ++i) {
        call.Keep(std::to_string(i),
                  {.Size = 0, .Days = i, .Statements = 0, .Unreadable = 0, .Records = 0, .Pictures = i});
    }
    ends = true;
    asking.join();
    EXPECT_STREQ(call.Error(), "19999");
}

}  // namespace
}  // namespace tradebill::last_call_test
