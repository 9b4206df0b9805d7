#include "anonymise/sheet_watch.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "base/gbk.h"
#include "base/text.h"
#include "readers/scan_listener.h"
#include "report/money_record.h"
#include "report/product_text.h"
#include "report/records.h"

namespace tradebill {
namespace {

void Tell(std::string& shape, std::string_view word) {
    shape.append(word).append("\n");
}

/// What of a record doesn't change in a copy.
void TellRecord(std::string& shape, const MatchRecord& row) {
    Tell(shape, FieldText(row.CONTRACT));
    Tell(shape, FieldText(row.DELIVERY));
    Tell(shape, FieldText(row.BID));
    Tell(shape, FieldText(row.OFFSET));
    Tell(shape, FieldText(row.MATCH_VOL));
}
void TellRecord(std::string& shape, const PingDetail& row) {
    Tell(shape, FieldText(row.CONTRACT));
    Tell(shape, FieldText(row.BID));
    Tell(shape, FieldText(row.MATCH_VOL));
}
void TellRecord(std::string& shape, const OpiDetail& row) {
    Tell(shape, FieldText(row.CONTRACT));
    Tell(shape, FieldText(row.BID));
    Tell(shape, FieldText(row.POSITION_VOL));
}
void TellRecord(std::string& shape, const OpiSum& row) {
    Tell(shape, FieldText(row.CONTRACT));
    Tell(shape, FieldText(row.BID));
    Tell(shape, FieldText(row.BID_POSITION_VOL));
    Tell(shape, FieldText(row.ASK_POSITION_VOL));
}

}  // namespace

bool CSheetWatch::IsInText(std::string_view part) const {
    return !part.empty() && part.data() >= text_.data() && part.data() + part.size() <= text_.data() + text_.size();
}

void CSheetWatch::AddCell(std::string_view part, std::string_view field) {
    if (!IsInText(part)) return;
    cells_.push_back({static_cast<std::size_t>(part.data() - text_.data()), part.size(), field});
}

/// A section that is searched for behind the one before isn't found if that one has taken its title for a row.
bool CSheetWatch::IsOfNextSection(const WatchedRow& row) const {
    if (row.kind == SectionKind::Money || row.title == 0) return false;
    const auto isBetween = [&](std::size_t title) { return row.title < title && title < row.at; };
    if (std::ranges::any_of(titles_, isBetween)) return true;
    const std::string_view line = text_.substr(row.at, text_.find('\n', row.at) - row.at);
    const auto isInLine = [&](const std::string& title) { return Contains(line, title); };
    return row.fate == RowFate::TooShort && std::ranges::any_of(lostTitles_, isInLine);
}

void CSheetWatch::Finish() {
    // The first that tells of a place stays.
    std::ranges::stable_sort(cells_, {}, &WatchedCell::at);
    const auto isSame = [](const WatchedCell& one, const WatchedCell& other) { return one.at == other.at; };
    cells_.erase(std::unique(cells_.begin(), cells_.end(), isSame), cells_.end());
    std::ranges::stable_sort(rows_, {}, &WatchedRow::at);
    const auto run = std::ranges::find_if(rows_, [this](const WatchedRow& row) { return IsOfNextSection(row); });
    if (run != rows_.end() && !cut_) cut_ = run->kind;
}

void CSheetWatch::OnTemplate(const TemplateSeen& seen) {
    Tell(shape_, "template");
    shape_ += std::to_string(static_cast<int>(seen.outcome));
}

/// A template that declines has told of some sections before.
void CSheetWatch::OnReader(std::string_view layout) {
    cells_.clear();
    rows_.clear();
    blocks_.clear();
    titles_.clear();
    lostTitles_.clear();
    money_.reset();
    moneyTitle_ = moneyEnd_ = {};
    cut_.reset();
    hasFound_ = isBlockOpen_ = false;
    Tell(shape_, layout);
}

void CSheetWatch::OnDate(std::string_view dateWord, std::string_view date) {
    Tell(shape_, dateWord);
    Tell(shape_, date.empty() ? "none" : "date");
}

void CSheetWatch::OnSection(const SectionSeen& seen) {
    kind_ = seen.kind;
    title_ = IsInText(seen.titleRow) ? static_cast<std::size_t>(seen.titleRow.data() - text_.data()) : 0;
    if (title_ > 0) titles_.push_back(title_);
    if (seen.titleRow.empty() && !seen.titleWord.empty()) lostTitles_.emplace_back(seen.titleWord);
    columns_.clear();
    next_ = {};
    isBlockOpen_ = false;
    const bool hasTitle = !seen.titleRow.empty();
    const bool hasEnd = !seen.terminatorRow.empty() || !seen.needsTerminator;
    hasFound_ |= hasTitle && hasEnd;
    if (hasTitle && !hasEnd && !cut_) cut_ = seen.kind;
    Tell(shape_, SectionName(seen.kind));
    Tell(shape_, hasTitle ? hasEnd ? "whole" : "cut" : "none");
    if (seen.kind != SectionKind::Money || !moneyTitle_.empty() || !IsInText(seen.titleRow)) return;
    moneyTitle_ = seen.titleRow;
    if (IsInText(seen.terminatorRow)) moneyEnd_ = seen.terminatorRow;
}

void CSheetWatch::OnColumns(std::span<const ColumnSeen> columns) {
    columns_.insert(columns_.end(), columns.begin(), columns.end());
}

void CSheetWatch::OnRow(std::string_view row, Row columns, const RowVerdict& verdict) {
    Tell(shape_, std::to_string(static_cast<int>(verdict.fate)) + " " + std::to_string(columns.size()));
    if (verdict.fate != RowFate::Subtotal) {
        for (const ColumnSeen& column : columns_) {
            if (column.column < columns.size()) AddCell(columns[column.column], column.field);
        }
    }
    if (IsInText(row)) {
        next_.at = static_cast<std::size_t>(row.data() - text_.data());
        next_.kind = kind_;
        next_.fate = verdict.fate;
        next_.title = title_;
        rows_.push_back(next_);
    }
    next_ = {};
}

void CSheetWatch::OnLabelWanted(std::string_view /*label*/) {}

void CSheetWatch::OnLabelMet(std::string_view label) {
    Tell(shape_, label);
}

void CSheetWatch::OnLabelledValue(const LabelledValue& value) {
    if (!IsInText(value.printed)) return;
    AddCell(value.printed, value.field);
    if (!isBlockOpen_) blocks_.emplace_back();
    isBlockOpen_ = true;
    const auto at = static_cast<std::size_t>(value.printed.data() - text_.data());
    const bool isNext = lastValue_.field == value.field && at > lastValue_.at &&
                        text_.substr(lastValue_.at, at - lastValue_.at).find('\n') == std::string_view::npos;
    lastValue_ = {value.field, isNext && !blocks_.back().values.empty() ? lastValue_.column + 1 : 0, at};
    blocks_.back().values.push_back(lastValue_);
}

void CSheetWatch::OnMoney(const MoneyRecord& record, std::string_view currency) {
    Tell(shape_, "money");
    Tell(shape_, currency);
    hasFound_ = true;
    if (currency.empty()) {
        money_ = record;
        return;
    }
    isBlockOpen_ = false;
    if (!blocks_.empty()) blocks_.back().currencies.emplace_back(currency);
}

void CSheetWatch::TakeTrade(const MatchRecord& trade) {
    next_.isOption = IsOptionContract(FieldText(trade.CONTRACT));
    next_.isBuy = Contains(FieldText(trade.BID), "买"_gbk);
}

void CSheetWatch::OnRecord(const RecordSeen& record) {
    std::visit([&](const auto* row) { TellRecord(shape_, *row); }, record);
    if (const auto* const trade = std::get_if<const MatchRecord*>(&record)) TakeTrade(**trade);
}

}  // namespace tradebill
