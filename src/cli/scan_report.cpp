#include "cli/scan_report.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "base/text.h"
#include "platform/text_encoding.h"
#include "readers/scan_listener.h"
#include "report/money_record.h"
#include "report/record_fields.h"

namespace tradebill {
namespace {

constexpr const char* kTemplatePass = "template";

std::string EndWords(const SectionSeen& seen) {
    std::string words = GbkToUtf8(seen.terminatorWord);
    if (!seen.otherTerminatorWord.empty()) words += " or " + GbkToUtf8(seen.otherTerminatorWord);
    return words;
}

/// `label` moves from one list to the other; one that stands there twice is met twice.
void Move(const std::string& label, std::vector<std::string>& from, std::vector<std::string>& to) {
    if (std::erase(from, label) != 0) to.push_back(label);
}

}  // namespace

CScanReport::CScanReport(std::string_view text) : text_(text) {
    for (std::string_view rest = text; !rest.empty(); static_cast<void>(TakeLine(rest))) {
        lineStarts_.push_back(text.size() - rest.size());
    }
}

int CScanReport::LineOf(std::string_view row) const {
    const auto offset = static_cast<std::size_t>(row.data() - text_.data());
    return static_cast<int>(std::ranges::upper_bound(lineStarts_, offset) - lineStarts_.begin());
}

/// The template reads before any fixed reader is named.
ReaderPass& CScanReport::Pass() {
    if (passes_.empty()) passes_.push_back({.layout = kTemplatePass, .dateWord = {}, .date = {}, .sections = {}});
    return passes_.back();
}

void CScanReport::OnTemplate(const TemplateSeen& seen) {
    template_ = {seen.outcome, seen.newScheme, std::string(seen.section), std::string(seen.missingKey)};
}

void CScanReport::OnReader(std::string_view layout) {
    const bool handedOn = !passes_.empty() && passes_.back().layout != kTemplatePass;
    if (handedOn) {
        passes_.back().layout = layout;
    } else {
        passes_.push_back({.layout = std::string(layout), .dateWord = {}, .date = {}, .sections = {}});
    }
}

void CScanReport::OnDate(std::string_view dateWord, std::string_view date) {
    Pass().dateWord = GbkToUtf8(dateWord);
    Pass().date = GbkToUtf8(date);
}

void CScanReport::OnSection(const SectionSeen& seen) {
    SectionReport report;
    report.kind = seen.kind;
    report.titleWord = GbkToUtf8(seen.titleWord);
    report.needsEnd = seen.needsTerminator;
    report.terminatorWord = EndWords(seen);
    if (!seen.titleRow.empty()) report.titleLine = LineOf(seen.titleRow);
    if (!seen.terminatorRow.empty()) report.endLine = LineOf(seen.terminatorRow);
    const std::size_t anywhere = text_.find(seen.titleWord);
    if (seen.titleRow.empty() && !seen.titleWord.empty() && anywhere != std::string_view::npos) {
        report.unseenTitleLine = LineOf(text_.substr(anywhere));
    }
    Pass().sections.push_back(std::move(report));
}

void CScanReport::OnRow(std::string_view row, Row columns, const RowVerdict& verdict) {
    if (verdict.fate == RowFate::Read) {
        ++Section().rowsRead;
    } else {
        Section().passedOver.push_back({LineOf(row), verdict.fate, columns.size(), verdict.needed});
    }
}

void CScanReport::OnLabelWanted(std::string_view label) {
    Section().labelsNotMet.push_back(GbkToUtf8(label));
}

void CScanReport::OnLabelMet(std::string_view label) {
    Move(GbkToUtf8(label), Section().labelsNotMet, Section().labelsMet);
}

void CScanReport::OnMoney(const MoneyRecord& record, std::string_view currency) {
    MoneySeen seen{.currency = GbkToUtf8(currency), .fields = {}};
    for (const auto& field : kMoneyFields) {
        const std::string_view text = field.Text(record);
        if (!text.empty()) seen.fields.emplace_back(field.name, GbkToUtf8(text));
    }
    ++Section().records;
    Section().money.push_back(std::move(seen));
}

void CScanReport::OnRecord(const RecordSeen& /*record*/) {
    ++Section().records;
}

void CScanReport::Finish() {
    for (ReaderPass& pass : passes_) {
        // A foreign statement is searched for one money block more than it has.
        const auto isMoney = [](const SectionReport& section) { return section.kind == SectionKind::Money; };
        const bool hasMoney = std::ranges::any_of(
            pass.sections, [&](const SectionReport& section) { return isMoney(section) && section.IsFound(); });
        if (hasMoney) {
            std::erase_if(pass.sections,
                          [&](const SectionReport& section) { return isMoney(section) && !section.titleLine; });
        }
        std::ranges::stable_sort(pass.sections, {}, [](const SectionReport& section) {
            return section.titleLine.value_or(std::numeric_limits<int>::max());
        });
    }
}

int CScanReport::FoundSections() const {
    std::ptrdiff_t found = 0;
    for (const ReaderPass& pass : passes_) found += std::ranges::count_if(pass.sections, &SectionReport::IsFound);
    return static_cast<int>(found);
}

int CScanReport::MoneyRecords() const {
    std::size_t records = 0;
    for (const ReaderPass& pass : passes_) {
        for (const SectionReport& section : pass.sections) records += section.money.size();
    }
    return static_cast<int>(records);
}

}  // namespace tradebill
