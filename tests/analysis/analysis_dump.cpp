// Shows an account's rows and its analysis as JSON, so that check_figures.py can work the figures out again.
//
//     analysis_dump SAMPLE    the sample account in this folder
//     analysis_dump --made N  an account made by chance, of the seed N
#include <nlohmann/json.hpp>

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <exception>
#include <filesystem>
#include <iostream>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>

#include "analysis/analysis.h"
#include "analysis/analysis_fields.h"
#include "analysis/chance_account.h"
#include "cli/report_options.h"
#include "driver/report_run.h"
#include "findings/statement_watch.h"
#include "platform/text_encoding.h"
#include "report/product_source.h"
#include "report/record_fields.h"
#include "report/report.h"

namespace tradebill {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;

json ValueOf(const AnalysisValue& value) {
    if (const auto* const text = std::get_if<std::string_view>(&value)) return GbkToUtf8(*text);
    if (const auto* const whole = std::get_if<std::int64_t>(&value)) return *whole;
    if (const auto* const number = std::get_if<double>(&value)) return *number;
    return nullptr;
}

template <class Owner>
json FieldsJson(const Owner& owner, std::span<const AnalysisField<Owner>> fields) {
    json object;
    for (const auto& field : fields) object[std::string(field.name)] = ValueOf(field.value(owner));
    return object;
}

json AnalysisJson(const Analysis& analysis) {
    json figures;
    figures["tradingDays"] = analysis.tradingDays;
    VisitAnalysis(
        analysis,
        [&](std::string_view name, const auto& owner, auto fields) {
            figures[std::string(name)] = FieldsJson(owner, fields);
        },
        [&](std::string_view name, const auto& rows, auto fields) {
            json& list = figures[std::string(name)] = json::array();
            for (const auto& row : rows) list.push_back(FieldsJson(row, fields));
        });
    for (const NullReason& reason : analysis.reasons) figures["reasons"][reason.path] = reason.reason;
    return figures;
}

template <class Record, std::size_t N>
json TextsJson(const Record& record, const TextField<Record> (&fields)[N]) {
    json object;
    for (const auto& field : fields) object[std::string(field.name)] = GbkToUtf8(field.Text(record));
    return object;
}

template <class Rows, class Fields>
json RowsJson(const Rows& rows, const Fields& fields) {
    json list = json::array();
    for (const auto& row : rows) list.push_back(TextsJson(row, fields));
    return list;
}

json TablesJson(const CReport& report) {
    json tables;
    tables["days"] = json::array();
    for (const auto& record : report.MoneyStore.Records) {
        json day = TextsJson(*record, kMoneyFields);
        day["EXCHANGE_RATE"] = record->EXCHANGE_RATE;
        tables["days"].push_back(day);
    }
    tables["trades"] = RowsJson(report.MatchStore.Rows, kMatchFields);
    tables["closed"] = RowsJson(report.PingDetailStore.Rows, kPingFields);
    for (const json& row : RowsJson(report.ForeignClosedStore.Rows, kPingFields)) tables["closed"].push_back(row);
    tables["positions"] = RowsJson(report.OpiDetailStore.Rows, kOpiDetailFields);
    tables["position_sums"] = RowsJson(report.OpiSumStore.Rows, kOpiSumFields);
    tables["units"] = json::array();
    for (const ProductUnit& used : report.Products->UsedUnits()) {
        tables["units"].push_back({{"product", GbkToUtf8(used.product)}, {"unit", used.unit}});
    }
    return tables;
}

/// Rows and figures of a report that is whole.
void Show(const CReport& report, std::int64_t tradingDays) {
    json shown;
    shown["foreign"] = report.IsForeign();
    shown["format"] = report.Request.StatementFormat;
    shown["lastDay"] = report.MoneyStore.EndDateText;
    shown["tables"] = TablesJson(report);
    shown["analysis"] = AnalysisJson(Analyse(report, {.tradingDays = tradingDays}));
    std::cout << shown.dump() << "\n";
}

std::optional<std::string> ExistingFile(const fs::path& file) {
    return fs::exists(file) ? std::optional(file.string()) : std::nullopt;
}

void ShowSample(const fs::path& sample) {
    ReportOptions options;
    options.root = (sample / "root").string();
    options.requestFile = (sample / "request.ini").string();
    options.unitFile = ExistingFile(sample / "units.ini");
    options.productFile = ExistingFile(sample / "products.ini");
    const PreparedRequest prepared = PrepareRequest(options);
    CReport report;
    report.RootFolder = prepared.rootFolder;
    report.Products = prepared.products.get();
    CStatementWatch watch(report);
    const RunResult run = ReadStatements(report, prepared.request, nullptr, {.listener = &watch});
    if (run.end != RunEnd::Finished || run.statementsRead == 0) throw std::runtime_error("nothing was read");
    Show(report, kUsualTradingDays);
}

void ShowMade(std::string_view text) {
    unsigned seed = 0;
    std::from_chars(text.data(), text.data() + text.size(), seed);
    const ChanceAccount account(seed);
    Show(account.Report(), account.TradingDays());
}

}  // namespace
}  // namespace tradebill

int main(int argc, char** argv) {
    try {
        if (argc == 3 && std::strcmp(argv[1], "--made") == 0) {
            tradebill::ShowMade(argv[2]);
        } else if (argc == 2) {
            tradebill::ShowSample(argv[1]);
        } else {
            throw std::runtime_error("usage: analysis_dump SAMPLE | --made N");
        }
    } catch (const std::exception& error) {
        std::cerr << error.what() << "\n";
        return 1;
    }
    return 0;
}
