// Prints the schema of the JSON of a report, made of the tables by which it is written: docs/tradebill.schema.json.
#include <cstdint>
#include <exception>
#include <iostream>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "analysis/analysis.h"
#include "analysis/analysis_fields.h"
#include "export/json_writer.h"
#include "export/schema/field_notes.h"
#include "findings/finding.h"
#include "findings/finding_table.h"
#include "readers/scan_listener.h"
#include "report/figure_fields.h"
#include "report/product_unit.h"
#include "report/record_fields.h"
#include "report/side_records.h"

namespace tradebill {
namespace {

using Json = nlohmann::ordered_json;

Json Described(Json schema, std::string_view text) {
    if (!text.empty()) schema["description"] = text;
    return schema;
}

Json Type(std::string_view name) {
    return {{"type", name}};
}

Json Nullable(Json schema) {
    schema["type"] = Json::array({schema["type"], "null"});
    return schema;
}

Json Day() {
    return {{"type", "string"}, {"pattern", "^[0-9]{8}$"}};
}

Json OneOf(const std::vector<std::string>& words) {
    return {{"type", "string"}, {"enum", words}};
}

Json NullableOneOf(const std::vector<std::string>& words) {
    Json values = words;
    values.push_back(nullptr);
    return {{"enum", values}};
}

Json ListOf(Json items) {
    return {{"type", "array"}, {"items", std::move(items)}};
}

/// An object that has all of `properties`.
Json Object(Json properties) {
    Json names = Json::array();
    for (const auto& [name, schema] : properties.items()) names.push_back(name);
    return {{"type", "object"}, {"properties", std::move(properties)}, {"required", std::move(names)}};
}

Json Reference(std::string_view definition) {
    return {{"$ref", "#/$defs/" + std::string(definition)}};
}

// Records of statements.

template <class Record>
Json TextsOf(std::string_view object, Json properties = Json::object()) {
    for (const auto& field : FieldsOf<Record>()) {
        properties[std::string(field.name)] = Described(Type("string"), NoteOf(object, field.name));
    }
    return properties;
}

template <class Record>
Json ValuesOf() {
    Json properties = Json::object();
    for (const auto& field : FieldsOf<Record>()) {
        if (field.isAmount) properties[std::string(field.name)] = Reference("value");
    }
    return properties;
}

Json WithValues(Json properties, Json values) {
    properties["values"] = Described(Object(std::move(values)), "The amounts among them as numbers, digit by digit");
    return Object(std::move(properties));
}

template <class Record>
Json RecordSchema(std::string_view object) {
    return WithValues(TextsOf<Record>(object), ValuesOf<Record>());
}

/// Of a row that is kept beside the page's own.
template <class Record, std::size_t N>
Json SideSchema(std::string_view object, const SideField<Record> (&fields)[N]) {
    Json properties = Json::object();
    Json values = Json::object();
    for (const SideField<Record>& field : fields) {
        properties[std::string(field.name)] = Described(Type("string"), NoteOf(object, field.name));
        if (field.isAmount) values[std::string(field.name)] = Reference("value");
    }
    return WithValues(std::move(properties), std::move(values));
}

Json MoneyRecordSchema() {
    Json values = ValuesOf<MoneyRecord>();
    values["EXCHANGE_RATE"] = Described(Reference("figure"), NoteOf("", "EXCHANGE_RATE"));
    return WithValues(TextsOf<MoneyRecord>("money"), std::move(values));
}

Json ClosedSchema() {
    Json properties = TextsOf<PingDetail>("closed");
    properties["side"] = Described(NullableOneOf({"long", "short"}), NoteOf("closed", "side"));
    properties["tradeSide"] = Described(NullableOneOf({"buy", "sell"}), NoteOf("closed", "tradeSide"));
    return WithValues(std::move(properties), ValuesOf<PingDetail>());
}

// Figures of the stores.

Json FigureType(const FigureValue& value) {
    if (std::holds_alternative<std::string_view>(value)) return Type("string");
    return std::holds_alternative<std::int32_t>(value) ? Type("integer") : Reference("figure");
}

template <class Owner, std::size_t N>
Json FiguresOf(std::string_view object, const FigureField<Owner> (&fields)[N], bool areInner) {
    const Owner owner{};
    Json properties = Json::object();
    for (const auto& field : fields) {
        if (field.isInner != areInner) continue;
        properties[std::string(field.name)] = Described(FigureType(field.value(owner)), NoteOf(object, field.name));
    }
    return properties;
}

Json InnerObject(Json properties) {
    return Described(Object(std::move(properties)), "Steps on the way to what the report shows; not shown themselves");
}

Json MoneySchema() {
    const CMoneyStore store;
    Json properties = Json::object();
    Json inner = Json::object();
    for (const auto& field : kMoneyFigures) {
        (field.isInner ? inner : properties)[std::string(field.name)] =
            Described(FigureType(field.value(store)), NoteOf("money", field.name));
    }
    inner["ChartSizes"] = Described(ListOf(Type("integer")), NoteOf("money", "ChartSizes"));
    inner["ChartSizes"]["minItems"] = inner["ChartSizes"]["maxItems"] = store.ChartSizes.size();
    properties["inner"] = InnerObject(std::move(inner));
    properties["Records"] = Described(ListOf(MoneyRecordSchema()), NoteOf("money", "Records"));
    return Object(std::move(properties));
}

Json CurrencySchema() {
    return Object({{"name", Described(Type("string"), NoteOf("currencies", "name"))},
                   {"store", Described(Reference("money"), NoteOf("currencies", "store"))}});
}

Json OffsetSchema() {
    Json properties = Json::object();
    for (const auto& field : kOffsetFields) {
        properties[std::string(field.name)] = Described(Type("string"), NoteOf("offsets", field.name));
    }
    properties.update(FiguresOf("offsets", kOffsetFigures, false));
    properties["inner"] = InnerObject(FiguresOf("offsets", kOffsetFigures, true));
    return Object(std::move(properties));
}

Json ChainSchema() {
    return Object({{"ItemBase", Described(Type("string"), NoteOf("chains", "ItemBase"))},
                   {"Items", Described(ListOf(Type("string")), NoteOf("chains", "Items"))}});
}

Json UsageSchema() {
    Json properties = Json::object();
    Json inner = Json::object();
    const CDayUsage usage;
    for (const auto& field : kUsageFigures) {
        (field.isInner ? inner : properties)[std::string(field.name)] =
            Described(FigureType(field.value(usage)), NoteOf("usage", field.name));
    }
    inner["Positions"] =
        Described(ListOf(Object(FiguresOf("usage.positions", kPositionFigures, false))), NoteOf("usage", "Positions"));
    properties["inner"] = InnerObject(std::move(inner));
    return Object(std::move(properties));
}

Json AccountSchema() {
    Json properties = FiguresOf("account", kAccountFigures, false);
    properties["inner"] = InnerObject(FiguresOf("account", kAccountFigures, true));
    return Object(std::move(properties));
}

// The run.

Json WithDigest(Json properties) {
    properties["file"] = Described(Type("string"), "Name of the file, without its folder");
    properties["size"] = Described(Type("integer"), "Bytes");
    properties["sha256"] = {{"type", "string"}, {"pattern", "^[0-9a-f]{64}$"}};
    return Object(std::move(properties));
}

Json UnitSchema() {
    std::vector<std::string> sources;
    for (const UnitSource source : {UnitSource::File, UnitSource::Trades, UnitSource::Table, UnitSource::Unknown}) {
        sources.emplace_back(UnitSourceName(source));
    }
    return Object({{"product", Described(Type("string"), "The contract up to its first digit")},
                   {"unit", Described(Type("integer"), "What a point of one lot is worth")},
                   {"source", Described(OneOf(sources),
                                        "Who says so: a file of the user, the account's own trades, "
                                        "the table that the program carries, or nobody")}});
}

Json RunSchema() {
    const Json days = Object({{"from", Described(Day(), "First day that was asked for")},
                              {"to", Described(Day(), "Last day")},
                              {"walked", Described(Type("integer"), "Days that were looked at")},
                              {"read", Described(Type("integer"), "Statements that were read")}});
    const Json statement =
        WithDigest({{"day", Described(Day(), "By the file's name")},
                    {"format", Described(Nullable(Type("integer")), "Number of its layout's format; null if foreign")},
                    {"layout", Described(Nullable(Type("string")),
                                         "Layout that it was read by (`tradebill layouts` lists them), or "
                                         "\"template\"; null if it was passed over")}});
    const Json input =
        WithDigest({{"kind", Described(Type("string"),
                                       "What it decides: `request`, `units`, `carriedUnits` (the table inside the "
                                       "program), `products`, `live`, `chains` or `template`")}});
    Json page = WithDigest(Json::object());
    page = Nullable(std::move(page));
    return Object({{"user", Described(Type("string"), "Folder below Users")},
                   {"account", Type("string")},
                   {"kind", OneOf({"domestic", "foreign"})},
                   {"template", Described(Nullable(Type("string")), "Statement template; null without one")},
                   {"marginOffset", Described(Type("boolean"), "Whether margins of opposite positions are netted")},
                   {"dpi", Described(Type("integer"), "Resolution by which sizes on the page grow; 0: none")},
                   {"days", days},
                   {"statements", Described(ListOf(statement), "Those that were read, in their order")},
                   {"inputs", Described(ListOf(input), "The other files that decide what the report says")},
                   {"units", Described(ListOf(UnitSchema()), "The units of all products with closed positions")},
                   {"page", Described(page, "The page that was written; null if none was")}});
}

// The analysis.

Json AnalysisTypeSchema(AnalysisType type) {
    switch (type) {
        case AnalysisType::Day:
            return Day();
        case AnalysisType::Number:
            return Type("number");
        case AnalysisType::Whole:
            return Type("integer");
        case AnalysisType::Text:
            break;
    }
    return Type("string");
}

template <class Owner, class Fields>
Json AnalysisFieldsOf(const Owner& cleared, const Fields& fields) {
    Json properties = Json::object();
    for (const AnalysisField<Owner>& field : fields) {
        const bool mayBeNull = std::holds_alternative<std::monostate>(field.value(cleared));
        const Json type = AnalysisTypeSchema(field.type);
        properties[std::string(field.name)] = mayBeNull ? Nullable(type) : type;
    }
    return properties;
}

Json AnalysisSchema() {
    const Analysis cleared;
    Json properties = {
        {"tradingDays", Described(Type("integer"), "Trading days of a year, by which ratios are reckoned")}};
    VisitAnalysis(
        cleared,
        [&](std::string_view name, const auto& owner, const auto& fields) {
            properties[std::string(name)] = Object(AnalysisFieldsOf(owner, fields));
        },
        [&](std::string_view name, const auto& rows, const auto& fields) {
            const typename std::remove_cvref_t<decltype(rows)>::value_type row{};
            Json list = ListOf(Object(AnalysisFieldsOf(row, fields)));
            if (name != "margin.products") {
                properties[std::string(name)] = std::move(list);
                return;
            }
            properties["margin"]["properties"]["products"] = std::move(list);
            properties["margin"]["required"].push_back("products");
        });
    properties["reasons"] = {{"type", "object"},
                             {"additionalProperties", Type("string")},
                             {"description", "Why a figure is null, by its place: \"ratios.sharpe\", \"days[0].pl\""}};
    return Object(std::move(properties));
}

// The findings.

Json FindingSchema() {
    std::vector<std::string> sections;
    for (const SectionKind kind :
         {SectionKind::Money, SectionKind::Trades, SectionKind::Closed, SectionKind::Open, SectionKind::Summary,
          SectionKind::Cash, SectionKind::Exercises, SectionKind::Deliveries}) {
        sections.emplace_back(SectionName(kind));
    }
    std::vector<std::string> severities;
    for (const Severity severity : {Severity::Error, Severity::Warning, Severity::Note}) {
        severities.emplace_back(SeverityName(severity));
    }
    return Object({{"code", Described(Type("string"), "docs/findings.md tells what it means")},
                   {"severity", OneOf(severities)},
                   {"day", Described(Nullable(Day()), "Of the statement; null if it is of the run as a whole")},
                   {"file", Described(Nullable(Type("string")), "Name of the statement, without its folder")},
                   {"row", Described(Nullable(Type("integer")), "Line of the file, from 1")},
                   {"section", NullableOneOf(sections)},
                   {"expected", Type("string")},
                   {"found", Type("string")},
                   {"text", Described(Type("string"), "What is wrong, and what to do")}});
}

Json Definitions() {
    const Json figure = {{"anyOf", {Type("number"), OneOf({"inf", "-inf", "nan"})}},
                         {"description", "A double; what is no number, as after a division by 0, is a text"}};
    const Json value = Described(Nullable(Type("number")), "Null where the text is empty or no plain decimal");
    return {{"figure", figure}, {"value", value}, {"money", MoneySchema()}};
}

Json Schema() {
    Json properties = {
        {"schema", {{"const", kJsonSchema}, {"description", "Counts up when a name goes or means something else"}}},
        {"program", Described(Type("string"), "Name and version of what wrote it")},
        {"run", Described(RunSchema(), "What was asked, read and left; no time and no folder")},
        {"money", Described(Reference("money"), "The account's days in base currency")},
        {"currencies", Described(ListOf(CurrencySchema()), "The money of each currency; foreign family only")},
        {"matches", Described(ListOf(RecordSchema<MatchRecord>("matches")), "Trades")},
        {"closed", Described(ListOf(ClosedSchema()), "Closed positions")},
        {"positions", Described(ListOf(RecordSchema<OpiDetail>("positions")), "Open positions, lot by lot")},
        {"positionSums", Described(ListOf(RecordSchema<OpiSum>("positionSums")), "Summary of open positions, by side")},
        {"cash", Described(ListOf(SideSchema("cash", kCashFields)), "Deposits and withdrawals, by their kinds")},
        {"exercises", Described(ListOf(SideSchema("exercises", kExerciseFields)), "Exercises of options")},
        {"deliveries", Described(ListOf(SideSchema("deliveries", kDeliveryFields)), "Deliveries")},
        {"offsets", Described(ListOf(OffsetSchema()), "Closed positions of each contract, added up")},
        {"chains", Described(ListOf(ChainSchema()), "Products that share margin")},
        {"days", Described(ListOf(Object(FiguresOf("days", kDayFigures, false))), "What the page's charts show")},
        {"usage", Described(ListOf(UsageSchema()), "Margin of each day")},
        {"account", Described(AccountSchema(), "Figures of the report as a whole; rates are per cent")},
        {"analysis", Described(AnalysisSchema(),
                               "Figures beyond the page, which docs/figures.md defines; rates are "
                               "fractions")},
        {"findings", Described(ListOf(FindingSchema()), "What is wrong or doubtful, the worst first")}};
    Json schema = {{"$schema", "https://json-schema.org/draft/2020-12/schema"},
                   {"title", "tradebill report"},
                   {"description", "What `tradebill report --json` writes, schema 1. New names don't count it up."}};
    schema.update(Object(std::move(properties)));
    schema["$defs"] = Definitions();
    if (const std::string unused = UnusedNote(); !unused.empty())
        throw std::runtime_error("no field for the note of " + unused);
    return schema;
}

}  // namespace
}  // namespace tradebill

int main() try {
    std::cout << tradebill::Schema().dump(1) << "\n";
    return 0;
} catch (const std::exception& error) {
    std::cerr << "json_schema: " << error.what() << "\n";
    return 1;
}
