#include <iostream>
#include <nlohmann/json.hpp>
#include <optional>
#include <string_view>
#include <vector>

#include "cli/explain_command.h"
#include "cli/explain_words.h"
#include "cli/scan_report.h"
#include "readers/scan_listener.h"

namespace tradebill {
namespace {

using Json = nlohmann::ordered_json;

Json JsonOf(const PassedOverRow& row);
Json JsonOf(const MoneySeen& money);
Json JsonOf(const SectionReport& section);
Json JsonOf(const ReaderPass& pass);

template <class Item>
Json List(const std::vector<Item>& items) {
    Json list = Json::array();
    for (const Item& item : items) list.push_back(JsonOf(item));
    return list;
}

Json Line(const std::optional<int>& line) {
    return line ? Json(*line) : Json(nullptr);
}

std::string_view OutcomeName(TemplateSeen::Outcome outcome) {
    switch (outcome) {
        case TemplateSeen::Outcome::NoFile:
            return "no_file";
        case TemplateSeen::Outcome::KnownDay:
            return "known_day";
        case TemplateSeen::Outcome::Incomplete:
            return "declined";
        case TemplateSeen::Outcome::Read:
            return "read";
    }
    return {};
}

Json JsonOf(const TemplateReport& seen) {
    Json object{{"outcome", OutcomeName(seen.outcome)}, {"new_scheme", seen.newScheme}};
    if (seen.outcome == TemplateSeen::Outcome::Incomplete) {
        object["section"] = seen.section;
        object["missing_key"] = seen.missingKey;
    }
    return object;
}

Json JsonOf(const PassedOverRow& row) {
    Json object{{"line", row.line}, {"reason", FateName(row.fate)}, {"columns", row.columns}};
    if (row.fate == RowFate::TooShort) object["needed"] = row.needed;
    return object;
}

Json JsonOf(const MoneySeen& money) {
    Json fields = Json::object();
    for (const auto& [name, value] : money.fields) fields[name] = value;
    return {{"currency", money.currency}, {"fields", fields}};
}

Json JsonOf(const SectionReport& section) {
    Json object{{"section", KindName(section.kind)}, {"found", section.IsFound()},
                {"title", section.titleWord},        {"title_line", Line(section.titleLine)},
                {"end", section.terminatorWord},     {"end_line", Line(section.endLine)},
                {"rows_read", section.rowsRead},     {"rows_passed_over", List(section.passedOver)},
                {"records", section.records}};
    if (section.unseenTitleLine) object["unseen_title_line"] = *section.unseenTitleLine;
    if (section.kind == SectionKind::Money) {
        object["labels_met"] = section.labelsMet;
        object["labels_not_met"] = section.labelsNotMet;
        object["money"] = List(section.money);
    }
    return object;
}

Json JsonOf(const ReaderPass& pass) {
    Json object{{"layout", pass.layout}, {"reason", ReasonText(pass.layout)}};
    if (!pass.dateWord.empty()) object["date"] = {{"word", pass.dateWord}, {"date", pass.date}};
    object["sections"] = List(pass.sections);
    return object;
}

}  // namespace

void PrintExplanationAsJson(const Explanation& explanation, const CScanReport& report) {
    Json object{{"file", explanation.file},
                {"lines", report.LineCount()},
                {"day", explanation.day},
                {"day_from", explanation.daySource},
                {"layout", explanation.format}};
    if (report.Template()) object["template"] = JsonOf(*report.Template());
    object["readers"] = List(report.Passes());
    object["sections_found"] = report.FoundSections();
    object["money_records"] = report.MoneyRecords();
    if (!explanation.stop.empty()) object["error"] = explanation.stop;
    object["looks_like"] = explanation.looksLike;
    object["exit"] = explanation.exitCode;
    std::cout << object.dump(2, ' ', false, Json::error_handler_t::replace) << "\n";
}

}  // namespace tradebill
