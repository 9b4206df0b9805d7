#include "requests/live_figures.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "base/text.h"
#include "cli/cli_fixture.h"
#include "report/request_copy.h"

namespace tradebill::live_figures_test {
namespace {

class LiveFigures : public testing::Test {
protected:
    void Use(std::string_view content) { UseLiveFile(folder_.Write("live.ini", content), request_); }
    [[nodiscard]] std::string Refusal(std::string_view content) {
        return UsageErrorOf([&] { Use(content); });
    }

    CTempFolder folder_;
    std::string file_ = folder_.Path("live.ini");
    GenerateBillRequest request_ = ClearedRequest();
};

TEST_F(LiveFigures, FillEveryNamedFieldOfTheRecord) {
    Use("[BASE]\nBILL_DATE=20240205\nQCQY=1\nCRJ=2\nQMJC=3\nKYZJ=4\nPCYK=5\nCCDSYK=6\nHOST_CURRENT=7\nKHQY=8\nSXF=9\n"
        "BZJZY=10\nHOST_FROZEN_A=11\nHOST_FROZEN_B=12\nHOST_POSITION_MARGIN=13\nHOST_POSITION_PL=14\nXQSXF=15\n"
        "QLJSZ=16\nCURRENCY=HKD*\nEXCHANGE_RATE=0.125\n");
    const MoneyRecord& money = request_.BaseMoney;
    EXPECT_EQ(FieldText(money.BILL_DATE), "20240205");
    EXPECT_EQ(FieldText(money.QCQY), "1");
    EXPECT_EQ(FieldText(money.CRJ), "2");
    EXPECT_EQ(FieldText(money.QMJC), "3");
    EXPECT_EQ(FieldText(money.KYZJ), "4");
    EXPECT_EQ(FieldText(money.PCYK), "5");
    EXPECT_EQ(FieldText(money.CCDSYK), "6");
    EXPECT_EQ(FieldText(money.HOST_CURRENT), "7");
    EXPECT_EQ(FieldText(money.KHQY), "8");
    EXPECT_EQ(FieldText(money.SXF), "9");
    EXPECT_EQ(FieldText(money.BZJZY), "10");
    EXPECT_EQ(FieldText(money.HOST_FROZEN_A), "11");
    EXPECT_EQ(FieldText(money.HOST_FROZEN_B), "12");
    EXPECT_EQ(FieldText(money.HOST_POSITION_MARGIN), "13");
    EXPECT_EQ(FieldText(money.HOST_POSITION_PL), "14");
    EXPECT_EQ(FieldText(money.XQSXF), "15");
    EXPECT_EQ(FieldText(money.QLJSZ), "16");
    EXPECT_EQ(FieldText(money.CURRENCY), "HKD*");
    EXPECT_EQ(money.EXCHANGE_RATE, 0.125);
    EXPECT_EQ(request_.CurrencyCount, 0);
}

TEST_F(LiveFigures, LeaveTheRestEmptyAndTheRateAtOne) {
    CopyField(request_.BaseMoney.QMJC, "old");
    Use("[BASE]\nQCQY=5\n");
    EXPECT_EQ(FieldText(request_.BaseMoney.QMJC), "");
    EXPECT_EQ(request_.BaseMoney.EXCHANGE_RATE, 1.0);
}

TEST_F(LiveFigures, CountCurrenciesFromOneOn) {
    Use("[CURRENCY2]\nCURRENCY=USD\nEXCHANGE_RATE=0.5\n[BASE]\n[CURRENCY1]\nCURRENCY=HKD\n");
    EXPECT_EQ(request_.CurrencyCount, 2);
    EXPECT_EQ(FieldText(request_.CurrencyMoney[0].CURRENCY), "HKD");
    EXPECT_EQ(FieldText(request_.CurrencyMoney[1].CURRENCY), "USD");
    EXPECT_EQ(request_.CurrencyMoney[1].EXCHANGE_RATE, 0.5);
}

TEST_F(LiveFigures, TakeAHundredCurrencies) {
    std::string content = "[BASE]\n";
    for (int i = 1; i <= 100; ++i) content += "[CURRENCY" + std::to_string(i) + "]\nQMJC=" + std::to_string(i) + "\n";
    Use(content);
    EXPECT_EQ(request_.CurrencyCount, 100);
    EXPECT_EQ(FieldText(request_.CurrencyMoney[99].QMJC), "100");
    EXPECT_PRED2(IsClearLine, Refusal(content + "[CURRENCY101]\n"), file_ + ", line 202:");
}

TEST_F(LiveFigures, RefuseAGapInTheCurrencies) {
    EXPECT_PRED2(IsClearLine, Refusal("[BASE]\n[CURRENCY1]\n[CURRENCY3]\n"), file_ + ", line 3:");
    EXPECT_PRED2(IsClearLine, Refusal("[BASE]\n[CURRENCY0]\n"), file_ + ", line 2:");
}

TEST_F(LiveFigures, RefuseUnknownSectionsAndFields) {
    EXPECT_PRED2(IsClearLine, Refusal("[BASE]\n[OTHER]\n"), file_ + ", line 2:");
    EXPECT_PRED2(IsClearLine, Refusal("[BASE]\nQMJC=1\nEQUITY=1\n"), file_ + ", line 3:");
    EXPECT_PRED2(IsClearLine, Refusal("[BASE]\n[CURRENCY1]\nEQUITY=1\n"), file_ + ", line 3:");
    EXPECT_PRED2(IsClearLine, Refusal("[CURRENCY1]\nQMJC=1\n"), "[BASE]");
}

TEST_F(LiveFigures, RefuseValuesTooLongForTheirField) {
    EXPECT_EQ(Refusal("[BASE]\nBILL_DATE=20240205\nQMJC=" + std::string(15, '1') + "\n"), "");
    EXPECT_EQ(FieldText(request_.BaseMoney.QMJC), std::string(15, '1'));
    EXPECT_PRED2(IsClearLine, Refusal("[BASE]\nQMJC=" + std::string(16, '1') + "\n"), file_ + ", line 2:");
    EXPECT_PRED2(IsClearLine, Refusal("[BASE]\nBILL_DATE=202402050\n"), file_ + ", line 2:");
    EXPECT_PRED2(IsClearLine, Refusal("[BASE]\nCURRENCY=港元港元港元港元\n"), file_ + ", line 2:");  // 16 bytes of GBK
    EXPECT_EQ(Refusal("[BASE]\nCURRENCY=港元港元港元港\n"), "");
    EXPECT_EQ(FieldText(request_.BaseMoney.CURRENCY), Gbk("港元港元港元港"));
}

TEST_F(LiveFigures, TakeAnyDecimalRate) {
    for (const auto& [text, rate] : {std::pair{"0", 0.0}, {"-2.5", -2.5}, {"7.7849", 7.7849}}) {
        EXPECT_EQ(Refusal("[BASE]\nEXCHANGE_RATE=" + std::string(text) + "\n"), "");
        EXPECT_EQ(request_.BaseMoney.EXCHANGE_RATE, rate);
    }
}

TEST_F(LiveFigures, RefuseARateThatIsNoDecimalNumber) {
    for (const char* const rate : {"", "one", "1.0x", "1,000", "0x10", "inf", "-inf", "nan"}) {
        EXPECT_PRED2(IsClearLine, Refusal("[BASE]\nEXCHANGE_RATE=" + std::string(rate) + "\n"), file_ + ", line 2:")
            << rate;
    }
}

TEST_F(LiveFigures, OfTheForeignSampleAreTaken) {
    UseLiveFile(std::string(TRADEBILL_SAMPLES) + "/foreign/live.ini", request_);
    EXPECT_EQ(FieldText(request_.BaseMoney.CURRENCY), "HKD*");
    EXPECT_EQ(FieldText(request_.CurrencyMoney[0].CURRENCY), "HKD");
    EXPECT_GE(request_.CurrencyCount, 2);
}

}  // namespace
}  // namespace tradebill::live_figures_test
