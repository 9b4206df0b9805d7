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
