// Exchanges and names of products, by contract.
#include "intake/product_names.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <string_view>

#include "base/ini_file.h"
#include "platform/text_encoding.h"
#include "report/product_text.h"
#include "requests/unit_table.h"

namespace tradebill::product_names_test {
namespace {

std::string Names(std::string_view contract) {
    const ProductName* const product = FindProduct(contract);
    return product != nullptr ? std::string(product->exchange) + " " + std::string(product->name) : "none";
}

TEST(ExchangeProducts, AreFoundByFuturesAndOptions) {
    EXPECT_EQ(Names("lc2402"), "广期所 碳酸锂");
    EXPECT_EQ(Names("SR405C6300"), "郑商所 白糖");
    EXPECT_EQ(Names("m2405-C-3200"), "大商所 豆粕");
    EXPECT_EQ(Names("IO2405-P-3500"), "中金所 沪深300股指期权");
    EXPECT_EQ(Names("sc2406"), "能源中心 原油");
    EXPECT_EQ(Names("xy2405"), "none");
    EXPECT_EQ(Names("sr405"), "none");  // exchanges differ in the case of their codes
    EXPECT_EQ(Names(""), "none");
}

TEST(ExchangeProducts, AreThereOnceForEachCodeAndFitIntoGbk) {
    std::set<std::string_view> codes;
    for (const ProductName& product : ProductNames()) {
        EXPECT_TRUE(codes.insert(product.code).second) << product.code;
        EXPECT_TRUE(Utf8ToGbk(product.name)) << product.code;
    }
}

TEST(ExchangeProducts, AreThereForEachCodeOfTheTableOfUnits) {
    const CIniFile table = CIniFile::Parse(UnitTableText());
    const CIniFile::Section* const units = table.FindSection("UNITS");
    ASSERT_NE(units, nullptr);
    for (const CIniFile::Entry& entry : units->entries) {
        const bool isCode = entry.key.size() <= 2 && static_cast<unsigned char>(entry.key.front()) < 0x80;
        EXPECT_TRUE(!isCode || FindProduct(entry.key) != nullptr) << entry.key;
    }
}

}  // namespace
}  // namespace tradebill::product_names_test
