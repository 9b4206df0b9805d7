#include "requests/scan_report.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "base/byte_mask.h"
#include "base/number.h"
#include "platform/text_encoding.h"
#include "readers/scan_listener.h"
#include "report/money_record.h"
#include "report/record_fields.h"

namespace tradebill {
namespace {

std::string EndWords(const SectionSeen& seen) {
    std::string words = GbkToUtf8(seen.terminatorWord);
    if (!seen.otherTerminatorWord.empty()) words += " or " + GbkToUtf8(seen.otherTerminatorWord);
    return words;
}

/// `label` moves from one list to the other; one that stands there twice is met twice.
void Move(const std::string& label, std::vector<std::string>& from, std::vector<std::string>& to) {
    if (std::erase(from, label) != 0) to.push_back(label);
}

template <class Record>
NamedTexts TextsOf(const Record& record) {
    NamedTexts texts;
    for (const TextField<Record>& field : FieldsOf<Record>()) {
        const std::string_view text = field.Text(record);
        if (!text.empty()) texts.emplace_back(field.name, GbkToUtf8(text));
    }
    return texts;
}

/// Whether a row of this fate is read by its columns.
bool IsSplit(RowFate fate) {
    return fate == RowFate::Read || fate == RowFate::NoLots;
}

/// Columns that all rows have are none of the reader's concern, and so are those that this statement doesn't print.
bool IsWorthTelling(const LackedColumn& column) {
    return column.lacking > 0 && !(column.mayLack && column.lacking == column.rows);
}

}  // namespace

CScanReport::CScanReport(std::string_view text) : text_(text) {
    lines_.Begin(text);
}

int CScanReport::LineCount() const {
    const std::size_t ends = CountByte(text_, '\n');
    return static_cast<int>(text_.ends_with('\n') ? ends : ends + (text_.empty() ? 0 : 1));
}

/// The template reads before any fixed reader is named.
ReaderPass& CScanReport::Pass() {
    if (passes_.empty())
        passes_.push_back({.layout = std::string(kTemplatePass), .dateWord = {}, .date = {}, .sections = {}});
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
    if (!seen.titleRow.empty()) report.titleLine = lines_.LineOf(seen.titleRow);
    if (!seen.terminatorRow.empty()) report.endLine = lines_.LineOf(seen.terminatorRow);
    const std::size_t anywhere = text_.find(seen.titleWord);
    if (seen.titleRow.empty() && !seen.titleWord.empty() && anywhere != std::string_view::npos) {
        report.unseenTitleLine = lines_.LineOf(text_.substr(anywhere));
    }
    Pass().sections.push_back(std::move(report));
    place_ = {.section = seen.kind, .line = {}};
    columns_.clear();
}

/// A section's rows may be read by one set of columns after the other.
void CScanReport::OnColumns(std::span<const ColumnSeen> columns) {
    columns_.assign(columns.begin(), columns.end());
    std::ranges::stable_sort(columns_, {}, &ColumnSeen::column);
    SectionReport& section = Section();
    firstLackedColumn_ = section.columns.size();
    for (const ColumnSeen& seen : columns_) {
        section.columns.push_back({.column = seen.column,
                                   .field = std::string(seen.field),
                                   .mayLack = seen.mayLack,
                                   .rows = 0,
                                   .lacking = 0,
                                   .firstLine = 0});
    }
}

/// Which columns a row lacks, and which of its amounts are none. One column that fills two fields is told once.
void CScanReport::LookAtColumns(int line, Row columns) {
    SectionReport& section = Section();
    section.widestRow = std::max(section.widestRow, columns.size());
    std::size_t toldColumn = std::string_view::npos;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        const ColumnSeen& seen = columns_[i];
        LackedColumn& lacked = section.columns[firstLackedColumn_ + i];
        ++lacked.rows;
        if (seen.column >= columns.size()) {
            if (lacked.lacking++ == 0) lacked.firstLine = line;
        } else if (seen.isAmount && seen.column != toldColumn && !IsAmount(columns[seen.column])) {
            toldColumn = seen.column;
            const std::string_view text = columns[seen.column];
            section.wrongAmounts.push_back({line, lacked.field, GbkToUtf8(text), ParseAmount(text)});
        }
    }
}

void CScanReport::OnRow(std::string_view row, Row columns, const RowVerdict& verdict) {
    const int line = lines_.LineOf(row);
    place_->line = line;
    if (verdict.fate == RowFate::Read) {
        ++Section().rowsRead;
    } else {
        Section().passedOver.push_back({line, verdict.fate, columns.size(), verdict.needed});
    }
    if (IsSplit(verdict.fate)) LookAtColumns(line, columns);
    std::optional<FirstRecord>& first = Section().firstRecord;
    if (first && !first->line) first->line = line;
}

void CScanReport::OnLabelWanted(std::string_view label) {
    Section().labelsNotMet.push_back(GbkToUtf8(label));
}

void CScanReport::OnLabelMet(std::string_view label) {
    Move(GbkToUtf8(label), Section().labelsNotMet, Section().labelsMet);
}

void CScanReport::OnMoney(const MoneyRecord& record, std::string_view currency) {
    ++Section().records;
    Section().money.push_back({.currency = GbkToUtf8(currency), .fields = TextsOf(record)});
}

void CScanReport::OnLabelledValue(const LabelledValue& value) {
    if (IsAmount(value.kept)) return;
    Section().wrongAmounts.push_back(
        {lines_.LineOf(value.printed), std::string(value.field), GbkToUtf8(value.printed), ParseAmount(value.kept)});
}

void CScanReport::OnRecord(const RecordSeen& record) {
    SectionReport& section = Section();
    if (section.records++ > 0) return;
    section.firstRecord.emplace();
    section.firstRecord->fields = std::visit([](const auto* row) { return TextsOf(*row); }, record);
}

void CScanReport::OnStop(std::string_view row) {
    place_->line = row.empty() ? std::optional<int>() : lines_.LineOf(row);
}

void CScanReport::Finish() {
    for (ReaderPass& pass : passes_) {
        for (SectionReport& section : pass.sections) std::erase_if(section.columns, std::not_fn(IsWorthTelling));
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

std::vector<SectionKind> CScanReport::ReadBeforeDeclining() const {
    std::vector<SectionKind> kinds;
    for (const SectionReport& section : passes_.front().sections) {
        if (section.records > 0) kinds.push_back(section.kind);
    }
    return kinds;
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
