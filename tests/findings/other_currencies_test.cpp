// Which rows of a statement title the money of another currency.
#include "findings/other_currencies.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "support/gbk_text.h"

namespace tradebill::other_currencies_test {
namespace {

TEST(CurrencyOfTitle, StandsBehindItsLabelInEitherLanguage) {
    EXPECT_EQ(CurrencyOfTitle(Gbk("资金状况  币种：人民币  Account Summary  Currency：CNY ")), Gbk("人民币"));
    EXPECT_EQ(CurrencyOfTitle(Gbk("资金状况 Account Summary AccountID：T1 Currency：CNY")), "CNY");
    EXPECT_EQ(CurrencyOfTitle(Gbk("资金状况  币种: 美元")), Gbk("美元"));
    EXPECT_EQ(CurrencyOfTitle(Gbk("资金状况")), "");
    EXPECT_EQ(CurrencyOfTitle(Gbk("资金状况  币种：")), "");
}

TEST(TitlesOfOtherCurrencies, AreThoseBelowTheFirstThatNameAnotherOnce) {
    const std::string first = Gbk("资金状况  币种：人民币");
    const std::string text =
        Gbk("资金状况  币种：日元\r\n") + first + "\r\n" + first + "\r\n" +
        Gbk("资金状况\r\n币种：欧元\r\n| 资金状况 币种：美元 |\r\n资金状况 币种：美元\r\n资金状况 币种：港元");
    const std::string_view whole = text;
    const std::string_view titleRow = whole.substr(whole.find(first), first.size());
    std::vector<std::string> currencies;
    for (const std::string_view row : TitlesOfOtherCurrencies(whole, titleRow, Gbk("资金状况"))) {
        currencies.emplace_back(CurrencyOfTitle(row));
    }
    EXPECT_EQ(currencies, (std::vector<std::string>{Gbk("美元"), Gbk("港元")}));
}

TEST(TitlesOfOtherCurrencies, AreNoneWhereTheFirstNamesNone) {
    const std::string text = Gbk("资金状况\r\n资金状况 币种：美元\r\n");
    EXPECT_TRUE(TitlesOfOtherCurrencies(text, std::string_view(text).substr(0, 8), Gbk("资金状况")).empty());
}

}  // namespace
}  // namespace tradebill::other_currencies_test
