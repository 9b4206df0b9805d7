#include "cli/json_writer.h"

#include <cmath>
#include <nlohmann/json.hpp>
#include <span>
#include <string>
#include <string_view>

#include "platform/text_encoding.h"
#include "report/account_statistics.h"
#include "report/chain_table.h"
#include "report/record_fields.h"
#include "report/report_document.h"
#include "report/stores.h"
#include "report/trade_statistics.h"

namespace tradebill {
namespace {

using Json = nlohmann::ordered_json;

Json Number(double value) {
    if (std::isnan(value)) return "nan";
    if (std::isinf(value)) return value > 0 ? "inf" : "-inf";
    return value;
}

template <class Record, std::size_t N>
Json Texts(const Record& record, const TextField<Record> (&fields)[N]) {
    Json object = Json::object();
    for (const auto& field : fields) object[std::string(field.name)] = GbkToUtf8(field.Text(record));
    return object;
}

Json JsonOf(const MoneyRecord& record) {
    Json object = Texts(record, kMoneyFields);
    object["EXCHANGE_RATE"] = Number(record.EXCHANGE_RATE);
    return object;
}

Json JsonOf(const MatchRecord& record) {
    return Texts(record, kMatchFields);
}

Json JsonOf(const PingDetail& record) {
    return Texts(record, kPingFields);
}

Json JsonOf(const OpiDetail& record) {
    return Texts(record, kOpiDetailFields);
}

Json JsonOf(const OpiSum& record) {
    return Texts(record, kOpiSumFields);
}

Json JsonOf(const ContractOffset& offset) {
    return {
        {"CONTRACT", GbkToUtf8(FieldText(offset.CONTRACT))},
        {"DELIVERY", GbkToUtf8(FieldText(offset.DELIVERY))},
        {"CURRENCY", GbkToUtf8(FieldText(offset.CURRENCY))},
        {"LONG_VOL", offset.LONG_VOL},
        {"SHORT_VOL", offset.SHORT_VOL},
        {"LONG_PL", Number(offset.LONG_PL)},
        {"SHORT_PL", Number(offset.SHORT_PL)},
        {"LONG_COUNT", offset.LONG_COUNT},
        {"SHORT_COUNT", offset.SHORT_COUNT},
        {"LONG_WIN_COUNT", offset.LONG_WIN_COUNT},
        {"SHORT_WIN_COUNT", offset.SHORT_WIN_COUNT},
        {"LONG_WIN_VOL", offset.LONG_WIN_VOL},
        {"SHORT_WIN_VOL", offset.SHORT_WIN_VOL},
        {"LONG_WIN_PL", Number(offset.LONG_WIN_PL)},
        {"SHORT_WIN_PL", Number(offset.SHORT_WIN_PL)},
        {"LONG_LOSE_COUNT", offset.LONG_LOSE_COUNT},
        {"SHORT_LOSE_COUNT", offset.SHORT_LOSE_COUNT},
        {"LONG_LOSE_VOL", offset.LONG_LOSE_VOL},
        {"SHORT_LOSE_VOL", offset.SHORT_LOSE_VOL},
        {"LONG_LOSE_PL", Number(offset.LONG_LOSE_PL)},
        {"SHORT_LOSE_PL", Number(offset.SHORT_LOSE_PL)},
        {"LONG_MAX_WIN", Number(offset.LONG_MAX_WIN)},
        {"LONG_MAX_LOSS", Number(offset.LONG_MAX_LOSS)},
        {"SHORT_MAX_WIN", Number(offset.SHORT_MAX_WIN)},
        {"SHORT_MAX_LOSS", Number(offset.SHORT_MAX_LOSS)},
    };
}

Json JsonOf(const CContractChain& chain) {
    Json items = Json::array();
    for (const std::string& item : chain.Items) items.push_back(GbkToUtf8(item));
    return {{"ItemBase", GbkToUtf8(chain.ItemBase)}, {"Items", std::move(items)}};
}

Json JsonOf(const DayFigure& day) {
    return {
        {"Day", GbkToUtf8(day.Day)},        {"ClosedPL", Number(day.ClosedPL)}, {"PositionPL", Number(day.PositionPL)},
        {"CashFlow", Number(day.CashFlow)}, {"Opening", Number(day.Opening)},   {"Closing", Number(day.Closing)},
        {"Yield", Number(day.Yield)},
    };
}

Json JsonOf(const ContractPosition& position) {
    return {
        {"Product", GbkToUtf8(position.Product)},
        {"Side", GbkToUtf8(position.Side)},
        {"Lots", position.Lots},
        {"NetLots", Number(position.NetLots)},
        {"Day", GbkToUtf8(position.Day)},
        {"Margin", Number(position.Margin)},
        {"UnitMargin", Number(position.UnitMargin)},
    };
}

Json JsonOf(const CDayUsage& usage) {
    Json positions = Json::array();
    for (const auto& position : usage.Positions) positions.push_back(JsonOf(*position));
    return {
        {"Day", GbkToUtf8(usage.Day)},    {"Margin", Number(usage.Margin)}, {"Equity", Number(usage.Equity)},
        {"HasFigures", usage.HasFigures}, {"Risk", Number(usage.Risk)},     {"Positions", std::move(positions)},
    };
}

Json JsonOf(const CAccountStatistics& figures) {
    return {
        {"WinCount", figures.WinCount},           {"LoseCount", figures.LoseCount},
        {"FlatCount", figures.FlatCount},         {"InitialEquity", Number(figures.InitialEquity)},
        {"MaxEquity", Number(figures.MaxEquity)}, {"MinEquity", Number(figures.MinEquity)},
        {"TotalPL", Number(figures.TotalPL)},     {"MaxDrawdown", Number(figures.MaxDrawdown)},
        {"WinRate", Number(figures.WinRate)},     {"ProfitRate", Number(figures.ProfitRate)},
        {"MaxProfit", Number(figures.MaxProfit)}, {"MaxLoss", Number(figures.MaxLoss)},
        {"MaxYield", Number(figures.MaxYield)},   {"MaxRisk", Number(figures.MaxRisk)},
    };
}

Json JsonOf(const CMoneyStore& store) {
    Json records = Json::array();
    for (const auto& record : store.Records) records.push_back(JsonOf(*record));
    return {
        {"LastHostCurrent", Number(store.LastHostCurrent)},
        {"OpeningEquity", Number(store.OpeningEquity)},
        {"ClosingEquity", Number(store.ClosingEquity)},
        {"TotalClosedPL", Number(store.TotalClosedPL)},
        {"TotalPositionPL", Number(store.TotalPositionPL)},
        {"TotalCashFlow", Number(store.TotalCashFlow)},
        {"FirstCashFlow", Number(store.FirstCashFlow)},
        {"Available", Number(store.Available)},
        {"MinEquity", Number(store.MinEquity)},
        {"MaxEquity", Number(store.MaxEquity)},
        {"MinDayPL", Number(store.MinDayPL)},
        {"MaxDayPL", Number(store.MaxDayPL)},
        {"FrozenB", Number(store.FrozenB)},
        {"FrozenA", Number(store.FrozenA)},
        {"HostPositionPL", Number(store.HostPositionPL)},
        {"PositionMargin", Number(store.PositionMargin)},
        {"Count", store.Count()},
        {"TotalFees", Number(store.TotalFees)},
        {"TotalPremium", Number(store.TotalPremium)},
        {"StartDateText", store.StartDateText},
        {"EndDateText", store.EndDateText},
        {"ChartSizes", store.ChartSizes},
        {"Records", std::move(records)},
    };
}

/// One member that is a list: written element by element, since a list may hold a year's trades.
template <class Elements>
void WriteList(std::ostream& out, std::string_view name, const Elements& elements) {
    out << ",\n\"" << name << "\": [";
    const char* separator = "\n";
    for (const auto& element : elements) {
        out << separator << JsonOf(*element).dump();
        separator = ",\n";
    }
    out << "]";
}

void WriteCurrencies(std::ostream& out) {
    Json currencies = Json::array();
    for (const std::string& name : CurrencyMoneyStore.Names) {
        currencies.push_back({{"name", GbkToUtf8(name)}, {"store", JsonOf(*CurrencyMoneyStore.Find(name))}});
    }
    out << ",\n\"currencies\": " << currencies.dump();
}

}  // namespace

void WriteJson(std::ostream& out) {
    out << "{\"money\": " << JsonOf(MoneyStore).dump();
    WriteCurrencies(out);
    WriteList(out, "matches", MatchStore.Rows);
    WriteList(out, "closed", PingDetailStore.Rows);
    WriteList(out, "positions", OpiDetailStore.Rows);
    WriteList(out, "positionSums", OpiSumStore.Rows);
    WriteList(out, "offsets", ReportDocument.Offsets);
    WriteList(out, "chains", ChainTable.Chains);
    WriteList(out, "days", TradeStatistics.DayFigures.Days);
    WriteList(out, "usage", TradeStatistics.DayUsages.Days);
    out << ",\n\"account\": " << JsonOf(AccountStatistics).dump() << "}\n";
}

}  // namespace tradebill
