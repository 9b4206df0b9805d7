#include "report/request_copy.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>

#include "base/text.h"
#include "report/record_makers.h"
#include "support/store_fixture.h"

namespace tradebill::request_copy_test {
namespace {

class RequestCopy : public StoreFixture {};

std::int32_t AnyUnit(const char*, const char*, const char*) {
    return 1;
}
void AnySizes(const ChartSizeReport*) {}
std::int32_t AnyName(const char*, char*) {
    return 0;
}

TEST_F(RequestCopy, IsZeroWithClearedMoneyAtFirst) {
    const auto request = std::make_unique<GenerateBillRequest>(ClearedRequest());
    EXPECT_EQ(request->HostWindow, nullptr);
    EXPECT_EQ(request->StatementFormat, 0);
    EXPECT_EQ(request->StatementKind, 0);
    EXPECT_EQ(request->ContractUnitCallback, nullptr);
    EXPECT_EQ(FieldText(request->StartDate), "");
    EXPECT_EQ(request->CurrencyCount, 0);
    EXPECT_EQ(request->BaseMoney.EXCHANGE_RATE, 1.0);
    for (const MoneyRecord& money : request->CurrencyMoney) EXPECT_EQ(money.EXCHANGE_RATE, 1.0);
}

TEST_F(RequestCopy, TakesOverAllFields) {
    const auto request = std::make_unique<GenerateBillRequest>(ClearedRequest());
    int window = 0;
    int stop = 0;
    int acknowledge = 0;
    request->HostWindow = reinterpret_cast<HostWindowHandle>(&window);
    request->Dpi = 120;
    request->StatementFormat = 201;
    request->StatementKind = 2;
    request->MarginOffsetFlag = 1;
    CopyField(request->TemplateName, "broker");
    request->NotifyMessage = 0xFFFFFFFF;
    request->ContractUnitCallback = AnyUnit;
    request->ChartSizeCallback = AnySizes;
    request->ProductNameCallback = AnyName;
    request->StopEvent = reinterpret_cast<HostEventHandle>(&stop);
    request->AckEvent = reinterpret_cast<HostEventHandle>(&acknowledge);
    CopyField(request->StartDate, "2024-1-2");
    CopyField(request->EndDate, "2024-1-31");
    CopyField(request->Account, "80012345");
    CopyField(request->UserFolder, "trader");
    request->BaseMoney = Money("20240131", {{"QMJC", "5"}, {"HOST_FROZEN_B", "6"}}, 2.0);
    request->CurrencyMoney[0] = Money("", {{"CURRENCY", "USD"}}, 7.0);
    request->CurrencyMoney[99] = Money("", {{"CURRENCY", "HKD"}}, 8.0);  // beyond CurrencyCount
    request->CurrencyCount = 1;

    report.Request = CopyRequest(*request);
    EXPECT_EQ(std::memcmp(&report.Request, request.get(), sizeof(GenerateBillRequest)), 0);
    CopyField(request->Account, "gone");
    EXPECT_EQ(FieldText(report.Request.Account), "80012345");
}

TEST_F(RequestCopy, CutsUnterminatedTexts) {
    const auto request = std::make_unique<GenerateBillRequest>(ClearedRequest());
    std::memset(request->TemplateName, 'x', sizeof request->TemplateName);
    std::memset(request->StartDate, 'x', sizeof request->StartDate);
    std::memset(request->EndDate, 'x', sizeof request->EndDate);
    std::memset(request->Account, 'x', sizeof request->Account);
    std::memset(request->UserFolder, 'x', sizeof request->UserFolder);
    std::memset(request->BaseMoney.QMJC, '9', sizeof request->BaseMoney.QMJC);
    std::memset(request->CurrencyMoney[99].CURRENCY, 'x', sizeof request->CurrencyMoney[99].CURRENCY);
    report.Request = CopyRequest(*request);
    EXPECT_EQ(FieldText(report.Request.TemplateName), std::string(10, 'x'));
    EXPECT_EQ(FieldText(report.Request.StartDate), std::string(63, 'x'));
    EXPECT_EQ(FieldText(report.Request.EndDate), std::string(63, 'x'));
    EXPECT_EQ(FieldText(report.Request.Account), std::string(16, 'x'));
    EXPECT_EQ(FieldText(report.Request.UserFolder), std::string(127, 'x'));
    EXPECT_EQ(FieldText(report.Request.BaseMoney.QMJC), std::string(15, '9'));
    EXPECT_EQ(FieldText(report.Request.CurrencyMoney[99].CURRENCY), std::string(15, 'x'));
    EXPECT_EQ(request->Account[16], 'x');  // the caller's record isn't touched
}

TEST_F(RequestCopy, HoldsTheCurrencyCountToTheArray) {
    const auto request = std::make_unique<GenerateBillRequest>(ClearedRequest());
    const struct {
        std::int32_t given;
        std::int32_t held;
    } cases[] = {{-1, 0}, {0, 0}, {1, 1}, {99, 99}, {100, 100}, {101, 100}, {INT32_MAX, 100}, {INT32_MIN, 0}};
    for (const auto& row : cases) {
        request->CurrencyCount = row.given;
        report.Request = CopyRequest(*request);
        EXPECT_EQ(report.Request.CurrencyCount, row.held) << row.given;
    }
}

}  // namespace
}  // namespace tradebill::request_copy_test
