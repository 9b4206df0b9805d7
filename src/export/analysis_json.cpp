#include "export/analysis_json.h"

#include <cstdint>
#include <string_view>
#include <type_traits>
#include <variant>

#include "analysis/analysis.h"
#include "analysis/analysis_fields.h"
#include "analysis/margin_results.h"
#include "export/json_text.h"

namespace tradebill {
namespace {

constexpr std::string_view kMarginProducts = "margin.products";  // the one list that lies in an object

struct ValueWriter {
    CJsonText& json;

    void operator()(std::monostate /*null*/) const { json.Null(); }
    void operator()(std::string_view text) const { json.Text(text); }
    void operator()(double number) const { json.Number(number); }
    void operator()(std::int64_t number) const { json.Number(number); }
};

template <class Owner, class Fields>
void WriteFields(CJsonText& json, const Owner& owner, const Fields& fields) {
    for (const AnalysisField<Owner>& field : fields) {
        json.Name(field.name);
        std::visit(ValueWriter{json}, field.value(owner));
    }
}

/// Writes what VisitAnalysis shows, each block on a line of its own.
class CAnalysisWriter {
public:
    explicit CAnalysisWriter(CJsonText& json) : json_(json) {}

    template <class Owner, class Fields>
    void OnObject(std::string_view name, const Owner& owner, const Fields& fields) {
        Begin(name);
        json_.OpenObject();
        WriteFields(json_, owner, fields);
        if constexpr (!std::is_same_v<Owner, MarginResult>) json_.CloseObject();
    }

    template <class Rows, class Fields>
    void OnList(std::string_view name, const Rows& rows, const Fields& fields) {
        const bool isInMargin = name == kMarginProducts;
        if (isInMargin) {
            json_.Name("products");
        } else {
            Begin(name);
        }
        json_.OpenList();
        for (const auto& row : rows) {
            json_.Space('\n');
            json_.OpenObject();
            WriteFields(json_, row, fields);
            json_.CloseObject();
        }
        json_.CloseList();
        if (isInMargin) json_.CloseObject();
    }

private:
    void Begin(std::string_view name) {
        json_.Space('\n');
        json_.Name(name);
        json_.Space(' ');
    }

    CJsonText& json_;
};

void WriteReasons(CJsonText& json, const Analysis& analysis) {
    json.Space('\n');
    json.Name("reasons");
    json.Space(' ');
    json.OpenObject();
    for (const NullReason& null : analysis.reasons) {
        json.Name(null.path);
        json.Utf8Text(null.reason);
    }
    json.CloseObject();
}

}  // namespace

void WriteAnalysis(CJsonText& json, const Analysis& analysis) {
    json.OpenObject();
    json.Name("tradingDays");
    json.Number(analysis.tradingDays);
    CAnalysisWriter writer(json);
    VisitAnalysis(
        analysis, [&](auto name, const auto& owner, auto fields) { writer.OnObject(name, owner, fields); },
        [&](auto name, const auto& rows, auto fields) { writer.OnList(name, rows, fields); });
    WriteReasons(json, analysis);
    json.CloseObject();
}

}  // namespace tradebill
