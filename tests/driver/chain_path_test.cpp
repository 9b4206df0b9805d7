#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "driver/bill_folders.h"
#include "report/report.h"
#include "support/temp_folder.h"

namespace tradebill::chain_path_test {
namespace {

TEST(ChainPath, IsThatOfTheForeignFileForTheForeignKind) {
    const CTempFolder root;
    root.Write("sys/chain.ini", "[CHAINNUM]\nNum=1\n[CHAIN001]\nItemBase=home\n");
    root.Write("sys/wpchain.ini", "[CHAINNUM]\nNum=1\n[CHAIN001]\nItemBase=abroad\n");
    CReport report;
    report.RootFolder = root.Path();
    const auto basesOf = [&report](std::int32_t kind) {
        report.ChainTable.Clear();
        report.Request.StatementKind = kind;
        EXPECT_FALSE(report.ChainTable.Load(ChainPath(report)).has_value());
        std::vector<std::string> bases;
        for (const auto& chain : report.ChainTable.Chains) bases.push_back(chain->ItemBase);
        return bases;
    };
    for (const std::int32_t kind : {0, 1, 3}) EXPECT_EQ(basesOf(kind), std::vector<std::string>{"home"}) << kind;
    EXPECT_EQ(basesOf(2), std::vector<std::string>{"abroad"});
}

}  // namespace
}  // namespace tradebill::chain_path_test
