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
