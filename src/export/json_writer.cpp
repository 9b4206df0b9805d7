#include "export/json_writer.h"

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <memory>
#include <string>
#include <string_view>
#include <variant>

#include "export/analysis_json.h"
#include "export/findings_json.h"
#include "export/json_text.h"
#include "export/plain_decimal.h"
#include "export/run_json.h"
#include "report/account_statistics.h"
#include "report/chain_table.h"
#include "report/closed_rows.h"
#include "report/currency_money_store.h"
#include "report/day_usage.h"
#include "report/figure_fields.h"
#include "report/money_record.h"
#include "report/money_store.h"
#include "report/record_fields.h"
#include "report/records.h"
#include "report/report.h"
#include "report/side_records.h"
#include "report/trade_statistics.h"

namespace tradebill {
namespace {

void WriteFigure(CJsonText& json, const FigureValue& figure) {
    if (const auto* const text = std::get_if<std::string_view>(&figure)) return json.Text(*text);
    if (const auto* const count = std::get_if<std::int32_t>(&figure)) return json.Number(*count);
    json.Number(std::get<double>(figure));
}

/// `Field` is a TextField or a SideField.
template <class Record, class Field, std::size_t N>
void WriteTexts(CJsonText& json, const Record& record, const Field (&fields)[N]) {
    for (const auto& field : fields) {
        json.Name(field.name);
        json.Text(field.Text(record));
    }
}

/// The amounts among the fields, as numbers. The object is left open.
template <class Record, class Field, std::size_t N>
void OpenValues(CJsonText& json, const Record& record, const Field (&fields)[N]) {
    json.Name("values");
    json.OpenObject();
    for (const auto& field : fields) {
        if (!field.isAmount) continue;
        json.Name(field.name);
        json.Decimal(CPlainDecimal(field.Text(record)));
    }
}

template <class Record, class Field, std::size_t N>
void WriteRecord(CJsonText& json, const Record& record, const Field (&fields)[N]) {
    WriteTexts(json, record, fields);
    OpenValues(json, record, fields);
    json.CloseObject();
}

template <class Owner, std::size_t N>
void WriteFiguresThat(CJsonText& json, const Owner& owner, const FigureField<Owner> (&fields)[N], bool areInner) {
    for (const auto& field : fields) {
        if (field.isInner != areInner) continue;
        json.Name(field.name);
        WriteFigure(json, field.value(owner));
    }
}

/// The figures, and in an object of their own the inner ones, which is left open.
template <class Owner, std::size_t N>
void OpenInnerFigures(CJsonText& json, const Owner& owner, const FigureField<Owner> (&fields)[N]) {
    WriteFiguresThat(json, owner, fields, false);
    json.Name("inner");
    json.OpenObject();
    WriteFiguresThat(json, owner, fields, true);
}

void WriteTextOrNull(CJsonText& json, std::string_view name, std::string_view text) {
    json.Name(name);
    if (text.empty()) {
        json.Null();
    } else {
        json.Text(text);
    }
}

// The members of each object. The two that hold lists of objects stand behind WriteList.
void WriteMembers(CJsonText& json, const CDayUsage& usage);
void WriteMembers(CJsonText& json, const CMoneyStore& store);

void WriteMembers(CJsonText& json, const MoneyRecord& record) {
    WriteTexts(json, record, kMoneyFields);
    OpenValues(json, record, kMoneyFields);
    json.Name("EXCHANGE_RATE");
    json.Number(record.EXCHANGE_RATE);
    json.CloseObject();
}

void WriteMembers(CJsonText& json, const MatchRecord& record) {
    WriteRecord(json, record, kMatchFields);
}

void WriteClosedRow(CJsonText& json, const PingDetail& record, bool isForeign) {
    json.OpenObject();
    WriteTexts(json, record, kPingFields);
    const ClosedSides sides = ClosedSidesOf(record, isForeign);
    WriteTextOrNull(json, "side", sides.position);
    WriteTextOrNull(json, "tradeSide", sides.trade);
    OpenValues(json, record, kPingFields);
    json.CloseObject();
    json.CloseObject();
}

void WriteMembers(CJsonText& json, const OpiDetail& record) {
    WriteRecord(json, record, kOpiDetailFields);
}

void WriteMembers(CJsonText& json, const OpiSum& record) {
    WriteRecord(json, record, kOpiSumFields);
}

void WriteMembers(CJsonText& json, const CashRecord& record) {
    WriteRecord(json, record, kCashFields);
}

void WriteMembers(CJsonText& json, const ExerciseRecord& record) {
    WriteRecord(json, record, kExerciseFields);
}

void WriteMembers(CJsonText& json, const DeliveryRecord& record) {
    WriteRecord(json, record, kDeliveryFields);
}

void WriteMembers(CJsonText& json, const ContractOffset& offset) {
    WriteTexts(json, offset, kOffsetFields);
    OpenInnerFigures(json, offset, kOffsetFigures);
    json.CloseObject();
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
    WriteFiguresThat(json, day, kDayFigures, false);
}

void WriteMembers(CJsonText& json, const ContractPosition& position) {
    WriteFiguresThat(json, position, kPositionFigures, false);
}

void WriteMembers(CJsonText& json, const CAccountStatistics& account) {
    OpenInnerFigures(json, account, kAccountFigures);
    json.CloseObject();
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
    OpenInnerFigures(json, usage, kUsageFigures);
    WriteList(json, "Positions", usage.Positions);
    json.CloseObject();
}

void WriteMembers(CJsonText& json, const CMoneyStore& store) {
    OpenInnerFigures(json, store, kMoneyFigures);
    json.Name("ChartSizes");
    json.OpenList();
    for (const int pixels : store.ChartSizes) json.Number(pixels);
    json.CloseList();
    json.CloseObject();
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

void WriteClosedRows(CJsonText& json, const CReport& report) {
    NameMember(json, "closed");
    json.OpenList();
    for (const PingDetail& row : report.ClosedStore().Rows) {
        json.Space('\n');
        WriteClosedRow(json, row, report.IsForeign());
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

}  // namespace

void WriteJson(const CReport& report, const JsonParts& parts, std::ostream& out) {
    CJsonText json(out);
    json.OpenObject();
    json.Name("schema");
    json.Space(' ');
    json.Number(kJsonSchema);
    NameMember(json, "program");
    json.Utf8Text("tradebill " TRADEBILL_VERSION);
    NameMember(json, "run");
    WriteRun(json, report, parts.run);
    NameMember(json, "money");
    WriteObject(json, report.MoneyStore);
    WriteCurrencies(json, report.CurrencyMoneyStore);
    WriteLines(json, "matches", report.MatchStore.Rows);
    WriteClosedRows(json, report);
    WriteLines(json, "positions", report.OpiDetailStore.Rows);
    WriteLines(json, "positionSums", report.OpiSumStore.Rows);
    WriteLines(json, "cash", report.SideRecords.Cash);
    WriteLines(json, "exercises", report.SideRecords.Exercises);
    WriteLines(json, "deliveries", report.SideRecords.Deliveries);
    WriteLines(json, "offsets", report.ReportDocument.Offsets);
    WriteLines(json, "chains", report.ChainTable.Chains);
    WriteLines(json, "days", report.TradeStatistics.DayFigures.Days);
    WriteLines(json, "usage", report.TradeStatistics.DayUsages.Days);
    NameMember(json, "account");
    WriteObject(json, report.AccountStatistics);
    NameMember(json, "analysis");
    WriteAnalysis(json, parts.analysis);
    NameMember(json, "findings");
    WriteFindings(json, parts.findings);
    json.CloseObject();
    json.EndLine();
}

}  // namespace tradebill
