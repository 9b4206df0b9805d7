#include "cli/json_writer.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <nlohmann/json.hpp>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "platform/text_encoding.h"
#include "report/chain_table.h"
#include "report/currency_money_store.h"
#include "report/day_usage.h"
#include "report/figure_fields.h"
#include "report/money_record.h"
#include "report/money_store.h"
#include "report/record_fields.h"
#include "report/records.h"
#include "report/report.h"
#include "report/trade_statistics.h"

namespace tradebill {
namespace {

using Json = nlohmann::ordered_json;

Json JsonOf(const FigureValue& figure) {
    if (const auto* const text = std::get_if<std::string_view>(&figure)) return GbkToUtf8(*text);
    if (const auto* const count = std::get_if<std::int32_t>(&figure)) return *count;
    const double amount = std::get<double>(figure);
    if (std::isnan(amount)) return "nan";
    if (std::isinf(amount)) return amount > 0 ? "inf" : "-inf";
    return amount;
}

template <class Record, std::size_t N>
void AddTexts(Json& object, const Record& record, const TextField<Record> (&fields)[N]) {
    for (const auto& field : fields) object[std::string(field.name)] = GbkToUtf8(field.Text(record));
}

template <class Owner, std::size_t N>
void AddFigures(Json& object, const Owner& owner, const FigureField<Owner> (&fields)[N]) {
    for (const auto& field : fields) object[std::string(field.name)] = JsonOf(field.value(owner));
}

template <class Record, std::size_t N>
Json Texts(const Record& record, const TextField<Record> (&fields)[N]) {
    Json object = Json::object();
    AddTexts(object, record, fields);
    return object;
}

template <class Owner, std::size_t N>
Json Figures(const Owner& owner, const FigureField<Owner> (&fields)[N]) {
    Json object = Json::object();
    AddFigures(object, owner, fields);
    return object;
}

template <class Elements>
Json ListOf(const Elements& elements);

Json JsonOf(const MoneyRecord& record) {
    Json object = Texts(record, kMoneyFields);
    object["EXCHANGE_RATE"] = JsonOf(FigureValue(record.EXCHANGE_RATE));
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
    Json object = Texts(offset, kOffsetFields);
    AddFigures(object, offset, kOffsetFigures);
    return object;
}

Json JsonOf(const CContractChain& chain) {
    Json items = Json::array();
    for (const std::string& item : chain.Items) items.push_back(GbkToUtf8(item));
    return {{"ItemBase", GbkToUtf8(chain.ItemBase)}, {"Items", std::move(items)}};
}

Json JsonOf(const DayFigure& day) {
    return Figures(day, kDayFigures);
}

Json JsonOf(const ContractPosition& position) {
    return Figures(position, kPositionFigures);
}

Json JsonOf(const CDayUsage& usage) {
    Json object = Figures(usage, kUsageFigures);
    object["Positions"] = ListOf(usage.Positions);
    return object;
}

Json JsonOf(const CMoneyStore& store) {
    Json object = Figures(store, kMoneyFigures);
    object["ChartSizes"] = store.ChartSizes;
    object["Records"] = ListOf(store.Records);
    return object;
}

/// Lists hold their elements, or own them by pointers.
template <class Element>
Json JsonOf(const std::unique_ptr<Element>& element) {
    return JsonOf(*element);
}

template <class Elements>
Json ListOf(const Elements& elements) {
    Json list = Json::array();
    for (const auto& element : elements) list.push_back(JsonOf(element));
    return list;
}

/// One member that is a list: written element by element, since a list may hold a year's trades.
template <class Elements>
void WriteList(std::ostream& out, std::string_view name, const Elements& elements) {
    out << ",\n\"" << name << "\": [";
    const char* separator = "\n";
    for (const auto& element : elements) {
        out << separator << JsonOf(element).dump();
        separator = ",\n";
    }
    out << "]";
}

void WriteCurrencies(const CCurrencyMoneyStore& stores, std::ostream& out) {
    Json currencies = Json::array();
    for (const std::string& name : stores.Names) {
        currencies.push_back({{"name", GbkToUtf8(name)}, {"store", JsonOf(*stores.Find(name))}});
    }
    out << ",\n\"currencies\": " << currencies.dump();
}

}  // namespace

void WriteJson(const CReport& report, std::ostream& out) {
    out << "{\"money\": " << JsonOf(report.MoneyStore).dump();
    WriteCurrencies(report.CurrencyMoneyStore, out);
    WriteList(out, "matches", report.MatchStore.Rows);
    WriteList(out, "closed", report.PingDetailStore.Rows);
    WriteList(out, "positions", report.OpiDetailStore.Rows);
    WriteList(out, "positionSums", report.OpiSumStore.Rows);
    WriteList(out, "offsets", report.ReportDocument.Offsets);
    WriteList(out, "chains", report.ChainTable.Chains);
    WriteList(out, "days", report.TradeStatistics.DayFigures.Days);
    WriteList(out, "usage", report.TradeStatistics.DayUsages.Days);
    out << ",\n\"account\": " << Figures(report.AccountStatistics, kAccountFigures).dump() << "}\n";
}

}  // namespace tradebill
