#include "batch/batch_places.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "batch/shard.h"
#include "support/temp_folder.h"

namespace tradebill::batch_places_test {
namespace {

TEST(BatchPlaces, OfAWholeBatchHavePlainNames) {
    const CBatchPlaces places("out", Shard{});
    EXPECT_EQ(places.Results(), "out/results.jsonl");
    EXPECT_EQ(places.State(), "out/batch.json");
    EXPECT_EQ(places.Lock(), "out/batch.lock");
    EXPECT_EQ(places.Work(), "out/.work");
    EXPECT_EQ(places.Database("dir/all.db"), "dir/all.db");
    EXPECT_EQ(places.PathOf(kIndexName), "out/index.html");
}

TEST(BatchPlaces, OfATaskTellWhichItIs) {
    const CBatchPlaces places("out", Shard{.index = 1, .count = 8});
    EXPECT_EQ(places.Results(), "out/results-2-of-8.jsonl");
    EXPECT_EQ(places.Work(), "out/.work-2-of-8");
    EXPECT_EQ(places.Database("dir.of/all.db"), "dir.of/all-2-of-8.db");
    EXPECT_EQ(places.Database("dir.of/all"), "dir.of/all-2-of-8");
}

TEST(BatchPlaces, KeepAccountsApartThatHaveOneNumber) {
    EXPECT_EQ(AccountFolder({.user = "demo", .account = "1", .isForeign = false}), "accounts/domestic/demo/1");
    EXPECT_EQ(AccountFolder({.user = "demo", .account = "1", .isForeign = true}), "accounts/foreign/demo/1");
}

TEST(BatchPlaces, AreFoundAgainByTheirNamesAlone) {
    const CTempFolder folder;
    for (const char* const name : {"results-10-of-12.jsonl", "results-2-of-12.jsonl", "results.jsonl",
                                   "results-0-of-2.jsonl", "results-3-of-2.jsonl", "results-02-of-12.jsonl",
                                   "results-1-of-1.jsonl", "results-.jsonl", "resultsx.jsonl", "batch-1-of-12.json"}) {
        std::ofstream(folder.Path(name)) << "x";
    }
    const auto shards = ShardsIn(folder.Path(), "results", ".jsonl");
    ASSERT_TRUE(shards);
    std::vector<std::string> names;
    for (const Shard& shard : *shards) names.push_back(ShardName(shard));
    EXPECT_EQ(names, (std::vector<std::string>{"", "2-of-12", "10-of-12"}));
    EXPECT_FALSE(ShardsIn(folder.Path("none"), "results", ".jsonl"));
}

}  // namespace
}  // namespace tradebill::batch_places_test
