#include "report/request_copy.h"

#include <algorithm>
#include <cstddef>

#include "base/text.h"
#include "report/record_fields.h"
#include "report/records.h"

namespace tradebill {

GenerateBillRequest Request = ClearedRequest();
ReportRange ReportDays;

namespace {

template <std::size_t N>
void Terminate(char (&text)[N]) {
    text[N - 1] = '\0';
}

void TerminateTexts(MoneyRecord& record) {
    for (const auto& field : kMoneyFields) field.bytes(record).back() = '\0';
}

}  // namespace

GenerateBillRequest ClearedRequest() {
    GenerateBillRequest request{};
    request.BaseMoney = ClearedMoneyRecord();
    for (MoneyRecord& money : request.CurrencyMoney) money = ClearedMoneyRecord();
    return request;
}

void CopyRequest(const GenerateBillRequest& request) {
    Request = request;
    Terminate(Request.TemplateName);
    Terminate(Request.StartDate);
    Terminate(Request.EndDate);
    Terminate(Request.Account);
    Terminate(Request.UserFolder);
    TerminateTexts(Request.BaseMoney);
    for (MoneyRecord& money : Request.CurrencyMoney) TerminateTexts(money);
    Request.CurrencyCount = std::clamp<std::int32_t>(request.CurrencyCount, 0, kCurrencyMoneyCapacity);
}

std::int32_t AskContractUnit(std::string_view contract, std::string_view delivery) {
    if (Request.ContractUnitCallback == nullptr) return 1;
    char contractText[64] = {};
    char deliveryText[64] = {};
    CopyField(contractText, contract);
    CopyField(deliveryText, delivery);
    return Request.ContractUnitCallback(Request.Account, contractText, deliveryText);
}

}  // namespace tradebill
