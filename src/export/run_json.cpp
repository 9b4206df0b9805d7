#include "export/run_json.h"

#include <cstdint>
#include <ctime>
#include <string>
#include <string_view>
#include <vector>

#include "base/day.h"
#include "base/text.h"
#include "export/file_digest.h"
#include "export/json_text.h"
#include "platform/local_time.h"
#include "platform/paths.h"
#include "report/account_key.h"
#include "report/product_source.h"
#include "report/product_unit.h"
#include "report/report.h"

namespace tradebill {
namespace {

void WriteNumber(CJsonText& json, std::string_view name, std::int64_t number) {
    json.Name(name);
    json.Number(number);
}

void WriteDigest(CJsonText& json, const FileDigest& digest) {
    json.NamedText("file", digest.file);
    WriteNumber(json, "size", static_cast<std::int64_t>(digest.size));
    json.NamedText("sha256", digest.sha256);
}

std::string DayOf(std::time_t time) {
    return DayText(LocalDayOf(time));
}

void WriteDays(CJsonText& json, const CReport& report, const RunFacts& run) {
    json.Name("days");
    json.OpenObject();
    json.NamedText("from", DayOf(report.ReportDays.first));
    json.NamedText("to", DayOf(report.ReportDays.last));
    WriteNumber(json, "walked", run.days);
    WriteNumber(json, "read", static_cast<std::int64_t>(run.statements.size()));
    json.CloseObject();
}

void WriteStatements(CJsonText& json, const CReport& report, const RunFacts& run) {
    json.Name("statements");
    json.OpenList();
    for (const StatementRead& statement : run.statements) {
        json.Space('\n');
        json.OpenObject();
        json.NamedText("day", statement.day);
        json.Name("format");
        if (report.IsForeign()) {
            json.Null();  // the foreign family has one layout and no number
        } else {
            json.Number(report.Request.StatementFormat);
        }
        json.NamedTextOrNull("layout", statement.layout);
        WriteDigest(json, statement.file);
        json.CloseObject();
    }
    json.CloseList();
}

void WriteInputs(CJsonText& json, const RunFacts& run) {
    json.Name("inputs");
    json.OpenList();
    for (const InputRead& input : run.inputs) {
        json.Space('\n');
        json.OpenObject();
        json.NamedText("kind", input.kind);
        WriteDigest(json, input.file);
        json.CloseObject();
    }
    json.CloseList();
}

void WriteUnits(CJsonText& json, const CProductSource* products) {
    json.Name("units");
    json.OpenList();
    for (const ProductUnit& used : products == nullptr ? std::vector<ProductUnit>() : products->UsedUnits()) {
        json.OpenObject();
        json.Name("product");
        json.Text(used.product);
        json.Name("unit");
        json.Number(used.unit);
        json.NamedText("source", UnitSourceName(used.source));
        json.CloseObject();
    }
    json.CloseList();
}

void WritePage(CJsonText& json, const RunFacts& run) {
    json.Name("page");
    if (!run.page) return json.Null();
    json.OpenObject();
    WriteDigest(json, *run.page);
    json.CloseObject();
}

}  // namespace

void WriteRun(CJsonText& json, const CReport& report, const RunFacts& run) {
    json.OpenObject();
    const AccountKey account = AccountOf(report.Request);
    json.NamedText("user", account.user);
    json.NamedText("account", account.account);
    json.NamedText("kind", KindName(account.isForeign));
    json.NamedTextOrNull("template", Utf8Path(std::string(FieldText(report.Request.TemplateName))));
    json.Name("marginOffset");
    json.Truth(!report.IsForeign() && report.Request.MarginOffsetFlag == 1);
    WriteNumber(json, "dpi", report.Request.Dpi);
    WriteDays(json, report, run);
    WriteStatements(json, report, run);
    WriteInputs(json, run);
    WriteUnits(json, report.Products);
    WritePage(json, run);
    json.CloseObject();
}

}  // namespace tradebill
