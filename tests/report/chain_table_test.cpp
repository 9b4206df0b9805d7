#include "report/chain_table.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "support/gbk_text.h"
#include "support/temp_folder.h"

namespace tradebill::chain_table_test {
namespace {

using Texts = std::vector<std::string>;

class ChainTableTest : public testing::Test {
protected:
    void Load(std::string_view content) { EXPECT_FALSE(table_.Load(folder_.Write("chain.ini", content)).has_value()); }
    [[nodiscard]] Texts Bases() const {
        Texts bases;
        for (const auto& chain : table_.Chains) bases.push_back(chain->ItemBase);
        return bases;
    }
    [[nodiscard]] Texts ItemsOf(std::string_view base) const {
        const CContractChain* const chain = table_.FindChain(base);
        return chain == nullptr ? Texts{"no chain"} : chain->Items;
    }

    CChainTable table_;
    CTempFolder folder_;
};

TEST_F(ChainTableTest, ReadsChainsAndItemsInFileOrder) {
    Load(
        "[CHAINNUM]\r\nNum=2\r\n"
        "[CHAIN001]\r\nItemBase=cu\r\nNum=2\r\nItem01=al\r\nItem02=zn\r\n"
        "[CHAIN002]\r\nItemBase=a\r\nNum=1\r\nItem01=b\r\n");
    EXPECT_EQ(Bases(), (Texts{"cu", "a"}));
    EXPECT_EQ(ItemsOf("cu"), (Texts{"al", "zn"}));
    EXPECT_EQ(ItemsOf("a"), (Texts{"b"}));
    EXPECT_EQ(table_.FindChain("b"), nullptr);
    EXPECT_EQ(table_.FindChain("A"), nullptr);
    EXPECT_EQ(table_.FindChain(""), nullptr);
}

TEST_F(ChainTableTest, IsEmptyWithoutAFile) {
    EXPECT_FALSE(table_.Load(folder_.Path("chain.ini")).has_value());
    EXPECT_TRUE(table_.Chains.empty());
    EXPECT_EQ(table_.FindChain("cu"), nullptr);
}

TEST_F(ChainTableTest, IsEmptyForANumberOfZeroOrBelow) {
    for (const std::string_view number : {"0", "-1", "", "none"}) {
        Load("[CHAINNUM]\nNum=" + std::string(number) + "\n[CHAIN001]\nItemBase=a\nNum=1\nItem01=b\n");
        EXPECT_TRUE(table_.Chains.empty()) << number;
    }
    Load("[CHAIN001]\nItemBase=a\nNum=1\nItem01=b\n");
    EXPECT_TRUE(table_.Chains.empty());
}

TEST_F(ChainTableTest, ReadsNoMoreChainsThanTheNumberSays) {
    Load("[CHAINNUM]\nNum=2\n[CHAIN001]\nItemBase=a\n[CHAIN002]\nItemBase=b\n[CHAIN003]\nItemBase=c\n");
    EXPECT_EQ(Bases(), (Texts{"a", "b"}));
}

TEST_F(ChainTableTest, PassesOverAChainWithoutItemBase) {
    Load(
        "[CHAINNUM]\nNum=3\n"
        "[CHAIN001]\nItemBase=a\nNum=1\nItem01=x\n"
        "[CHAIN002]\nNum=1\nItem01=y\n"
        "[CHAIN003]\nItemBase=c\nNum=1\nItem01=z\n");
    EXPECT_EQ(Bases(), (Texts{"a", "c"}));
    EXPECT_EQ(ItemsOf("c"), (Texts{"z"}));
}

TEST_F(ChainTableTest, PassesOverAChainWithAnEmptyItemBaseOrNoSection) {
    Load("[CHAINNUM]\nNum=4\n[CHAIN001]\nItemBase=\n[CHAIN002]\nItemBase=\"\"\n[CHAIN004]\nItemBase=d\n");
    EXPECT_EQ(Bases(), (Texts{"d"}));
}

TEST_F(ChainTableTest, ReadsChainsInOrderOfTheirNumbers) {
    Load("[CHAIN002]\nItemBase=b\n[CHAIN001]\nItemBase=a\n[CHAINNUM]\nNum=2\n");
    EXPECT_EQ(Bases(), (Texts{"a", "b"}));
}

TEST_F(ChainTableTest, NamesChainsWithThreeDigitsOrMore) {
    Load(
        "[CHAINNUM]\nNum=2000\n[CHAIN1]\nItemBase=a\n[CHAIN01]\nItemBase=b\n[CHAIN0003]\nItemBase=c\n"
        "[CHAIN999]\nItemBase=d\n[CHAIN1000]\nItemBase=e\n[CHAIN01000]\nItemBase=f\n[CHAIN000]\nItemBase=g\n");
    EXPECT_EQ(Bases(), (Texts{"d", "e"}));
}

TEST_F(ChainTableTest, PassesOverNamesWithMoreThanTheirNumber) {
    Load(
        "[CHAINNUM]\r\nNum=2\r\n[CHAIN001x]\r\nItemBase=a\r\n"
        "[CHAIN002]\r\nItemBase=b\r\nNum=1\r\nItem01x=c\r\n");
    EXPECT_EQ(Bases(), Texts{"b"});
    EXPECT_EQ(ItemsOf("b"), Texts{""});
}

TEST_F(ChainTableTest, NamesItemsWithTwoDigitsOrMore) {
    std::string items = "Item1=x\nItem001=y\n";
    for (int k = 1; k <= 100; ++k) items += "Item" + std::string(k < 10 ? "0" : "") + std::to_string(k) + "=z\n";
    Load("[CHAINNUM]\nNum=1\n[CHAIN001]\nItemBase=a\nNum=100\n" + items);
    EXPECT_EQ(ItemsOf("a"), Texts(100, "z"));
}

TEST_F(ChainTableTest, ListsAnItemThatIsMissingAsAnEmptyText) {
    Load("[CHAINNUM]\nNum=1\n[CHAIN001]\nItemBase=a\nNum=2\nItem01=b\n");
    EXPECT_EQ(ItemsOf("a"), (Texts{"b", ""}));
    EXPECT_TRUE(table_.FindChain("a")->Contains(""));
    EXPECT_FALSE(table_.FindChain("a")->Contains("c"));
}

TEST_F(ChainTableTest, HasAnEmptyTextForAMissingItemOfAnyNumber) {
    std::string items;
    for (int k = 1; k <= 99; ++k) items += "Item" + std::string(k < 10 ? "0" : "") + std::to_string(k) + "=z\n";
    Load("[CHAINNUM]\nNum=1\n[CHAIN001]\nItemBase=a\nNum=99\n" + items);
    EXPECT_FALSE(table_.FindChain("a")->Contains(""));
    table_.Clear();
    Load("[CHAINNUM]\nNum=1\n[CHAIN001]\nItemBase=a\nNum=100\n" + items);
    EXPECT_TRUE(table_.FindChain("a")->Contains(""));
}

TEST_F(ChainTableTest, ReadsNoMoreItemsThanTheNumberSays) {
    Load(
        "[CHAINNUM]\nNum=3\n"
        "[CHAIN001]\nItemBase=a\nNum=1\nItem01=x\nItem02=y\n"
        "[CHAIN002]\nItemBase=b\nItem01=x\n"
        "[CHAIN003]\nItemBase=c\nNum=-5\nItem01=x\n");
    EXPECT_EQ(ItemsOf("a"), (Texts{"x"}));
    EXPECT_EQ(ItemsOf("b"), Texts{});
    EXPECT_EQ(ItemsOf("c"), Texts{});
}

TEST_F(ChainTableTest, KeepsTwoChainsOfOneItemBaseAndFindsTheLater) {
    Load(
        "[CHAINNUM]\nNum=2\n"
        "[CHAIN001]\nItemBase=a\nNum=1\nItem01=x\n"
        "[CHAIN002]\nItemBase=a\nNum=1\nItem01=y\n");
    EXPECT_EQ(Bases(), (Texts{"a", "a"}));
    EXPECT_EQ(ItemsOf("a"), (Texts{"y"}));
}

TEST_F(ChainTableTest, ReadsTheFirstSectionAndTheFirstKeyOfAName) {
    Load(
        "[CHAINNUM]\nNum=1\nNum=5\n"
        "[chain001]\nitembase=a\nItemBase=c\nNUM=1\nitem01=x\nItem01=y\n"
        "[CHAIN001]\nItemBase=b\nNum=1\nItem01=z\n");
    EXPECT_EQ(Bases(), (Texts{"a"}));
    EXPECT_EQ(ItemsOf("a"), (Texts{"x"}));
}

TEST_F(ChainTableTest, CutsProductsAt31Bytes) {
    const std::string longest(31, 'p');
    Load("[CHAINNUM]\nNum=1\n[CHAIN001]\nItemBase=" + longest + "q\nNum=2\nItem01=" + longest + "\nItem02=" + longest +
         "r\n");
    EXPECT_EQ(ItemsOf(longest), (Texts{longest, longest}));
}

TEST_F(ChainTableTest, KeepsGbkProductsAsBytes) {
    Load("[CHAINNUM]\nNum=1\n[CHAIN001]\nItemBase=" + Gbk("豆一") + "\nNum=1\nItem01=" + Gbk("豆二") + "\n");
    EXPECT_EQ(ItemsOf(Gbk("豆一")), (Texts{Gbk("豆二")}));
}

TEST_F(ChainTableTest, IsAsNewAfterClear) {
    Load("[CHAINNUM]\nNum=1\n[CHAIN001]\nItemBase=a\n");
    table_.Clear();
    EXPECT_TRUE(table_.Chains.empty());
    EXPECT_EQ(table_.FindChain("a"), nullptr);
}

TEST_F(ChainTableTest, TakesCountsOfBillionsInItsStride) {
    const auto start = std::chrono::steady_clock::now();
    Load(
        "[CHAINNUM]\nNum=2000000000\n"
        "[CHAIN001]\nItemBase=a\nNum=2000000000\nItem01=x\nItem1999999999=y\nItem2000000001=z\n"
        "[CHAIN2000000000]\nItemBase=b\nNum=2147483647\nItem2147483647=v\nItem99999999999=w\n"
        "[CHAIN2000000001]\nItemBase=c\n[CHAIN99999999999]\nItemBase=d\n");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
    EXPECT_EQ(Bases(), (Texts{"a", "b"}));
    EXPECT_TRUE(table_.FindChain("a")->Contains("x"));
    EXPECT_TRUE(table_.FindChain("a")->Contains("y"));
    EXPECT_TRUE(table_.FindChain("a")->Contains(""));
    EXPECT_FALSE(table_.FindChain("a")->Contains("z"));
    EXPECT_TRUE(table_.FindChain("b")->Contains("v"));
    EXPECT_FALSE(table_.FindChain("b")->Contains("w"));
    EXPECT_LE(ItemsOf("a").size(), 1000U);
    EXPECT_LE(ItemsOf("b").size(), 1000U);
}

TEST_F(ChainTableTest, SurvivesAFileOfManySectionsWithCountsOfBillions) {
    std::string content = "[CHAINNUM]\nNum=2000000000\n";
    for (int i = 1; i <= 2000; ++i) {
        const std::string number = std::to_string(i);
        content += "[CHAIN" + std::string(number.size() < 3 ? 3 - number.size() : 0, '0') + number + "]\nItemBase=p" +
                   number + "\nNum=2000000000\n";
    }
    Load(content);
    EXPECT_EQ(table_.Chains.size(), 2000U);
}

TEST_F(ChainTableTest, PassesOverAnyBytes) {
    std::string bytes;
    for (int i = 0; i < 4096; ++i) bytes += static_cast<char>(i * 37);
    Load("[CHAINNUM]\nNum=9\n" + bytes + "\n[CHAIN001\nItemBase\n=\n[]\n[CHAIN001]\nItemBase=a");
    EXPECT_LE(table_.Chains.size(), 9U);
}

TEST(ContractChain, ContainsItsItemsToTheLetter) {
    CContractChain chain("a");
    EXPECT_FALSE(chain.Contains("a"));  // the head is no item
    EXPECT_FALSE(chain.Contains(""));
    chain.Items = {"rb", "HC"};
    EXPECT_TRUE(chain.Contains("rb"));
    EXPECT_TRUE(chain.Contains("HC"));
    EXPECT_FALSE(chain.Contains("RB"));
    EXPECT_FALSE(chain.Contains("hc"));
    EXPECT_FALSE(chain.Contains("r"));
    EXPECT_FALSE(chain.Contains("rb "));
    EXPECT_FALSE(chain.Contains(""));
}

}  // namespace
}  // namespace tradebill::chain_table_test
