#include "export/json_writer.h"

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "export/findings_json.h"
#include "export/json_text.h"
#include "findings/finding.h"
#include "report/account_statistics.h"
#include "report/chain_table.h"
#include "report/currency_money_store.h"
#include "report/day_usage.h"
#include "report/figure_fields.h"
#include "report/money_record.h"
#include "report/money_store.h"
#include "report/product_source.h"
#include "report/product_unit.h"
#include "report/record_fields.h"
#include "report/records.h"
#include "report/report.h"
#include "report/trade_statistics.h"

namespace tradebill {
namespace {

void WriteFigure(CJsonText& json, const FigureValue& figure) {
    if (const auto* const text = std::get_if<std::string_view>(&figure)) return json.Text(*text);
    if (const auto* const count = std::get_if<std::int32_t>(&figure)) return json.Number(*count);
    json.Number(std::get<double>(figure));
}

template <class Record, std::size_t N>
void WriteTexts(CJsonText& json, const Record& record, const TextField<Record> (&fields)[N]) {
    for (const auto& field : fields) {
        json.Name(field.name);
        json.Text(field.Text(record));
    }
}

template <class Owner, std::size_t N>
void WriteFigures(CJsonText& json, const Owner& owner, const FigureField<Owner> (&fields)[N]) {
    for (const auto& field : fields) {
        json.Name(field.name);
        WriteFigure(json, field.value(owner));
    }
}

// The members of each object. The two that hold lists of objects stand behind WriteList.
void WriteMembers(CJsonText& json, const CDayUsage& usage);
void WriteMembers(CJsonText& json, const CMoneyStore& store);

void WriteMembers(CJsonText& json, const MoneyRecord& record) {
    WriteTexts(json, record, kMoneyFields);
    json.Name("EXCHANGE_RATE");
    json.Number(record.EXCHANGE_RATE);
}

void WriteMembers(CJsonText& json, const MatchRecord& record) {
    WriteTexts(json, record, kMatchFields);
}

void WriteMembers(CJsonText& json, const PingDetail& record) {
    WriteTexts(json, record, kPingFields);
}

void WriteMembers(CJsonText& json, const OpiDetail& record) {
    WriteTexts(json, record, kOpiDetailFields);
}

void WriteMembers(CJsonText& json, const OpiSum& record) {
    WriteTexts(json, record, kOpiSumFields);
}

void WriteMembers(CJsonText& json, const ContractOffset& offset) {
    WriteTexts(json, offset, kOffsetFields);
    WriteFigures(json, offset, kOffsetFigures);
}

void WriteMembers(CJsonText& json, const CContractChain& chain) {
    json.Name("ItemBase");
    json.Text(chain.ItemBase);
    json.Name("Items");
    json.OpenList();
    for (const std::string& item : chain.Items) json.Text(item);
    json.CloseList();
}

void WriteMembers(CJsonText& json, const DayFigure& day) {
    WriteFigures(json, day, kDayFigures);
}

void WriteMembers(CJsonText& json, const ContractPosition& position) {
    WriteFigures(json, position, kPositionFigures);
}

void WriteMembers(CJsonText& json, const CAccountStatistics& account) {
    WriteFigures(json, account, kAccountFigures);
}

template <class Owner>
void WriteObject(CJsonText& json, const Owner& owner) {
    json.OpenObject();
    WriteMembers(json, owner);
    json.CloseObject();
}

/// Lists hold their elements, or own them by pointers.
template <class Element>
void WriteObject(CJsonText& json, const std::unique_ptr<Element>& element) {
    WriteObject(json, *element);
}

template <class Elements>
void WriteList(CJsonText& json, std::string_view name, const Elements& elements) {
    json.Name(name);
    json.OpenList();
    for (const auto& element : elements) WriteObject(json, element);
    json.CloseList();
}

void WriteMembers(CJsonText& json, const CDayUsage& usage) {
    WriteFigures(json, usage, kUsageFigures);
    WriteList(json, "Positions", usage.Positions);
}

void WriteMembers(CJsonText& json, const CMoneyStore& store) {
    WriteFigures(json, store, kMoneyFigures);
    json.Name("ChartSizes");
    json.OpenList();
    for (const int pixels : store.ChartSizes) json.Number(pixels);
    json.CloseList();
    WriteList(json, "Records", store.Records);
}

/// The name of a member of the whole: each stands on a line of its own.
void NameMember(CJsonText& json, std::string_view name) {
    json.Space('\n');
    json.Name(name);
    json.Space(' ');
}

/// A member that may hold years of trades: one element a line.
template <class Elements>
void WriteLines(CJsonText& json, std::string_view name, const Elements& elements) {
    NameMember(json, name);
    json.OpenList();
    for (const auto& element : elements) {
        json.Space('\n');
        WriteObject(json, element);
    }
    json.CloseList();
}

void WriteCurrencies(CJsonText& json, const CCurrencyMoneyStore& stores) {
    NameMember(json, "currencies");
    json.OpenList();
    for (const std::string& name : stores.Names) {
        json.OpenObject();
        json.Name("name");
        json.Text(name);
        json.Name("store");
        WriteObject(json, *stores.Find(name));
        json.CloseObject();
    }
    json.CloseList();
}

void WriteUnits(CJsonText& json, const CProductSource* products) {
    NameMember(json, "units");
    json.OpenList();
    for (const ProductUnit& used : products == nullptr ? std::vector<ProductUnit>() : products->UsedUnits()) {
        json.OpenObject();
        json.Name("product");
        json.Text(used.product);
        json.Name("unit");
        json.Number(used.unit);
        json.Name("source");
        json.Text(UnitSourceName(used.source));
        json.CloseObject();
    }
    json.CloseList();
}

}  // namespace

void WriteJson(const CReport& report, std::ostream& out, std::span<const Finding> findings) {
    CJsonText json(out);
    json.OpenObject();
    json.Name("money");
    json.Space(' ');
    WriteObject(json, report.MoneyStore);
    WriteCurrencies(json, report.CurrencyMoneyStore);
    WriteLines(json, "matches", report.MatchStore.Rows);
    WriteLines(json, "closed", report.PingDetailStore.Rows);
    WriteLines(json, "positions", report.OpiDetailStore.Rows);
    WriteLines(json, "positionSums", report.OpiSumStore.Rows);
    WriteLines(json, "offsets", report.ReportDocument.Offsets);
    WriteLines(json, "chains", report.ChainTable.Chains);
    WriteLines(json, "days", report.TradeStatistics.DayFigures.Days);
    WriteLines(json, "usage", report.TradeStatistics.DayUsages.Days);
    NameMember(json, "account");
    WriteObject(json, report.AccountStatistics);
    WriteUnits(json, report.Products);
    NameMember(json, "findings");
    WriteFindings(json, findings);
    json.CloseObject();
    json.EndLine();
}

}  // namespace tradebill
