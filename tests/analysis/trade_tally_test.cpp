// Under which product, day and exchange an account's trades are counted.
#include "analysis/trade_tally.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "analysis/account_maker.h"
#include "analysis/product_names.h"
#include "base/day_number.h"
#include "report/request_copy.h"

namespace tradebill::trade_tally_test {
namespace {

class TradeTally : public AccountMaker {
protected:
    CTradeTally Tally() {
        CProductNames names(report);
        return {report, names};
    }
    std::optional<double> FeePerLot(std::string_view product, std::string_view day, std::string_view currency = "") {
        return Tally().FeePerLot(currency, Gbk(product), *DayNumberOf(day));
    }
};

TEST_F(TradeTally, SharesFeesByLotsWithinProductAndDay) {
    AddTrade({"20240102", "rb2405", "3", "6.00"});
    AddTrade({"20240102", "rb2410", "1", "4.00"});
    AddTrade({"20240103", "rb2405", "2", "1.00"});
    AddTrade({"20240102", "m2405", "2", "3.00"});
    AddTrade({"20240102", "m2405-C-3200", "2", "5.00"});
    EXPECT_EQ(FeePerLot("rb", "20240102"), 2.5);  // (6 + 4) / 4
    EXPECT_EQ(FeePerLot("rb", "20240103"), 0.5);
    EXPECT_EQ(FeePerLot("m", "20240102"), 2);  // the option's with the future's: (3 + 5) / 4
    EXPECT_EQ(FeePerLot("m", "20240103"), std::nullopt);
    EXPECT_EQ(FeePerLot("cu", "20240102"), std::nullopt);
}

TEST_F(TradeTally, TakesFeesThatAreStatedBelowNothing) {
    AddTrade({"20240102", "rb2405", "2", "-3.00"});
    EXPECT_EQ(FeePerLot("rb", "20240102"), 1.5);
}

TEST_F(TradeTally, HasNoFeesWithoutLots) {
    AddTrade({"20240102", "rb2405", "0", "3.00"});
    EXPECT_EQ(FeePerLot("rb", "20240102"), std::nullopt);
}

TEST_F(TradeTally, KeepsCurrenciesOfForeignAccountsApart) {
    report.Request.StatementKind = kForeignKind;
    for (const char* const currency : {"USD", "EUR"}) {
        MatchRecord& row = report.MatchStore.Add();
        FillFields<MatchRecord>(row, kMatchFields,
                                {{"BILL_DATE", "20240102"},
                                 {"CONTRACT", "S2403"},
                                 {"MATCH_VOL", "2"},
                                 {"POUNDAGE", currency == std::string_view("USD") ? "8.00" : "5.00"},
                                 {"CURRENCY", currency}});
    }
    EXPECT_EQ(FeePerLot("S", "20240102", "USD"), 4);
    EXPECT_EQ(FeePerLot("S", "20240102", "EUR"), 2.5);
    EXPECT_EQ(FeePerLot("S", "20240102"), std::nullopt);
}

TEST_F(TradeTally, KnowsTheExchangeOfAContract) {
    AddTrade({"20240102", "rb2405", "1", "1", "0", ""});
    AddTrade({"20240102", "rb2405", "1", "1", "0", "　上期所 "});
    AddTrade({"20240103", "rb2405", "1", "1", "0", "大商所"});
    EXPECT_EQ(Tally().ExchangeOf("rb2405"), Gbk("上期所"));  // the first that names one
    EXPECT_EQ(Tally().ExchangeOf("rb2410"), "");
}

TEST_F(TradeTally, KnowsTheExchangeOfAContractWhoseMonthStandsApart) {
    report.Request.StatementFormat = 1;
    AddTrade({"20240102", "rb", "1", "1", "0", "上期所", "2405"});
    EXPECT_EQ(Tally().ExchangeOf("rb2405"), Gbk("上期所"));
}

class ProductNameOf : public AccountMaker {};

TEST_F(ProductNameOf, IsTheCodeWithThePrintedNameBesideIt) {
    products.codes = {{Gbk("豆粕"), "m"}};
    CProductNames names(report);
    for (const char* const contract : {"豆粕", "豆粕P3000", "　豆粕 "}) {
        const ProductName& product = names.Of(Gbk(contract), "2405");
        EXPECT_EQ(product.key, "m") << contract;
        EXPECT_EQ(product.name, Gbk("豆粕")) << contract;
    }
}

TEST_F(ProductNameOf, IsWhatIsPrintedWithoutACode) {
    CProductNames names(report);
    EXPECT_EQ(names.Of("PTAP5900", "2405").key, "PTA");
    EXPECT_EQ(names.Of("PTAP5900", "2405").name, "");
    report.Products = nullptr;
    CProductNames unasked(report);
    EXPECT_EQ(unasked.Of("rb2405", "").key, "rb");
}

}  // namespace
}  // namespace tradebill::trade_tally_test
