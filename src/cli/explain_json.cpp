#include <iostream>
#include <nlohmann/json.hpp>
#include <optional>
#include <string_view>
#include <vector>

#include "cli/explain_command.h"
#include "cli/explain_words.h"
#include "readers/scan_listener.h"
#include "requests/scan_report.h"

namespace tradebill {
namespace {

using Json = nlohmann::ordered_json;

Json JsonOf(const PassedOverRow& row);
Json JsonOf(const MoneySeen& money);
Json JsonOf(const SectionReport& section);
Json JsonOf(const ReaderPass& pass);
Json JsonOf(const WrongAmount& amount);
Json JsonOf(const LackedColumn& column);

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

Json JsonOf(const TemplateReport& seen, const CScanReport& report) {
    Json object{{"outcome", OutcomeName(seen.outcome)}, {"new_scheme", seen.newScheme}};
    if (seen.outcome == TemplateSeen::Outcome::Incomplete) {
        object["section"] = seen.section;
        object["missing_key"] = seen.missingKey;
        object["read_before"] = Json::array();
        for (const SectionKind kind : report.ReadBeforeDeclining()) object["read_before"].push_back(SectionName(kind));
    }
    return object;
}

Json JsonOf(const PassedOverRow& row) {
    Json object{{"line", row.line}, {"reason", FateName(row.fate)}, {"columns", row.columns}};
    if (row.fate == RowFate::TooShort) object["needed"] = row.needed;
    return object;
}

Json JsonOf(const NamedTexts& fields) {
    Json object = Json::object();
    for (const auto& [name, value] : fields) object[name] = value;
    return object;
}

Json JsonOf(const MoneySeen& money) {
    return {{"currency", money.currency}, {"fields", JsonOf(money.fields)}};
}

Json JsonOf(const WrongAmount& amount) {
    return {{"line", amount.line}, {"field", amount.field}, {"text", amount.text}, {"read_as", amount.readAs}};
}

Json JsonOf(const LackedColumn& column) {
    return {{"column", column.column},
            {"field", column.field},
            {"rows", column.rows},
            {"rows_without", column.lacking},
            {"first_line", column.firstLine}};
}

Json JsonOf(const FirstRecord& first) {
    return {{"line", Line(first.line)}, {"fields", JsonOf(first.fields)}};
}

Json JsonOf(const SectionReport& section) {
    Json object{{"section", SectionName(section.kind)},
                {"found", section.IsFound()},
                {"title", section.titleWord},
                {"title_line", Line(section.titleLine)},
                {"end", section.terminatorWord},
                {"end_line", Line(section.endLine)},
                {"rows_read", section.rowsRead},
                {"rows_passed_over", List(section.passedOver)},
                {"records", section.records}};
    object["widest_row"] = section.widestRow;
    object["columns_not_in_rows"] = List(section.columns);
    object["no_amounts"] = List(section.wrongAmounts);
    if (section.firstRecord) object["first_record"] = JsonOf(*section.firstRecord);
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
    if (report.Template()) object["template"] = JsonOf(*report.Template(), report);
    object["readers"] = List(report.Passes());
    object["sections_found"] = report.FoundSections();
    object["money_records"] = report.MoneyRecords();
    if (!explanation.stop.empty()) {
        const std::optional<ReadingPlace>& place = report.Place();
        object["error"] = explanation.stop;
        object["error_section"] = place ? Json(SectionName(place->section)) : Json(nullptr);
        object["error_line"] = place ? Line(place->line) : Json(nullptr);
    }
    object["looks_like"] = explanation.hint.looksLike;
    object["bears_own_mark"] = explanation.hint.bearsOwnMark;
    if (!explanation.hint.needsTemplate.empty()) object["needs_template"] = explanation.hint.needsTemplate;
    object["exit"] = explanation.exitCode;
    std::cout << object.dump(2, ' ', false, Json::error_handler_t::replace) << "\n";
}

}  // namespace tradebill
