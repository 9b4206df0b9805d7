#include "report/product_text.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "driver/host_products.h"
#include "report/request_copy.h"
#include "support/gbk_text.h"

namespace tradebill::product_text_test {
namespace {

TEST(ProductText, IsTheContractUpToItsFirstDigit) {
    const std::string longest(31, 'p');
    const struct {
        std::string contract;
        std::string product;
    } cases[] = {
        {"cu", "cu"},
        {"m1501-C-2500", "m"},
        {"1105cu", ""},
        {"", ""},
        {" cu 1105", " cu "},
        {longest, longest},
        {longest + "q", longest},
        {Gbk("铜1105"), Gbk("铜")},
        {Gbk("　铜　"), Gbk("　铜　")},
    };
    for (const auto& row : cases) EXPECT_EQ(CProductText(row.contract).View(), row.product);
}

TEST(ProductOfContract, IsTheTextUpToItsFirstDigitWithoutBlanksOfEitherWidth) {
    const struct {
        const char* contract;
        const char* product;
    } cases[] = {
        {"rb2405", "rb"},
        {"i2405-C-900", "i"},
        {"豆粕P2900", "豆粕P"},
        {"　 　白糖 　2405", "白糖"},
        {" rb 2405", "rb"},
        {"白 糖", "白 糖"},
        {"\trb", "\trb"},
        {"2405", ""},
        {"　", ""},
        {"", ""},
    };
    for (const auto& row : cases) EXPECT_EQ(ProductOfContract(Gbk(row.contract)), Gbk(row.product)) << row.contract;
}

// Each way of the layouts to print a future and its options: all are the future's product.
TEST(FutureProductOf, JoinsOptionsToTheirFuture) {
    const struct {
        const char* contract;
        const char* delivery;
        const char* product;
    } cases[] = {
        {"m2405", "", "m"},           {"m2405-C-3200", "", "m"},
        {"cu2403C68000", "", "cu"},   {"SR405P6400", "", "SR"},
        {"SR405C6600", "2405", "SR"}, {"IO2402-P-3400", "", "IO"},
        {"豆粕", "2405", "豆粕"},     {"豆粕P3000", "2405", "豆粕"},
        {"豆粕C2900", "", "豆粕"},    {"豆粕-C-2900", "2405", "豆粕"},
        {"　豆粕 ", "2405", "豆粕"},  {"PTA", "2405", "PTA"},
        {"PTAP5900", "2405", "PTA"},  {"m", "2405", "m"},
        {"m-P-3000", "2405", "m"},    {"CP2300", "2405", "C"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(FutureProductOf(Gbk(row.contract), row.delivery), Gbk(row.product)) << row.contract;
    }
}

TEST(FutureProductOf, KeepsNamesThatEndInCOrP) {
    const struct {
        const char* contract;
        const char* delivery;
        const char* product;
    } cases[] = {
        {"PP", "2405", "PP"},    {"PP2405", "", "PP"},   {"PP2405", "2405", "PP"},
        {"ZC405", "2405", "ZC"},  // ends in the month
        {"P2405", "", "P"},      {"C2405", "2405", "C"}, {"P", "2405", "P"},
        {"-P-2405", "", "-P"},   {"", "2405", ""},       {"", "", ""},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(FutureProductOf(row.contract, row.delivery), row.product) << row.contract;
    }
    const std::string endsInHalf(
        "m\x81\x50"
        "2405");  // a character whose second byte is that of P
    EXPECT_EQ(FutureProductOf(endsInHalf, "2409"), endsInHalf.substr(0, 3));
}

TEST(ContractKey, PutsTheMonthBehindAProductThatStandsApart) {
    EXPECT_EQ(ContractKey("cu", "2405", true), "cu2405");
    EXPECT_EQ(ContractKey(" cu ", " 2405 ", true), "cu2405");
    EXPECT_EQ(ContractKey(Gbk("　沪铜"), "2405", true), Gbk("沪铜2405"));
    EXPECT_EQ(ContractKey(Gbk("豆粕P3000"), "2405", true), Gbk("豆粕P30002405"));
    EXPECT_EQ(ContractKey("cu2405", "2405", true), "cu2405");
    EXPECT_EQ(ContractKey("SR405", "2405", true), "SR405");
    EXPECT_EQ(ContractKey("SR405C6600", "2405", true), "SR405C6600");
    EXPECT_EQ(ContractKey("cu2405", "", true), "cu2405");
    EXPECT_EQ(ContractKey("l2405", "2405", false), "l2405");
    EXPECT_EQ(ContractKey("l", "2405", false), "l");
    EXPECT_EQ(ContractKey("x5", "2405", true), "x52405");  // one digit is no month
}

std::vector<std::string> namesAsked;

std::int32_t CodeOfCopper(const char* name, char* code) {
    namesAsked.emplace_back(name);
    for (int i = 0; i < 32; ++i) EXPECT_EQ(code[i], '\0');
    if (name == Gbk("铜")) {
        std::strcpy(code, "cu99");
        return 1;
    }
    if (name == Gbk("铝")) {
        std::memset(code, 'a', 32);  // no zero
        return 1;
    }
    std::strcpy(code, "no");
    return 2;
}

class ProductNames : public testing::Test {
protected:
    ProductNames() {
        namesAsked.clear();
        request_->ProductNameCallback = CodeOfCopper;
    }
    [[nodiscard]] std::string ProductOf(std::string_view contract) const {
        CProductText product(contract);
        product.TakeName(&products_);
        return std::string(product.View());
    }

    std::unique_ptr<GenerateBillRequest> request_ = std::make_unique<GenerateBillRequest>(ClearedRequest());

private:
    CHostProducts products_{*request_};
};

TEST_F(ProductNames, BecomeTheHostsCodeUpToItsFirstDigit) {
    EXPECT_EQ(ProductOf(Gbk("铜")), "cu");
    EXPECT_EQ(ProductOf(" " + Gbk("　铜　") + " "), "cu");
    EXPECT_EQ(namesAsked, (std::vector<std::string>{Gbk("铜"), Gbk("铜")}));
}

TEST_F(ProductNames, AreCutAt31BytesWhereTheHostWritesMore) {
    EXPECT_EQ(ProductOf(Gbk("铝")), std::string(31, 'a'));
}

TEST_F(ProductNames, StayWhereTheHostKnowsNoCode) {
    EXPECT_EQ(ProductOf(Gbk("　锌　")), Gbk("锌"));
    EXPECT_EQ(ProductOf("zn1105"), "zn");
    EXPECT_EQ(namesAsked.back(), "zn1105");
}

TEST_F(ProductNames, LoseTheirBlanksWithoutAHostToo) {
    request_->ProductNameCallback = nullptr;
    EXPECT_EQ(ProductOf(" " + Gbk("　锌　") + " "), Gbk("锌"));
}

TEST_F(ProductNames, LoseTheirBlanksWithoutASourceToo) {
    CProductText product(" " + Gbk("　锌　") + " ");
    product.TakeName(nullptr);
    EXPECT_EQ(product.View(), Gbk("锌"));
}

}  // namespace
}  // namespace tradebill::product_text_test
