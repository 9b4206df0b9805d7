#include "export/report_figures.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "export/json_writer.h"

namespace tradebill {
namespace {

using Json = nlohmann::json;

constexpr int kDeepest = 16;  // twice what a report needs

/// What names a row of a list. Amounts don't: of a row that differs in one the figures are told.
struct ListKey {
    std::string_view path;
    std::array<const char*, 7> fields;  ///< as many as there are, then nulls
};

// clang-format off
constexpr ListKey kListKeys[] = {
    {"run.statements",           {"day"}},
    {"run.inputs",               {"kind"}},
    {"run.units",                {"product"}},
    {"money.Records",            {"BILL_DATE"}},
    {"currencies",               {"name"}},
    {"currencies.store.Records", {"BILL_DATE"}},
    {"matches",                  {"BILL_DATE", "CONTRACT", "DELIVERY", "MATCHNO", "BID", "OFFSET", "HEDGE"}},
    {"closed",                   {"BILL_DATE", "CONTRACT", "DELIVERY", "BID", "OPEN_DATE", "HEDGE"}},
    {"positions",                {"BILL_DATE", "CONTRACT", "DELIVERY", "BID", "OPEN_DATE", "HEDGE"}},
    {"positionSums",             {"BILL_DATE", "CONTRACT", "DELIVERY", "BID", "HEDGE"}},
    {"cash",                     {"BILL_DATE", "CASH_DATE", "CASH_TYPE", "NOTE"}},
    {"exercises",                {"BILL_DATE", "EXERCISE_DATE", "CONTRACT", "BID", "HEDGE"}},
    {"deliveries",               {"BILL_DATE", "DELIVERY_DATE", "CONTRACT", "BID", "HEDGE"}},
    {"offsets",                  {"CONTRACT", "DELIVERY", "CURRENCY"}},
    {"chains",                   {"ItemBase"}},
    {"days",                     {"Day"}},
    {"usage",                    {"Day"}},
    {"usage.inner.Positions",    {"Product"}},
    {"analysis.days",            {"day"}},
    {"analysis.drawdowns",       {"valley"}},
    {"analysis.months",          {"month"}},
    {"analysis.years",           {"year"}},
    {"analysis.weekdays",        {"weekday"}},
    {"analysis.products",        {"product", "currency"}},
    {"analysis.contracts",       {"contract", "currency"}},
    {"analysis.sides",           {"side", "currency"}},
    {"analysis.exchanges",       {"exchange", "currency"}},
    {"analysis.closedMonths",    {"month", "currency"}},
    {"analysis.concentration",   {"currency"}},
    {"analysis.margin.products", {"product", "currency"}},
    {"analysis.open",            {"contract", "side", "currency", "openDay"}},
    {"analysis.cashKinds",       {"CASH_TYPE"}},
    {"findings",                 {"code", "day", "file", "row", "section"}},
};
// clang-format on

/// Empty for a list that isn't known.
std::span<const char* const> KeyFieldsOf(std::string_view path) {
    const auto* const found = std::ranges::find(kListKeys, path, &ListKey::path);
    if (found == std::end(kListKeys)) return {};
    const auto* const end = std::ranges::find(found->fields, nullptr);
    return {found->fields.begin(), end};
}

std::string TextOf(const Json& value) {
    return value.is_string() ? value.get<std::string>() : value.is_null() ? std::string() : value.dump();
}

/// Empty if no field of the row names it.
std::string KeyOf(std::span<const char* const> fields, const Json& row) {
    std::string key;
    if (!row.is_object()) return key;
    for (const char* const field : fields) {
        const auto found = row.find(field);
        const std::string text = found == row.end() ? std::string() : TextOf(*found);
        if (!text.empty()) key.append(key.empty() ? "" : " ").append(text);
    }
    return key;
}

/// May hold millions of rows, which aren't kept as trees.
constexpr std::string_view kRowLists[] = {"matches", "closed",    "positions", "positionSums",
                                          "cash",    "exercises", "deliveries"};

bool HoldsRecords(const std::string& name) {
    return std::ranges::find(kRowLists, name) != std::end(kRowLists);
}

/// Hears of each value as it is parsed; true keeps it.
class CRecordTaker {
public:
    explicit CRecordTaker(std::map<std::string, std::vector<KeyedRow>>& records) : records_(records) {}

    bool Hear(int depth, Json::parse_event_t event, const Json& parsed) {
        if (depth > kDeepest) throw CNoReportJson("values lie deeper in each other than in any report");
        if (event == Json::parse_event_t::key && depth == 1) name_ = parsed.get<std::string>();
        if (event != Json::parse_event_t::object_end || depth != 2 || !HoldsRecords(name_)) return true;
        records_[name_].push_back({.key = KeyOf(KeyFieldsOf(name_), parsed), .json = parsed.dump()});
        return false;
    }

private:
    std::map<std::string, std::vector<KeyedRow>>& records_;
    std::string name_;
};

Json Parse(std::string_view text, std::map<std::string, std::vector<KeyedRow>>& records) {
    CRecordTaker taker(records);
    try {
        return Json::parse(text, [&](int depth, Json::parse_event_t event, const Json& parsed) {
            return taker.Hear(depth, event, parsed);
        });
    } catch (const Json::exception&) {
        throw CNoReportJson("it is no JSON");
    }
}

void RequireSchema(const Json& root) {
    if (!root.is_object() || !root.contains("schema") || !root.at("schema").is_number_integer()) {
        throw CNoReportJson("it names no schema");
    }
    if (root.at("schema") == kJsonSchema) return;
    throw CNoReportJson("it is of schema " + root.at("schema").dump());
}

}  // namespace

bool HasKeys(std::string_view path) {
    return !KeyFieldsOf(path).empty();
}

std::vector<KeyedRow> RowsOf(std::string_view path, const Json& list) {
    std::vector<KeyedRow> rows;
    for (const Json& row : list) rows.push_back({.key = KeyOf(KeyFieldsOf(path), row), .json = row.dump()});
    return rows;
}

CReportFigures::CReportFigures(std::string_view text) : rest_(std::make_unique<Json>(Parse(text, records_))) {
    RequireSchema(*rest_);
}

CReportFigures::~CReportFigures() = default;

}  // namespace tradebill
