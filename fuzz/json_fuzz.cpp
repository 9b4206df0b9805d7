// Any texts and numbers in a report's records: what is written of them as JSON parses, and gives them back.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>

#include "analysis/analysis.h"
#include "base/text.h"
#include "export/json_text.h"
#include "export/json_writer.h"
#include "export/run_json.h"
#include "fuzz_statement.h"
#include "fuzz_target.h"
#include "platform/text_encoding.h"
#include "report/money_record.h"
#include "report/money_store.h"
#include "report/record_fields.h"
#include "report/records.h"
#include "report/report.h"

namespace tradebill {
namespace {

template <class Record>
void Fill(Record& record, CFuzzInput& input) {
    for (const auto& field : FieldsOf<Record>()) {
        const std::string_view text = input.Text();
        const auto bytes = field.bytes(record);
        CopyText(bytes.data(), text.substr(0, bytes.size() - 1));
    }
}

void FillStores(CReport& report, CFuzzInput& input) {
    Fill(report.MatchStore.Add(), input);
    Fill(report.PingDetailStore.Add(), input);
    Fill(report.OpiDetailStore.Add(), input);
    Fill(report.OpiSumStore.Add(), input);
    auto money = std::make_unique<MoneyRecord>(ClearedMoneyRecord());
    Fill(*money, input);
    money->EXCHANGE_RATE = input.Amount();
    report.CurrencyMoneyStore.Add(std::make_unique<MoneyRecord>(*money), FieldText(money->CURRENCY), MoneySource::Live);
    report.TradeStatistics.FeedDayMoney(money.get());
    report.MoneyStore.Add(std::move(money), MoneySource::Statement);
}

template <class Record>
void RequireFields(const Record& record, const nlohmann::json& object) {
    for (const auto& field : FieldsOf<Record>()) {
        Require(object.at(std::string(field.name)) == GbkToUtf8(field.Text(record)),
                "a text is given back as it was, decoded");
    }
}

void RequireNumber(double number) {
    std::ostringstream out;
    {
        CJsonText json(out);
        json.Number(number);
    }
    const auto parsed = nlohmann::json::parse(out.view());
    if (std::isfinite(number)) {
        Require(parsed.is_number() && parsed.get<double>() == number, "a number reads back to the same double");
    } else {
        Require(parsed.is_string(), "what is no number is a text");
    }
}

void RequireTexts(CFuzzInput& input) {
    std::ostringstream out;
    {
        CJsonText json(out);
        json.OpenList();
        while (!input.IsEmpty()) {
            const std::string_view text = input.Text();
            json.Text(text);
            json.Utf8Text(text);
            json.Number(static_cast<std::int32_t>(text.size()));
        }
        json.CloseList();
    }
    RequireJson(out.view());
}

}  // namespace

void FuzzJson(std::string_view bytes) {
    CFuzzInput input(bytes);
    RequireNumber(input.Amount());
    CFuzzReport made(TakeStatementChoice(input), input.Choice(2) == 1);
    CReport& report = made.Get();
    FillStores(report, input);
    FinishFuzzReport(report);
    std::ostringstream out;
    WriteJson(report, {.run = RunFacts{}, .analysis = Analyse(report)}, out);
    RequireJson(out.view());
    const auto json = nlohmann::json::parse(out.view());
    RequireFields(report.MatchStore.Rows.front(), json.at("matches").at(0));
    RequireTexts(input);
}

}  // namespace tradebill
