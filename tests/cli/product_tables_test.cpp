#include "cli/product_tables.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "cli/cli_fixture.h"

namespace tradebill::product_tables_test {
namespace {

class UnitTable : public testing::Test {
protected:
    void Use(std::string_view content) {
        tables_ = std::make_unique<CProductTables>();
        tables_->LoadUnits(folder_.Write("units.ini", content));
    }
    [[nodiscard]] std::string Refusal(std::string_view content) {
        return UsageErrorOf([&] { Use(content); });
    }
    /// The unit of a contract given in UTF-8.
    [[nodiscard]] std::int32_t UnitOf(std::string_view contract, std::string_view delivery = {}) const {
        return tables_->UnitOf(Gbk(contract), delivery);
    }

    CTempFolder folder_;
    std::unique_ptr<CProductTables> tables_ = std::make_unique<CProductTables>();
};

TEST_F(UnitTable, TakesTheProductUpToTheFirstDigit) {
    Use("[UNITS]\nrb=10\ni=100\nIF=300\nm-C-=7\n");
    EXPECT_EQ(UnitOf("rb2405"), 10);
    EXPECT_EQ(UnitOf("rb"), 10);
    EXPECT_EQ(UnitOf("i2405"), 100);
    EXPECT_EQ(UnitOf("IF2401"), 300);
    EXPECT_EQ(UnitOf("i2405-C-900"), 100);
    EXPECT_EQ(UnitOf("m-C-2500"), 7);
}

TEST_F(UnitTable, PassesOverBlanksAndFullWidthBlanksAroundTheProduct) {
    Use("[UNITS]\n白糖=10\nrb=5\n");
    for (const char* const contract : {"白糖", " 白糖 ", "　白糖　", "　 　白糖 　2405", "白糖　　2405"}) {
        EXPECT_EQ(UnitOf(contract), 10) << contract;
    }
    EXPECT_EQ(UnitOf(" rb 2405"), 5);
    EXPECT_EQ(UnitOf("白 糖"), 1);
    EXPECT_EQ(UnitOf("\trb"), 1);
}

TEST_F(UnitTable, LooksProductsUpToTheLetter) {
    Use("[UNITS]\nrb=10\n");
    for (const char* const contract : {"RB2405", "r2405", "rbx2405", "", "2405", "　"}) {
        EXPECT_EQ(UnitOf(contract), 1) << contract;
    }
}

TEST_F(UnitTable, DoesntLookAtTheDelivery) {
    Use("[UNITS]\nrb=10\ni=100\n");
    EXPECT_EQ(UnitOf("rb", "i2405"), 10);
    EXPECT_EQ(UnitOf("", "i2405"), 1);
}

TEST_F(UnitTable, WithoutAFileHasUnitsOfOne) {
    EXPECT_EQ(UnitOf("rb2405"), 1);
}

TEST_F(UnitTable, TakesTheFirstOfTwoUnits) {
    Use("[UNITS]\nrb=10\nrb=20\nRB=30\n[UNITS]\ni=5\n");
    EXPECT_EQ(UnitOf("rb2405"), 10);
    EXPECT_EQ(UnitOf("RB2405"), 30);
    EXPECT_EQ(UnitOf("i2405"), 1);
}

TEST_F(UnitTable, KnowsNothingOfAnotherTablesFile) {
    CProductTables other;
    other.LoadUnits(folder_.Write("other.ini", "[UNITS]\nrb=10\n"));
    Use("[UNITS]\ni=100\n");
    EXPECT_EQ(other.UnitOf("rb2405", ""), 10);
    EXPECT_EQ(other.UnitOf("i2405", ""), 1);
    EXPECT_EQ(UnitOf("rb2405"), 1);
    EXPECT_EQ(UnitOf("i2405"), 100);
}

TEST_F(UnitTable, RefusesWhatIsNoUnitWithItsLine) {
    const std::string file = folder_.Path("units.ini");
    for (const char* const unit : {"", "ten", "1.5", "10 lots", "99999999999"}) {
        EXPECT_PRED2(IsClearLine, Refusal("[UNITS]\ni=100\nrb=" + std::string(unit) + "\n"), file + ", line 3:");
    }
    EXPECT_PRED2(IsClearLine, Refusal("[UNITS]\nrb 10\n"), file + ", line 2:");
    EXPECT_PRED2(IsClearLine, Refusal("[UNITS]\n\xFF=10\n"), file + ", line 2:");
    EXPECT_PRED2(IsClearLine, Refusal("[PRODUCTS]\nrb=10\n"), "[UNITS]");
}

TEST_F(UnitTable, OfTheSamplesGivesTheUnitsOfTheMarkets) {
    tables_->LoadUnits(std::string(TRADEBILL_SAMPLES) + "/units.ini");
    EXPECT_EQ(UnitOf("IF2401"), 300);
    EXPECT_EQ(UnitOf("cu2405"), 5);
    EXPECT_EQ(UnitOf("au2406"), 1000);
    EXPECT_EQ(UnitOf("rb2405"), 10);
    EXPECT_EQ(UnitOf("i2405"), 100);
    EXPECT_EQ(UnitOf("m2405"), 10);
    EXPECT_EQ(UnitOf("SR405"), 10);
    EXPECT_EQ(UnitOf("TA405"), 5);
}

class ProductTable : public testing::Test {
protected:
    void Use(std::string_view content) {
        tables_ = std::make_unique<CProductTables>();
        tables_->LoadProducts(folder_.Write("products.ini", content));
    }
    [[nodiscard]] std::string Refusal(std::string_view content) {
        return UsageErrorOf([&] { Use(content); });
    }
    /// The code of a product given in UTF-8, or "none".
    [[nodiscard]] std::string CodeOf(std::string_view product) const {
        return tables_->CodeOf(Gbk(product)).value_or("none");
    }

    CTempFolder folder_;
    std::unique_ptr<CProductTables> tables_ = std::make_unique<CProductTables>();
};

TEST_F(ProductTable, GivesTheCodeOfAName) {
    Use("[PRODUCTS]\n沪铜=cu\n螺纹钢=rb\n");
    EXPECT_EQ(CodeOf("沪铜"), "cu");
    EXPECT_EQ(CodeOf("螺纹钢"), "rb");
    for (const char* const name : {"铜", "沪铜C", " 沪铜", ""}) EXPECT_EQ(CodeOf(name), "none") << name;
}

TEST_F(ProductTable, TakesCodesOfAtMost31Bytes) {
    Use("[PRODUCTS]\na=" + std::string(31, 'c') + "\n");
    EXPECT_EQ(CodeOf("a"), std::string(31, 'c'));
    EXPECT_PRED2(IsClearLine, Refusal("[PRODUCTS]\na=" + std::string(32, 'c') + "\n"),
                 folder_.Path("products.ini") + ", line 2:");
}

TEST_F(ProductTable, KnowsNothingOfAnotherTablesFile) {
    CProductTables other;
    other.LoadProducts(folder_.Write("other.ini", "[PRODUCTS]\na=b\n"));
    EXPECT_EQ(CodeOf("a"), "none");  // without a file names stay names
    Use("[PRODUCTS]\n");
    EXPECT_EQ(CodeOf("a"), "none");
    EXPECT_EQ(other.CodeOf("a"), "b");
}

TEST_F(ProductTable, RefusesWhatItCantRead) {
    EXPECT_PRED2(IsClearLine, Refusal("[UNITS]\na=b\n"), "[PRODUCTS]");
    EXPECT_PRED2(IsClearLine, Refusal("[PRODUCTS]\na\n"), ", line 2:");
    EXPECT_PRED2(IsClearLine, Refusal("[PRODUCTS]\na=\xFF\n"), ", line 2:");
}

}  // namespace
}  // namespace tradebill::product_tables_test
