// The records that hosts pass in memory, to the byte, as a C compiler and as this one lay them out.
#include "driver/request_layout.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <ostream>
#include <string>
#include <type_traits>
#include <vector>

#include "driver/report_request.h"

namespace tradebill::request_layout_test {
namespace {

struct Field {
    std::string name;
    std::size_t offset;
    std::size_t size;
    bool operator==(const Field&) const = default;
};

void PrintTo(const Field& field, std::ostream* out) {
    *out << field.name << " at " << field.offset << ", " << field.size << " bytes";
}

std::vector<Field> FieldsOf(const FieldLayout* layout) {
    std::vector<Field> fields;
    for (; layout->name != nullptr; ++layout) fields.push_back({layout->name, layout->offset, layout->size});
    return fields;
}

// clang-format off
const std::vector<Field> kMoneyRecord = {
    {"BILL_DATE",              0,  9},
    {"QCQY",                   9, 16},
    {"SPARE_MONEY_1",         25, 16},
    {"SPARE_MONEY_2",         41, 16},
    {"CRJ",                   57, 16},
    {"QMJC",                  73, 16},
    {"KYZJ",                  89, 16},
    {"PCYK",                 105, 16},
    {"SPARE_MONEY_3",        121, 16},
    {"SPARE_MONEY_4",        137, 16},
    {"CCDSYK",               153, 16},
    {"HOST_CURRENT",         169, 16},
    {"KHQY",                 185, 16},
    {"SPARE_MONEY_5",        201, 16},
    {"SXF",                  217, 16},
    {"BZJZY",                233, 16},
    {"SPARE_MONEY_6",        249, 16},
    {"SPARE_MONEY_7",        265, 16},
    {"HOST_FROZEN_A",        281, 16},
    {"HOST_FROZEN_B",        297, 16},
    {"HOST_POSITION_MARGIN", 313, 16},
    {"HOST_POSITION_PL",     329, 16},
    {"XQSXF",                345, 16},
    {"QLJSZ",                361, 16},
    {"CURRENCY",             377, 16},
    {"SPARE_MONEY_8",        393, 16},
    {"EXCHANGE_RATE",        416,  8},
};

const std::vector<Field> kChartSizeReport = {
    {"EquityWidth",         0, 4},
    {"EquityHeight",        4, 4},
    {"RealisedWidth",       8, 4},
    {"RealisedHeight",     12, 4},
    {"AccountYieldWidth",  16, 4},
    {"AccountYieldHeight", 20, 4},
    {"TradeYieldWidth",    24, 4},
    {"TradeYieldHeight",   28, 4},
    {"MoneyRecordCount",   32, 4},
};

const std::vector<Field> kGenerateBillRequest = {
    {"HostWindow",               0,     8},
    {"Dpi",                      8,     4},
    {"StatementFormat",         12,     4},
    {"StatementKind",           16,     4},
    {"MarginOffsetFlag",        20,     4},
    {"TemplateName",            24,    11},
    {"NotifyMessage",           36,     4},
    {"ContractUnitCallback",    40,     8},
    {"ChartSizeCallback",       48,     8},
    {"ProductNameCallback",     56,     8},
    {"StopEvent",               64,     8},
    {"AckEvent",                72,     8},
    {"StartDate",               80,    64},
    {"EndDate",                144,    64},
    {"Account",                208,    17},
    {"UserFolder",             225,   128},
    {"BaseMoney",              360,   424},
    {"CurrencyMoney",          784, 42400},
    {"CurrencyCount",        43184,     4},
};
// clang-format on

TEST(RequestLayout, OfMoneyRecordIsTheInterfaceInC) {
    EXPECT_EQ(FieldsOf(kMoneyRecordInC), kMoneyRecord);
    EXPECT_EQ(kMoneyRecordSizeInC, 424U);
}

TEST(RequestLayout, OfChartSizeReportIsTheInterfaceInC) {
    EXPECT_EQ(FieldsOf(kChartSizeReportInC), kChartSizeReport);
    EXPECT_EQ(kChartSizeReportSizeInC, 36U);
}

TEST(RequestLayout, OfGenerateBillRequestIsTheInterfaceInC) {
    EXPECT_EQ(FieldsOf(kGenerateBillRequestInC), kGenerateBillRequest);
    EXPECT_EQ(kGenerateBillRequestSizeInC, 43192U);
}

TEST(RequestLayout, IsTheSameInCPlusPlus) {
    EXPECT_EQ(sizeof(MoneyRecord), 424U);
    EXPECT_EQ(offsetof(MoneyRecord, SPARE_MONEY_8), 393U);
    EXPECT_EQ(offsetof(MoneyRecord, EXCHANGE_RATE), 416U);
    EXPECT_EQ(sizeof(ChartSizeReport), 36U);
    EXPECT_EQ(offsetof(ChartSizeReport, MoneyRecordCount), 32U);
    EXPECT_EQ(sizeof(GenerateBillRequest), 43192U);
    EXPECT_EQ(offsetof(GenerateBillRequest, NotifyMessage), 36U);
    EXPECT_EQ(offsetof(GenerateBillRequest, ContractUnitCallback), 40U);
    EXPECT_EQ(offsetof(GenerateBillRequest, StopEvent), 64U);
    EXPECT_EQ(offsetof(GenerateBillRequest, StartDate), 80U);
    EXPECT_EQ(offsetof(GenerateBillRequest, Account), 208U);
    EXPECT_EQ(offsetof(GenerateBillRequest, UserFolder), 225U);
    EXPECT_EQ(offsetof(GenerateBillRequest, BaseMoney), 360U);
    EXPECT_EQ(offsetof(GenerateBillRequest, CurrencyMoney), 784U);
    EXPECT_EQ(offsetof(GenerateBillRequest, CurrencyCount), 43184U);
}

TEST(RequestLayout, HasNumbersOfFixedSigns) {
    EXPECT_TRUE((std::is_same_v<decltype(GenerateBillRequest::Dpi), std::int32_t>));
    EXPECT_TRUE((std::is_same_v<decltype(GenerateBillRequest::StatementFormat), std::int32_t>));
    EXPECT_TRUE((std::is_same_v<decltype(GenerateBillRequest::StatementKind), std::int32_t>));
    EXPECT_TRUE((std::is_same_v<decltype(GenerateBillRequest::MarginOffsetFlag), std::int32_t>));
    EXPECT_TRUE((std::is_same_v<decltype(GenerateBillRequest::NotifyMessage), std::uint32_t>));
    EXPECT_TRUE((std::is_same_v<decltype(GenerateBillRequest::CurrencyCount), std::int32_t>));
    EXPECT_TRUE((std::is_same_v<decltype(ChartSizeReport::MoneyRecordCount), std::int32_t>));
    EXPECT_TRUE((std::is_same_v<decltype(MoneyRecord::EXCHANGE_RATE), double>));
}

}  // namespace
}  // namespace tradebill::request_layout_test
