#include "findings/statement_watch.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "base/decimal.h"
#include "base/gbk.h"
#include "base/number.h"
#include "base/text.h"
#include "findings/account_checks.h"
#include "findings/finding.h"
#include "findings/layout_hint.h"
#include "findings/other_currencies.h"
#include "findings/record_amounts.h"
#include "findings/section_facts.h"
#include "findings/section_watch.h"
#include "findings/side_table_watch.h"
#include "findings/statement_facts.h"
#include "findings/statement_texts.h"
#include "platform/paths.h"
#include "platform/text_encoding.h"
#include "readers/layout_marks.h"
#include "readers/layout_table.h"
#include "readers/printed_money_reader.h"
#include "readers/scan_listener.h"
#include "readers/side_table_reader.h"
#include "readers/statement_loader.h"
#include "report/money_record.h"
#include "report/printed_money.h"
#include "report/records.h"
#include "report/report.h"
#include "report/statement_format.h"

namespace tradebill {
namespace {

bool IsBlank(std::string_view text) {
    return std::ranges::all_of(text, IsWhiteSpace);
}

std::int64_t TurnoverOf(const MatchRecord& trade) {
    const auto turnover = ParseDecimal(FieldText(trade.TURNOVER));
    const std::int64_t amount = turnover ? turnover->steps : 0;
    return Contains(FieldText(trade.BID), "买"_gbk) ? -amount : amount;
}

bool IsOfRequest(const Layout& layout, const CReport& report) {
    return layout.isForeign == report.IsForeign() &&
           (layout.isForeign || layout.format == report.Request.StatementFormat);
}

/// Whether a statement may be of a layout of the request's own format that is read by a template alone.
enum class OwnFormat { IsRight, MayLackItsTemplate };

/// The layouts that `text` may be of but for the one it was read by, as options: "--format 2 or --format 201".
std::string OtherOptions(std::string_view text, const CReport& report, OwnFormat own = OwnFormat::IsRight) {
    const bool hasTemplate = !FieldText(report.Request.TemplateName).empty();
    std::string options;
    for (const Layout* const layout : FittingLayouts(text)) {
        const bool lacksTemplate = own == OwnFormat::MayLackItsTemplate && layout->marks.needsTemplate && !hasTemplate;
        if (IsOfRequest(*layout, report) && !lacksTemplate) continue;
        options.append(options.empty() ? "" : " or ").append(OptionFor(*layout, hasTemplate));
    }
    return options;
}

}  // namespace

void CStatementWatch::Tell(FindingCode code, std::string expected, std::string found, std::string text,
                           std::optional<int> row, std::optional<SectionKind> section) {
    Finding finding = FindingAbout(Facts(), code);
    finding.row = row;
    finding.section = section;
    finding.expected = std::move(expected);
    finding.found = std::move(found);
    finding.text = std::move(text);
    Facts().findings.push_back(std::move(finding));
}

void CStatementWatch::OnStatement(std::string_view day, const std::string& path, const StatementFile& file) {
    if (file.state == StatementState::Missing) return;
    StatementFacts facts;
    facts.day = day;
    facts.file = FileNameOf(path);
    statements_.push_back(std::move(facts));
    text_ = file.text;
    if (file.state == StatementState::Unreadable) {
        Tell(FindingCode::Unreadable, "a statement that can be read", file.reason, "The statement can't be read.");
    } else if (file.state == StatementState::NotAFile) {
        Tell(FindingCode::NotAFile, "a file", "a folder, a pipe or a device",
             "What bears the statement's name isn't a file.");
    } else if (IsBlank(file.bytes)) {
        Tell(FindingCode::Empty, "a statement", std::to_string(file.bytes.size()) + " bytes",
             "The statement holds nothing.");
    } else {
        Facts().isUsable = true;
        Facts().hash = HashOf(file.bytes);
        Facts().size = file.bytes.size();
        if (const auto fault = FindEncodingFault(file.bytes)) {
            Tell(FindingCode::Encoding, "GBK text", fault->what, "The statement isn't plain GBK text.", fault->row);
            Facts().isUsable = !fault->isUnreadable;
        }
    }
    template_.reset();
    hasReader_ = false;
    if (!Facts().isUsable) lots_.Break();
    lots_.Begin(report_.Format().namesDeliveryApart && !report_.IsForeign());
    BeginPass();
}

/// A template that declines has read some sections before a fixed reader reads all of them again.
void CStatementWatch::BeginPass() {
    Facts().sections.clear();
    lines_.Begin(text_);
    lots_.BeginDay();
    section_.Drop();
    moneySeen_ = {};
    money_.reset();
    wantsLabels_ = hasLabel_ = false;
    report_.PrintedMoney.resize(report_.PrintedMoney.size() - Facts().moneyCount);
    Facts().firstMoney = report_.PrintedMoney.size();
    Facts().moneyCount = 0;
    Facts().hasMoney = false;
    printed_ = {};
    printed_.Day = Facts().day;
    hasLookedForSections_ = false;
}

void CStatementWatch::OnTemplate(const TemplateSeen& seen) {
    template_ = seen.outcome;
}

void CStatementWatch::OnReader(std::string_view layout) {
    if (hasLookedForSections_) BeginPass();
    if (layout_ != layout) section_.Forget();
    layout_ = layout;
    Facts().layout = layout;
    hasReader_ = true;
}

/// The date by which a reader files the statement.
void CStatementWatch::OnDate(std::string_view dateWord, std::string_view date) {
    const std::string day = PackedDate(date);
    Facts().statesDay |= !day.empty();
    // A template looks for the date only to know a day that came before.
    if (!Facts().isUsable || day == Facts().day || (day.empty() && !hasReader_)) return;
    Tell(FindingCode::WrongDay, Facts().day, GbkToUtf8(Trim(date)),
         day.empty() ? "No date stands behind \"" + GbkToUtf8(dateWord) + "\", by which the layout files the statement."
                     : "The statement states another day than its file's name.");
}

void CStatementWatch::EndSection() {
    if (section_.IsOpen()) Facts().sections.push_back(section_.End(lines_));
}

void CStatementWatch::OnSection(const SectionSeen& seen) {
    EndSection();
    hasLookedForSections_ = true;
    if (seen.kind == SectionKind::Money && moneySeen_.titleRow.empty()) moneySeen_ = seen;
    section_.Begin(seen, text_, report_.IsForeign() ? RecordLife::EndsWithRow : RecordLife::Stays);
}

void CStatementWatch::OnColumns(std::span<const ColumnSeen> columns) {
    section_.OnColumns(columns);
}

void CStatementWatch::OnRow(std::string_view row, Row columns, const RowVerdict& verdict) {
    section_.OnRow(row, columns, verdict, lines_);
}

void CStatementWatch::OnLabelWanted(std::string_view /*label*/) {
    wantsLabels_ = true;
    section_.OnLabelWanted();
}

void CStatementWatch::OnLabelMet(std::string_view /*label*/) {
    hasLabel_ = true;
}

void CStatementWatch::OnMoney(const MoneyRecord& record, std::string_view currency) {
    Facts().hasMoney = true;
    if (const auto strange = FindStrangeAmount(record)) {
        const std::size_t at = FindText(text_, strange->text);
        const auto row = at == std::string_view::npos ? std::nullopt : std::optional(lines_.LineOf(text_.substr(at)));
        Tell(FindingCode::Shifted, "an amount for " + std::string(strange->field), GbkToUtf8(strange->text),
             "A text stands where the money section has an amount.", row, SectionKind::Money);
    }
    if (!report_.IsForeign()) {
        money_ = record;
        return;
    }
    PrintedMoney money = printed_;
    money.Currency = currency;
    money.IsBase = Facts().moneyCount == 0;
    if (!moneySeen_.titleRow.empty()) money.Row = lines_.LineOf(moneySeen_.titleRow);
    TakeForeignMoney(record, money);
    report_.PrintedMoney.push_back(std::move(money));
    ++Facts().moneyCount;
}

void CStatementWatch::TakeTrade(const MatchRecord& row) {
    Facts().hasTrades = true;
    if (report_.IsForeign()) {
        lots_.AddForeignTrade(row);
        section_.OnLots(IntegerIn(row.MATCH_VOL));
        return;
    }
    const bool isOption = lots_.AddTrade(row);
    if (talliesUnits_) units_.Feed(row);
    Facts().hasClosingTrades |= Contains(FieldText(row.OFFSET), "平"_gbk);
    if (isOption) printed_.OptionTurnover = WrappingSum(printed_.OptionTurnover, TurnoverOf(row));
}

void CStatementWatch::OnRecord(const RecordSeen& record) {
    section_.OnRecord(record);
    if (const auto* const trade = std::get_if<const MatchRecord*>(&record)) {
        TakeTrade(**trade);
    } else if (const auto* const closed = std::get_if<const PingDetail*>(&record)) {
        if (report_.IsForeign()) lots_.AddForeignClosed(**closed);
    } else if (const auto* const open = std::get_if<const OpiDetail*>(&record)) {
        lots_.AddOpen(**open);
        if (report_.IsForeign()) section_.OnLots(IntegerIn((*open)->POSITION_VOL));
    } else if (section_.Kind() == SectionKind::Open || Facts().Section(SectionKind::Open) == nullptr) {
        lots_.AddOpen(*std::get<const OpiSum*>(record));
    }
}

/// What the reader of a domestic statement didn't find for its money record.
void CStatementWatch::LookForLostMoney() {
    Facts().lacksLabels = wantsLabels_ && !hasLabel_;
    if (Facts().lacksLabels) Facts().otherOptions = OtherOptions(text_, report_, OwnFormat::MayLackItsTemplate);
    const bool addsUp = report_.Format().equity == EquityRule::MarginAndAvailable;
    const bool hasEquity = addsUp ? !FieldText(money_->BZJZY).empty() || !FieldText(money_->KYZJ).empty()
                                  : !FieldText(money_->KHQY).empty();
    Facts().lacksEquity = !hasEquity && printed_[PrintedFigure::Equity].has_value();
}

/// The figures of a domestic statement: as printed, and as its layout's reader took them.
void CStatementWatch::TakeMoney() {
    if (report_.IsForeign() || !money_) return;
    if (!moneySeen_.titleRow.empty()) {
        ReadPrintedMoney({text_, moneySeen_.titleRow, moneySeen_.terminatorRow}, printed_);
    }
    LookForLostMoney();
    CompleteFromRecord(*money_, report_.Format().equity, printed_);
    report_.PrintedMoney.push_back(std::move(printed_));
    Facts().moneyCount = 1;
}

void CStatementWatch::LookForOtherCurrencies() {
    if (report_.IsForeign() || moneySeen_.titleRow.empty()) return;
    for (const std::string_view row : TitlesOfOtherCurrencies(text_, moneySeen_.titleRow, moneySeen_.titleWord)) {
        Tell(FindingCode::Currency, GbkToUtf8(CurrencyOfTitle(moneySeen_.titleRow)), GbkToUtf8(CurrencyOfTitle(row)),
             "The money of another currency isn't in the report.", lines_.LineOf(row), SectionKind::Money);
    }
}

/// Once for a statement, whatever readers have read it; one that is passed over adds no row to those of its day.
void CStatementWatch::TakeSideRows() {
    if (!readsSideRows_ || report_.IsForeign() || IsPassedOver()) return;
    CSideTableWatch watch(Facts().day, lines_, report_.SideRecords);
    ReadSideTables(text_, watch);
    Facts().sideTables = watch.TakeTables();
    LookForCutTable();
}

/// A file that ends behind a row of such a table, whose other tables end in totals.
void CStatementWatch::LookForCutTable() {
    if (Facts().isCutOff || Facts().sideTables.empty()) return;
    const SideTableFacts& last = Facts().sideTables.back();
    if (last.section.hasEnd || last.lastRow != Facts().lastRow) return;
    const auto hasTotal = [](const SectionFacts& section) { return section.totalRow > 0; };
    const bool printsTotals = std::ranges::any_of(Facts().sections, hasTotal) ||
                              std::ranges::any_of(Facts().sideTables, hasTotal, &SideTableFacts::section);
    if (!printsTotals) return;
    Facts().isCutOff = true;
    Tell(FindingCode::CutOff, "the end of the section", "the end of the file",
         "The section begins at line " + std::to_string(last.section.titleRow) + " and doesn't end.",
         last.section.titleRow, last.section.kind);
}

bool CStatementWatch::IsPassedOver() const {
    return hasReader_ ? !hasLookedForSections_ : template_ == TemplateSeen::Outcome::KnownDay;
}

/// Whether the file is of the layout that reads it. `explain` speaks of the same marks.
bool CStatementWatch::IsRecognised() {
    const bool byTemplate = template_ == TemplateSeen::Outcome::Read || template_ == TemplateSeen::Outcome::KnownDay;
    const bool isOfOther = !byTemplate && !BearsMarksOf(text_, report_.Request.StatementFormat, report_.IsForeign()) &&
                           !MarkedLayouts(text_).empty();
    // Readers that find no date in any statement take all of them for the same day.
    if (IsPassedOver()) return Facts().statesDay && !isOfOther;
    const bool foundSection = std::ranges::any_of(Facts().sections, &SectionFacts::IsFound);
    return (foundSection || Facts().hasMoney) && !isOfOther;
}

/// What a statement says of itself beside its sections.
void CStatementWatch::LookAtOrigin() {
    const std::string wanted(FieldText(report_.Request.Account));
    if (const auto account = PrintedAccount(text_); account && *account != wanted) {
        Tell(FindingCode::WrongAccount, wanted, *account, "The statement states another account than its file's name.");
    }
    const bool isTold = std::ranges::any_of(
        Facts().findings, [](const Finding& finding) { return finding.code == FindingCode::WrongDay; });
    const auto day = PrintedDay(text_);
    Facts().statesDay |= day.has_value();
    if (!isTold && day && *day != Facts().day) {
        Tell(FindingCode::WrongDay, Facts().day, *day, "The statement states another day than its file's name.");
    }
}

/// A section that begins and doesn't end, or half a character at the end of the file.
void CStatementWatch::LookForCut() {
    const auto endsInCharacter = [&] {
        std::string_view rest = text_.substr(text_.rfind('\n') + 1);
        while (rest.size() > 1) rest.remove_prefix(GbkCharacterLength(rest));
        return rest.size() == 1 && static_cast<unsigned char>(rest.front()) >= 0x80;
    };
    for (const SectionFacts& section : Facts().sections) {
        if (!section.hasTitle || section.hasEnd || Facts().isCutOff) continue;
        Facts().isCutOff = true;
        Tell(FindingCode::CutOff, "the end of the section", "the end of the file",
             "The section begins at line " + std::to_string(section.titleRow) + " and doesn't end.", section.titleRow,
             section.kind);
    }
    Facts().endsInLine = !text_.ends_with('\n');
    const std::string_view whole = TrimRight(text_);
    if (!whole.empty()) Facts().lastRow = lines_.LineOf(whole.substr(whole.size() - 1));
    const SectionFacts* const money = Facts().Section(SectionKind::Money);
    constexpr int kMoneyRows = 8;  // from the title of a sheet without an end to its last figures
    const bool endsInMoney =
        !Facts().hasMoney && money != nullptr && money->hasTitle && Facts().lastRow < money->titleRow + kMoneyRows;
    if (Facts().isCutOff || (!endsInCharacter() && !endsInMoney)) return;
    Facts().isCutOff = true;
    Tell(FindingCode::CutOff, "a whole last row", "the end of the file", "The file ends inside a row.",
         Facts().lastRow);
}

void CStatementWatch::TellUnrecognised() {
    const std::string options = OtherOptions(text_, report_);
    const bool bearsOwn = BearsMarksOf(text_, report_.Request.StatementFormat, report_.IsForeign());
    Facts().findings.clear();
    std::string wanted =
        report_.IsForeign() ? "--kind foreign" : "--format " + std::to_string(report_.Request.StatementFormat);
    if (!options.empty()) {
        Tell(FindingCode::Unrecognised, std::move(wanted), options, "This looks like " + options + ".");
    } else if (bearsOwn) {
        Tell(FindingCode::Unrecognised, std::move(wanted), "its marks, but none of its sections",
             "This is a variant of the layout that its reader doesn't know: it needs --template.");
    } else {
        Tell(FindingCode::Unrecognised, std::move(wanted), "no layout's marks",
             "No layout's mark stands in the statement: one that only a template describes needs --template.");
    }
}

void CStatementWatch::OnStatementEnd() {
    EndSection();
    Facts().isEnded = true;
    if (!Facts().isUsable) return;
    if (!IsRecognised()) {
        TellUnrecognised();
        Facts().isUsable = false;
        report_.PrintedMoney.resize(Facts().firstMoney);
        Facts().moneyCount = 0;
        lots_.Break();
        return;
    }
    LookAtOrigin();
    LookForCut();
    TakeMoney();
    LookForOtherCurrencies();
    TakeSideRows();
    Facts().expectsLots = lots_.ExpectsLots();
    Facts().lots = lots_.EndDay();
}

}  // namespace tradebill
