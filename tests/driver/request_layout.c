/* The public header as a C99 host reads it. */
#include "request_layout.h"

#include "driver/report_request.h"

#define FIELD(Record, Field) \
    { #Field, offsetof(Record, Field), sizeof(((Record*)0)->Field) }
#define LAST_FIELD \
    { NULL, 0, 0 }

const size_t kMoneyRecordSizeInC = sizeof(MoneyRecord);
const size_t kChartSizeReportSizeInC = sizeof(ChartSizeReport);
const size_t kGenerateBillRequestSizeInC = sizeof(GenerateBillRequest);

const FieldLayout kMoneyRecordInC[] = {
    FIELD(MoneyRecord, BILL_DATE),
    FIELD(MoneyRecord, QCQY),
    FIELD(MoneyRecord, SPARE_MONEY_1),
    FIELD(MoneyRecord, SPARE_MONEY_2),
    FIELD(MoneyRecord, CRJ),
    FIELD(MoneyRecord, QMJC),
    FIELD(MoneyRecord, KYZJ),
    FIELD(MoneyRecord, PCYK),
    FIELD(MoneyRecord, SPARE_MONEY_3),
    FIELD(MoneyRecord, SPARE_MONEY_4),
    FIELD(MoneyRecord, CCDSYK),
    FIELD(MoneyRecord, HOST_CURRENT),
    FIELD(MoneyRecord, KHQY),
    FIELD(MoneyRecord, SPARE_MONEY_5),
    FIELD(MoneyRecord, SXF),
    FIELD(MoneyRecord, BZJZY),
    FIELD(MoneyRecord, SPARE_MONEY_6),
    FIELD(MoneyRecord, SPARE_MONEY_7),
    FIELD(MoneyRecord, HOST_FROZEN_A),
    FIELD(MoneyRecord, HOST_FROZEN_B),
    FIELD(MoneyRecord, HOST_POSITION_MARGIN),
    FIELD(MoneyRecord, HOST_POSITION_PL),
    FIELD(MoneyRecord, XQSXF),
    FIELD(MoneyRecord, QLJSZ),
    FIELD(MoneyRecord, CURRENCY),
    FIELD(MoneyRecord, SPARE_MONEY_8),
    FIELD(MoneyRecord, EXCHANGE_RATE),
    LAST_FIELD,
};

const FieldLayout kChartSizeReportInC[] = {
    FIELD(ChartSizeReport, EquityWidth),       FIELD(ChartSizeReport, EquityHeight),
    FIELD(ChartSizeReport, RealisedWidth),     FIELD(ChartSizeReport, RealisedHeight),
    FIELD(ChartSizeReport, AccountYieldWidth), FIELD(ChartSizeReport, AccountYieldHeight),
    FIELD(ChartSizeReport, TradeYieldWidth),   FIELD(ChartSizeReport, TradeYieldHeight),
    FIELD(ChartSizeReport, MoneyRecordCount),  LAST_FIELD,
};

const FieldLayout kGenerateBillRequestInC[] = {
    FIELD(GenerateBillRequest, HostWindow),        FIELD(GenerateBillRequest, Dpi),
    FIELD(GenerateBillRequest, StatementFormat),   FIELD(GenerateBillRequest, StatementKind),
    FIELD(GenerateBillRequest, MarginOffsetFlag),  FIELD(GenerateBillRequest, TemplateName),
    FIELD(GenerateBillRequest, NotifyMessage),     FIELD(GenerateBillRequest, ContractUnitCallback),
    FIELD(GenerateBillRequest, ChartSizeCallback), FIELD(GenerateBillRequest, ProductNameCallback),
    FIELD(GenerateBillRequest, StopEvent),         FIELD(GenerateBillRequest, AckEvent),
    FIELD(GenerateBillRequest, StartDate),         FIELD(GenerateBillRequest, EndDate),
    FIELD(GenerateBillRequest, Account),           FIELD(GenerateBillRequest, UserFolder),
    FIELD(GenerateBillRequest, BaseMoney),         FIELD(GenerateBillRequest, CurrencyMoney),
    FIELD(GenerateBillRequest, CurrencyCount),     LAST_FIELD,
};

static void CountMessage(void* context, uint32_t message, uint64_t wParam, int64_t lParam) {
    (void)message, (void)wParam, (void)lParam;
    ++*(int*)context;
}

static int32_t UnitOf(const char* account, const char* contract, const char* delivery) {
    return account[0] + contract[0] + delivery[0];
}

static void TakeSizes(const ChartSizeReport* report) {
    (void)report;
}

static int32_t CodeOf(const char* name, char* code) {
    code[0] = name[0];
    return 1;
}

int RunHostInC(void) {
    static GenerateBillRequest request;
    int messages = 0;
    request.HostWindow = CreateHostWindow(CountMessage, &messages);
    request.StopEvent = CreateHostEvent(1);
    request.AckEvent = CreateHostEvent(0);
    request.ContractUnitCallback = UnitOf;
    request.ChartSizeCallback = TakeSizes;
    request.ProductNameCallback = CodeOf;
    if (request.HostWindow == NULL || request.StopEvent == NULL || request.AckEvent == NULL) return 1;
    if (WaitForHostEvent(request.StopEvent, 0) != 0) return 2;
    SignalHostEvent(request.StopEvent);
    if (WaitForHostEvent(request.StopEvent, 0) != 1 || WaitForHostEvent(request.StopEvent, 0) != 1) return 3;
    ResetHostEvent(request.StopEvent);
    if (WaitForHostEvent(request.StopEvent, 0) != 0) return 4;
    SignalHostEvent(request.AckEvent);
    if (WaitForHostEvent(request.AckEvent, -1) != 1 || WaitForHostEvent(request.AckEvent, 0) != 0) return 5;
    if (TryGenerateBill(NULL) == 0 || messages != 0) return 6;
    DestroyHostEvent(request.AckEvent);
    DestroyHostEvent(request.StopEvent);
    DestroyHostWindow(request.HostWindow);
    return 0;
}
