#include "batch/shard.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "report/account_key.h"

namespace tradebill::shard_test {
namespace {

AccountKey Account(int number, const std::string& user = "demo", bool isForeign = false) {
    return {.user = user, .account = std::to_string(number), .isForeign = isForeign};
}

TEST(Shard, OfAnAccountIsTheSameForever) {
    // FNV-1a of "demo\0" "90010002\0domestic" with MurmurHash3's finish, worked out by another program.
    EXPECT_EQ(StableHash({.user = "demo", .account = "90010002", .isForeign = false}), 14234025951231572207U);
    EXPECT_EQ(StableHash({.user = "", .account = "", .isForeign = true}), 13901537568367716279U);
}

TEST(Shard, TellsUserAccountAndKindApart) {
    EXPECT_NE(StableHash({.user = "ab", .account = "c"}), StableHash({.user = "a", .account = "bc"}));
    EXPECT_NE(StableHash(Account(1)), StableHash(Account(1, "other")));
    EXPECT_NE(StableHash(Account(1)), StableHash(Account(1, "demo", true)));
}

TEST(Shard, HasEachAccountOnceAndAboutAsManyAsOthers) {
    for (const std::uint32_t count : {2U, 7U, 16U}) {
        std::map<std::uint32_t, int> sizes;
        for (int number = 10'000'000; number < 10'010'000; ++number) {
            int owners = 0;
            for (std::uint32_t index = 0; index < count; ++index) {
                if (!Shard{.index = index, .count = count}.Has(Account(number))) continue;
                ++owners;
                ++sizes[index];
            }
            ASSERT_EQ(owners, 1);
        }
        // Five deviations of a binomial spread.
        const double mean = 10'000.0 / count;
        for (const auto& [index, size] : sizes) EXPECT_NEAR(size, mean, 5 * std::sqrt(mean)) << index << '/' << count;
    }
}

TEST(Shard, IsWrittenAsPlaceAndCount) {
    const auto second = ParseShard("2/8");
    ASSERT_TRUE(second.has_value());
    EXPECT_EQ(second->index, 1U);
    EXPECT_EQ(second->count, 8U);
    EXPECT_EQ(ParseShard("1/1")->count, 1U);
    for (const char* const wrong : {"", "/", "1", "0/8", "9/8", "1/0", "-1/8", "+1/8", "1/8x", " 1/8", "1/ 8", "1/8/2",
                                    "a/b", "1/1000001", "4294967297/4294967298"}) {
        EXPECT_FALSE(ParseShard(wrong).has_value()) << wrong;
    }
}

class Engine : public testing::Test {
protected:
    [[nodiscard]] std::optional<Shard> Found(std::optional<std::uint32_t> count = std::nullopt) const {
        return ShardOfEngine(
            [this](const char* name) {
                const auto found = variables_.find(name);
                return found == variables_.end() ? nullptr : found->second.c_str();
            },
            count);
    }
    void SetArray(const std::string& task, const std::string& first, const std::string& last,
                  const std::string& count) {
        variables_ = {{"SLURM_ARRAY_TASK_ID", task},
                      {"SLURM_ARRAY_TASK_MIN", first},
                      {"SLURM_ARRAY_TASK_MAX", last},
                      {"SLURM_ARRAY_TASK_COUNT", count}};
    }

    std::map<std::string, std::string> variables_;
};

TEST_F(Engine, MayBeNone) {
    EXPECT_FALSE(Found().has_value());
    EXPECT_FALSE(Found(8).has_value());
}

TEST_F(Engine, GivesATaskOfAnArrayTheShardOfItsNumber) {
    SetArray("3", "0", "7", "8");
    EXPECT_EQ(Found()->index, 3U);
    EXPECT_EQ(Found()->count, 8U);
    EXPECT_EQ(Found(10)->count, 10U);  // as the user says
}

TEST_F(Engine, IsNotGoneByWhereAPartOfAnArrayRunsAgain) {
    SetArray("3", "3", "3", "1");
    EXPECT_THROW(static_cast<void>(Found()), CNoShard);
    EXPECT_EQ(Found(8)->index, 3U);
    SetArray("4", "0", "6", "4");  // 0-6:2
    EXPECT_THROW(static_cast<void>(Found()), CNoShard);
    SetArray("8", "1", "8", "8");
    EXPECT_THROW(static_cast<void>(Found()), CNoShard);
    EXPECT_THROW(static_cast<void>(Found(8)), CNoShard);  // there is no shard 8 of 8 counted from 0
    variables_.erase("SLURM_ARRAY_TASK_MIN");
    EXPECT_THROW(static_cast<void>(Found()), CNoShard);
}

TEST_F(Engine, OfIndexedPodsNeedsTheirNumber) {
    variables_ = {{"JOB_COMPLETION_INDEX", "5"}};
    EXPECT_THROW(static_cast<void>(Found()), CNoShard);
    EXPECT_EQ(Found(6)->index, 5U);
    EXPECT_THROW(static_cast<void>(Found(5)), CNoShard);
    EXPECT_THROW(static_cast<void>(Found(0)), CNoShard);
}

TEST_F(Engine, MustSayNumbers) {
    variables_ = {{"JOB_COMPLETION_INDEX", "five"}};
    EXPECT_THROW(static_cast<void>(Found(6)), CNoShard);
    variables_ = {{"SLURM_ARRAY_TASK_ID", ""}};
    EXPECT_THROW(static_cast<void>(Found(6)), CNoShard);
}

}  // namespace
}  // namespace tradebill::shard_test
