#include "fuzz_statement.h"

#include <algorithm>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>

#include "base/report_error.h"
#include "readers/layout_table.h"
#include "readers/scan_listener.h"
#include "readers/statement_template.h"
#include "readers/statement_text.h"
#include "readers/template_reader.h"
#include "report/currency_money_store.h"
#include "report/money_store.h"
#include "report/record_fields.h"
#include "report/request_copy.h"
#include "statistics/account_figures.h"
#include "statistics/daily_series.h"
#include "statistics/money_identity.h"

namespace tradebill {
namespace {

constexpr StatementChoice kChoices[] = {{0, 1}, {1, 1}, {2, 1}, {3, 1}, {6, 1}, {201, 1}, {5, 1}, {0, kForeignKind}};

void ReadByLayout(const Layout* layout, const StatementText& statement, CReport& report) {
    if (layout == nullptr) return;
    if (statement.listener != nullptr) statement.listener->OnReader(layout->name);
    layout->read(statement, report);
}

template <class Record>
bool IsSame(const Record& one, const Record& other) {
    return std::ranges::all_of(FieldsOf<Record>(),
                               [&](const auto& field) { return field.Text(one) == field.Text(other); });
}

template <class Rows>
bool AreSame(const Rows& one, const Rows& other) {
    return one.size() == other.size() &&
           std::equal(one.begin(), one.end(), other.begin(),
                      [](const auto& left, const auto& right) { return IsSame(left, right); });
}

bool IsSameMoney(const CMoneyStore& one, const CMoneyStore& other) {
    return std::ranges::equal(one.Records, other.Records,
                              [](const auto& left, const auto& right) { return IsSame(*left, *right); });
}

bool AreSameCurrencies(const CCurrencyMoneyStore& one, const CCurrencyMoneyStore& other) {
    return one.Names == other.Names && std::ranges::all_of(one.Names, [&](const std::string& name) {
               return IsSameMoney(*one.Find(name), *other.Find(name));
           });
}

}  // namespace

StatementChoice TakeStatementChoice(CFuzzInput& input) {
    return RowOf(kChoices, input);
}

std::int32_t CFuzzProducts::UnitOf(std::string_view contract, std::string_view delivery) const {
    return static_cast<std::int32_t>(contract.size() + delivery.size());
}

std::optional<std::string> CFuzzProducts::CodeOf(std::string_view name) const {
    if (name.size() % 2 == 0) return std::nullopt;
    return std::string(name.substr(name.size() / 2));
}

CFuzzReport::CFuzzReport(const StatementChoice& choice, bool asksProducts) {
    report_.Request.StatementFormat = choice.format;
    report_.Request.StatementKind = choice.kind;
    if (asksProducts) report_.Products = &products_;
}

bool ReadStatement(CReport& report, std::string_view day, std::string_view text, const CStatementTemplate* byTemplate,
                   CScanListener* listener) {
    const StatementText statement{.day = day, .text = text, .byTemplate = byTemplate, .listener = listener};
    try {
        if (report.IsForeign()) {
            ReadByLayout(&ForeignLayout(), statement, report);
        } else if (!ReadTemplateStatement(statement, report)) {
            ReadByLayout(FindLayout(report.Request.StatementFormat, text), statement, report);
        }
    } catch (const CReportError&) {
        return false;
    }
    return true;
}

void FinishFuzzReport(CReport& report) {
    if (!report.IsForeign() && report.Request.MarginOffsetFlag == 1) OffsetMargins(report);
    ComputeYields(report);
    ComputeAccountStatistics(report);
    if (!report.PrintedMoney.empty()) FindMoneyIdentity(report);
}

void RequireSameRows(const CReport& one, const CReport& other) {
    Require(IsSameMoney(one.MoneyStore, other.MoneyStore), "two readings give the same money records");
    Require(AreSameCurrencies(one.CurrencyMoneyStore, other.CurrencyMoneyStore),
            "two readings give the same money of currencies");
    Require(AreSame(one.MatchStore.Rows, other.MatchStore.Rows), "two readings give the same trades");
    Require(AreSame(one.PingDetailStore.Rows, other.PingDetailStore.Rows),
            "two readings give the same closed positions");
    Require(AreSame(one.OpiDetailStore.Rows, other.OpiDetailStore.Rows), "two readings give the same open positions");
    Require(AreSame(one.OpiSumStore.Rows, other.OpiSumStore.Rows), "two readings give the same sums of positions");
}

void RequireJson(std::string_view text) {
    Require(nlohmann::json::accept(text), "what is written as JSON is UTF-8 and JSON");
}

}  // namespace tradebill
