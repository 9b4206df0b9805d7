#include "report/request_copy.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "driver/report_request.h"
#include "report/money_record.h"
#include "report/record_fields.h"
#include "report/records.h"

namespace tradebill {

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

GenerateBillRequest CopyRequest(const GenerateBillRequest& request) {
    GenerateBillRequest copy = request;
    Terminate(copy.TemplateName);
    Terminate(copy.StartDate);
    Terminate(copy.EndDate);
    Terminate(copy.Account);
    Terminate(copy.UserFolder);
    TerminateTexts(copy.BaseMoney);
    for (MoneyRecord& money : copy.CurrencyMoney) TerminateTexts(money);
    copy.CurrencyCount = std::clamp<std::int32_t>(request.CurrencyCount, 0, kCurrencyMoneyCapacity);
    return copy;
}

}  // namespace tradebill
