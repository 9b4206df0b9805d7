// A listener that writes down all that it is told, one line of text each.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/text_encoding.h"
#include "readers/scan_listener.h"

namespace tradebill {

/// What a listener was told, in its order.
class CScanLog {
public:
    [[nodiscard]] const std::vector<std::string>& Events() const { return events_; }

    /// Those that begin with `word`, without it.
    [[nodiscard]] std::vector<std::string> Events(std::string_view word) const {
        std::vector<std::string> found;
        for (const std::string& event : events_) {
            if (event.starts_with(std::string(word) + " ")) found.push_back(event.substr(word.size() + 1));
            if (event == word) found.emplace_back();
        }
        return found;
    }

    /// "word part/part/part", without what is empty at the end.
    void Note(std::string_view word, std::initializer_list<std::string_view> parts) {
        std::string text(word);
        text += " ";
        for (const std::string_view part : parts) text += GbkToUtf8(part) + "/";
        text.erase(text.find_last_not_of("/ ") + 1);
        events_.push_back(text);
    }

private:
    std::vector<std::string> events_;
};

class CScanRecorder final : public CScanListener {
public:
    [[nodiscard]] const CScanLog& Log() const { return log_; }
    /// What was told of columns, labelled values and errors, apart from the rest.
    [[nodiscard]] const CScanLog& Details() const { return details_; }
    [[nodiscard]] const std::vector<std::string>& Events() const { return log_.Events(); }
    [[nodiscard]] std::vector<std::string> Events(std::string_view word) const { return log_.Events(word); }

    void OnTemplate(const TemplateSeen& seen) override {
        static constexpr const char* kOutcomes[] = {"no file", "known day", "incomplete", "read"};
        log_.Note("template", {kOutcomes[static_cast<std::size_t>(seen.outcome)], seen.newScheme ? "new" : "old",
                               seen.section, seen.missingKey});
    }
    void OnReader(std::string_view layout) override { log_.Note("reader", {layout}); }
    void OnDate(std::string_view dateWord, std::string_view date) override { log_.Note("date", {dateWord, date}); }
    void OnSection(const SectionSeen& seen) override {
        static constexpr const char* kKinds[] = {"money", "trades", "closed", "open", "summary"};
        log_.Note("section", {kKinds[static_cast<std::size_t>(seen.kind)], seen.titleWord, seen.terminatorWord,
                              seen.otherTerminatorWord, seen.titleRow, seen.terminatorRow});
    }
    void OnRow(std::string_view row, Row columns, const RowVerdict& verdict) override {
        static constexpr const char* kFates[] = {"read",    "too short",    "no lots", "subtotal",
                                                 "heading", "first of two", "rule"};
        const std::string needed = verdict.fate == RowFate::TooShort ? std::to_string(verdict.needed) : "";
        const std::string found = verdict.fate == RowFate::Subtotal ? "" : std::to_string(columns.size());
        log_.Note("row", {row, kFates[static_cast<std::size_t>(verdict.fate)], found, needed});
    }
    void OnLabelWanted(std::string_view label) override { log_.Note("wanted", {label}); }
    void OnLabelMet(std::string_view label) override { log_.Note("met", {label}); }
    void OnMoney(const MoneyRecord& record, std::string_view currency) override {
        log_.Note("money", {record.BILL_DATE, record.KHQY, currency});
    }
    void OnRecord(const RecordSeen& /*record*/) override { log_.Note("record", {}); }

    void OnColumns(std::span<const ColumnSeen> columns) override {
        for (const ColumnSeen& seen : columns) {
            details_.Note("column", {std::to_string(seen.column), seen.field, seen.isAmount ? "amount" : "text",
                                     seen.mayLack ? "may lack" : ""});
        }
    }
    void OnLabelledValue(const LabelledValue& value) override {
        details_.Note("value", {value.field, value.printed, value.kept});
    }
    void OnStop(std::string_view row) override { details_.Note("stop", {row}); }

private:
    CScanLog log_;
    CScanLog details_;
};

}  // namespace tradebill
