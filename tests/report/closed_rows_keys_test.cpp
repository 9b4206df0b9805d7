// How closed positions find their contract, and how the host is asked for its unit.
#include "report/closed_rows.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/text.h"
#include "report/closed_rows_fixture.h"

namespace tradebill::closed_rows_keys_test {
namespace {

TEST_F(ClosedRows, AreKeyedByContractAndDeliveryInThreeFormats) {
    for (const std::int32_t format : {0, 1, 3}) {
        report.Clear();
        report.Request.StatementFormat = format;
        for (const char* const delivery : {"1105", "1106", "1105"}) {
            Fold(Closed({{"CONTRACT", "cu"}, {"DELIVERY", delivery}, {"BID", Gbk("买")}}));
        }
        EXPECT_EQ(Contracts(), (std::vector<std::string>{"cu/1105", "cu/1106"})) << format;
        EXPECT_EQ(First().LONG_COUNT, 2) << format;
    }
}

TEST_F(ClosedRows, AreKeyedByContractAloneInTheOtherFormats) {
    for (const std::int32_t format : {2, 6, 201}) {
        report.Clear();
        report.Request.StatementFormat = format;
        Fold(Closed({{"CONTRACT", "cu1105"}, {"DELIVERY", "x"}, {"BID", Gbk("买")}}));
        Fold(Closed({{"CONTRACT", "cu1106"}, {"DELIVERY", "x"}, {"BID", Gbk("买")}}));
        Fold(Closed({{"CONTRACT", "cu1105"}, {"DELIVERY", "y"}, {"BID", Gbk("买")}}));
        EXPECT_EQ(Contracts(), (std::vector<std::string>{"cu1105/x", "cu1106/x"})) << format;
    }
}

TEST_F(ClosedRows, JoinContractAndDeliveryByADash) {
    report.Request.StatementFormat = 0;
    Fold(Closed({{"CONTRACT", "cu"}, {"DELIVERY", "-1105"}, {"BID", Gbk("买")}}));
    Fold(Closed({{"CONTRACT", "cu-"}, {"DELIVERY", "1105"}, {"BID", Gbk("买")}}));  // the same key
    EXPECT_EQ(Contracts(), (std::vector<std::string>{"cu/-1105"}));
}

TEST_F(ClosedRows, AreListedInOrderOfFirstAppearance) {
    for (const char* const contract : {"zn", "al", "zn", "cu"}) {
        Fold(Closed({{"CONTRACT", contract}, {"BID", Gbk("买")}}));
    }
    EXPECT_EQ(Contracts(), (std::vector<std::string>{"zn/", "al/", "cu/"}));
}

TEST_F(ClosedRows, KeepContractAndDeliveryAsFirstSeen) {
    report.Request.StatementFormat = 1;
    const std::string longest(80, 'c');
    Fold(Closed({{"CONTRACT", longest}, {"DELIVERY", "12345678"}, {"CURRENCY", "USD"}, {"BID", Gbk("买")}}));
    EXPECT_EQ(FieldText(First().CONTRACT), longest);
    EXPECT_EQ(FieldText(First().DELIVERY), "12345678");
    EXPECT_EQ(FieldText(First().CURRENCY), "");  // foreign family only
}

TEST_F(ClosedRows, AskForTheUnitOfTheContractWithoutBlanks) {
    report.Request.ContractUnitCallback = UnitOfTen;
    CopyField(report.Request.Account, "80012345");
    Fold(Closed({{"CONTRACT", "  cu 1105 "}, {"DELIVERY", " 1105 "}, {"BID", Gbk("买")}}));
    Fold(Closed({{"CONTRACT", Gbk("　铜　")}, {"BID", Gbk("买")}}));
    Fold(Closed({{"CONTRACT", "\tcu\t"}, {"BID", ""}}));
    ASSERT_EQ(questions.size(), 3U);
    EXPECT_EQ(questions[0].account, "80012345");
    EXPECT_EQ(questions[0].contract, "cu 1105");
    EXPECT_EQ(questions[0].delivery, "");  // format 0 alone tells it
    EXPECT_EQ(questions[1].contract, Gbk("　铜　"));
    EXPECT_EQ(questions[2].contract, "\tcu\t");
}

TEST_F(ClosedRows, AskForTheUnitWithDeliveryInFormatZero) {
    report.Request.ContractUnitCallback = UnitOfTen;
    report.Request.StatementFormat = 0;
    Fold(Closed({{"CONTRACT", " " + Gbk("　铜　") + " "}, {"DELIVERY", " 1105 "}, {"BID", Gbk("买")}}));
    Fold(Closed({{"CONTRACT", "\xA1  cu"},
                 {"DELIVERY",
                  "\xA1"
                  "1105"},
                 {"BID", Gbk("买")}}));
    ASSERT_EQ(questions.size(), 2U);
    EXPECT_EQ(questions[0].contract, Gbk("铜"));
    EXPECT_EQ(questions[0].delivery, "1105");
    EXPECT_EQ(questions[1].contract, "  cu");  // blanks are trimmed once, before the others
    EXPECT_EQ(questions[1].delivery,
              "\xA1"
              "1105");
}

}  // namespace
}  // namespace tradebill::closed_rows_keys_test
