#include "requests/product_tables.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"
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

TEST_F(UnitTable, WithoutASourceHasUnitsOfOne) {
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
    EXPECT_FALSE(tables_->WantsTrades());
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

class UnitSources : public testing::Test {
protected:
    /// Trades of rb that tell a unit of 7.
    static CTradeUnits TradesOfSeven() {
        MatchRecord trade{};
        CopyField(trade.CONTRACT, "rb2405");
        CopyField(trade.MATCH_PRICE, "4000");
        CopyField(trade.MATCH_VOL, "2");
        CopyField(trade.TURNOVER, "56000.00");
        CTradeUnits trades;
        trades.Feed(trade);
        return trades;
    }
    void Ask(std::initializer_list<const char*> contracts) const {
        for (const char* const contract : contracts) static_cast<void>(tables_.UnitOf(Gbk(contract), ""));
    }

    CTempFolder folder_;
    CProductTables tables_;
};

TEST_F(UnitSources, AreTheTradesThenTheCarriedTableThenNone) {
    tables_.LoadCarriedUnits();
    ASSERT_TRUE(tables_.WantsTrades());
    tables_.UseTrades(TradesOfSeven());
    Ask({"rb2405", "cu2405", "xx2405", "螺纹钢"});
    EXPECT_EQ(tables_.UsedUnits(), (std::vector<ProductUnit>{{"rb", 7, UnitSource::Trades},
                                                             {"cu", 5, UnitSource::Table},
                                                             {"xx", 1, UnitSource::Unknown},
                                                             {Gbk("螺纹钢"), 10, UnitSource::Table}}));
}

TEST_F(UnitSources, AreTheFileAloneIfItIsGiven) {
    tables_.LoadUnits(folder_.Write("units.ini", "[UNITS]\nrb=3\n"));
    EXPECT_FALSE(tables_.WantsTrades());
    Ask({"rb2405", "cu2405"});
    EXPECT_EQ(tables_.UsedUnits(),
              (std::vector<ProductUnit>{{"rb", 3, UnitSource::File}, {"cu", 1, UnitSource::Unknown}}));
}

TEST_F(UnitSources, AreNoneIfUnitsShallBeOne) {
    tables_.WaiveUnits();
    EXPECT_FALSE(tables_.WantsTrades());
    Ask({"rb2405"});
    EXPECT_EQ(tables_.UsedUnits(), (std::vector<ProductUnit>{{"rb", 1, UnitSource::Waived}}));
}

TEST_F(UnitSources, AreToldOnceForEachProductInTheOrderOfAsking) {
    tables_.LoadCarriedUnits();
    EXPECT_TRUE(tables_.UsedUnits().empty());
    Ask({"rb2410", "cu2405", "rb2405", "rb"});
    EXPECT_EQ(tables_.UsedUnits(),
              (std::vector<ProductUnit>{{"rb", 10, UnitSource::Table}, {"cu", 5, UnitSource::Table}}));
}

TEST_F(UnitSources, HaveNames) {
    EXPECT_EQ(UnitSourceName(UnitSource::File), "file");
    EXPECT_EQ(UnitSourceName(UnitSource::Trades), "trades");
    EXPECT_EQ(UnitSourceName(UnitSource::Table), "table");
    EXPECT_EQ(UnitSourceName(UnitSource::Unknown), "none");
    EXPECT_EQ(UnitSourceName(UnitSource::Waived), "none");
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
