#include "anonymise/account_anonymiser.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "anonymise/amount_text.h"
#include "anonymise/cell_meaning.h"
#include "anonymise/day_shift.h"
#include "anonymise/identity_map.h"
#include "anonymise/money_amounts.h"
#include "anonymise/sheet_watch.h"
#include "anonymise/statement_sheet.h"
#include "anonymise/table_amounts.h"
#include "base/report_error.h"
#include "base/text.h"
#include "driver/report_request.h"
#include "findings/statement_texts.h"
#include "platform/file.h"
#include "readers/scan_listener.h"
#include "readers/statement_loader.h"
#include "report/money_identity.h"
#include "report/report.h"
#include "report/request_copy.h"
#include "report/statement_format.h"
#include "statistics/money_identity.h"

namespace tradebill {
namespace {

constexpr int kFitFactors = 16;  // that are tried where numbers don't fit into their columns
constexpr int kFactors = 8;      // of those that fit, the best is taken

CAmountFactor DrawFactor(CDice& dice) {
    constexpr std::uint64_t kLeast = CAmountFactor::kParts * 3 / 10;
    constexpr std::uint64_t kMost = CAmountFactor::kParts * 9 / 10;
    return CAmountFactor(static_cast<std::int64_t>(kLeast + dice.Below(kMost - kLeast)));
}

bool IsForeign(const GenerateBillRequest& request) {
    return request.StatementKind == kForeignKind;
}

std::size_t SameAmountsOf(const StatementSheet& sheet) {
    return static_cast<std::size_t>(std::ranges::count_if(sheet.cells, [](const SheetCell& cell) {
        const bool isAmount = cell.number && (IsMoney(cell.meaning) || cell.meaning == Meaning::Price);
        return isAmount && cell.number->steps != 0 && cell.Now() == cell.number->steps;
    }));
}

std::size_t CountOf(std::string_view word, std::string_view text) {
    std::size_t count = 0;
    for (std::size_t at = text.find(word); at != std::string_view::npos; at = text.find(word, at + word.size()))
        ++count;
    return count;
}

void Replace(std::string& text, const SheetCell& cell, std::string_view instead) {
    std::ranges::copy(instead, text.begin() + static_cast<std::ptrdiff_t>(cell.at));
}

}  // namespace

CAccountAnonymiser::CAccountAnonymiser(const GenerateBillRequest& request, TemplateSource source,
                                       const AnonymiseSettings& settings, std::string_view account)
    : request_(CopyRequest(request)),
      template_(std::move(source)),
      settings_(settings),
      identities_(CDice(settings.seed, FieldText(request.Account)).Next()) {
    const std::string_view before = FieldText(request_.Account);
    identities_.Fix(before, account);
    names_.LearnNumber(before);
}

void CAccountAnonymiser::Add(DayStatement statement) {
    if (auto reason = WhyLeftOut(statement)) {
        leftOut_.push_back({statement.day, *std::move(reason)});
    } else {
        statements_.push_back(std::move(statement));
    }
}

void CAccountAnonymiser::Read(const DayStatement& statement, CSheetWatch& watch) const {
    CReport report;  // of this statement alone: others of its day don't hide it
    report.Request = request_;
    report.TemplatePath = template_.path;
    report.CarriedTemplate = template_.carried;
    CStatementLoader loader(report, StatementAccess::ReadAlone);
    loader.Read(statement.day, statement.text, &watch);
    if (const auto& lost = loader.TemplateProblem()) throw CLostTemplate(lost->path, lost->reason);
    const bool needsFile = !template_.path.empty() && template_.carried.empty() && !IsForeign(request_);
    if (needsFile && !StampOf(template_.path)) throw CLostTemplate(template_.path);
    watch.Finish();
}

std::optional<std::string> CAccountAnonymiser::WhyLeftOut(const DayStatement& statement) {
    if (Trim(statement.text).empty()) return "it holds nothing";
    if (const auto fault = FindEncodingFault(statement.text)) return "it isn't plain GBK text: " + fault->what;
    CSheetWatch watch(statement.text);
    try {
        Read(statement, watch);
    } catch (const CReportError& error) {
        return "it can't be read: " + std::string(error.what());
    }
    if (!watch.HasFound()) return "nothing in it is recognised as of its layout";
    if (watch.CutSection())
        return "its section of " + std::string(SectionName(*watch.CutSection())) + " begins and doesn't end";
    Learn(statement, watch);
    return std::nullopt;
}

void CAccountAnonymiser::Learn(const DayStatement& statement, const CSheetWatch& watch) {
    StatementSheet sheet = MakeSheet(statement.text, watch);
    for (const SheetCell& cell : sheet.cells) {
        if (cell.meaning == Meaning::Identity) identities_.Know(sheet.TextOf(cell));
    }
    names_.Learn(sheet);
    units_.Feed(sheet);
    if (IsForeign(request_)) return;
    if (auto figures = FiguresOf(sheet, watch, FormatOf(request_.StatementFormat).equity))
        printed_.push_back(std::move(figures->money));
}

MoneyIdentity CAccountAnonymiser::Identity() const {
    CReport report;
    report.Request = request_;
    report.PrintedMoney = printed_;
    FindMoneyIdentity(report);
    return report.MoneyIdentity;
}

/// The dates stay.
bool CAccountAnonymiser::Write(const StatementSheet& sheet, std::string& text) {
    text.assign(sheet.text);
    for (const SheetCell& cell : sheet.cells) {
        const std::string_view part = sheet.TextOf(cell);
        switch (cell.meaning) {
            case Meaning::Identity:
                Replace(text, cell, identities_.Of(part));
                continue;
            case Meaning::Name:
                Replace(text, cell, MaskedText(part));
                continue;
            default:
                break;
        }
        if (!cell.changed || *cell.changed == cell.number->steps) continue;
        if (!PutNumber(text, {cell.at, cell.size}, PrintedText(*cell.changed, *cell.number))) return false;
    }
    return true;
}

/// A file that stands for other days, too, stays the same file: its copy is that of the day that it names most.
std::vector<std::size_t> CAccountAnonymiser::OriginsOfFiles() const {
    std::vector<std::size_t> origins(statements_.size());
    std::unordered_map<std::string_view, std::size_t> byText;
    for (std::size_t i = 0; i < statements_.size(); ++i) {
        const std::string& text = statements_[i].text;
        const auto [same, isNew] = byText.try_emplace(text, i);
        if (isNew) continue;
        const std::string& before = statements_[same->second].day;
        if (CountOf(statements_[i].day, text) > CountOf(before, text)) same->second = i;
    }
    for (std::size_t i = 0; i < statements_.size(); ++i) origins[i] = byText.at(statements_[i].text);
    return origins;
}

CAccountAnonymiser::Attempt CAccountAnonymiser::TryFactor(const CAmountFactor& factor) {
    Attempt attempt;
    CMoneyAmounts money(factor, Identity());
    const std::vector<std::size_t> origins = OriginsOfFiles();
    attempt.copies.resize(statements_.size());
    for (std::size_t i = 0; i < statements_.size(); ++i) {
        if (origins[i] != i) continue;
        CSheetWatch watch(statements_[i].text);
        Read(statements_[i], watch);
        StatementSheet sheet = MakeSheet(statements_[i].text, watch);
        auto figures =
            IsForeign(request_) ? std::nullopt : FiguresOf(sheet, watch, FormatOf(request_.StatementFormat).equity);
        CTableAmounts tables(sheet, factor, units_);
        tables.Change();
        if (figures) money.ChangeDomestic(sheet, *std::move(figures), tables.Sums());
        if (IsForeign(request_)) money.ChangeForeign(CurrencyFiguresOf(sheet, watch), tables.Sums());
        ChangeRest(sheet, factor);
        attempt.sameAmounts += SameAmountsOf(sheet);
        std::string copy;
        if (!Write(sheet, copy)) {
            attempt.unfit = i;
            break;
        }
        names_.Hide(copy, watch, identities_);
        attempt.copies[i] = std::move(copy);
    }
    for (std::size_t i = 0; i < statements_.size(); ++i) {
        if (origins[i] != i) attempt.copies[i] = attempt.copies[origins[i]];
    }
    return attempt;
}

/// By the first factor that leaves no amount as it was, or the best of some. A statement that none fits is left out.
CAccountAnonymiser::Attempt CAccountAnonymiser::MakeCopies() {
    CDice dice(settings_.seed, "factor " + std::string(FieldText(request_.Account)));
    std::optional<Attempt> best;
    int unfit = 0;
    for (int fit = 0; fit < kFactors;) {
        Attempt attempt = TryFactor(DrawFactor(dice));
        if (attempt.unfit) {
            if (++unfit % kFitFactors != 0) continue;
            if (best) break;
            leftOut_.push_back({statements_[*attempt.unfit].day, "a changed number doesn't fit into its column"});
            statements_.erase(statements_.begin() + static_cast<std::ptrdiff_t>(*attempt.unfit));
            continue;
        }
        ++fit;
        const bool isDone = attempt.sameAmounts == 0;
        if (!best || attempt.sameAmounts < best->sameAmounts) best = std::move(attempt);
        if (isDone) break;
    }
    return *std::move(best);
}

bool CAccountAnonymiser::KeepsShape(const DayStatement& statement, const std::string& copy) const {
    CSheetWatch before(statement.text);
    Read(statement, before);
    const DayStatement changed{statement.day, copy};
    CSheetWatch after(changed.text);
    try {
        Read(changed, after);
    } catch (const CReportError&) {
        return false;
    }
    return before.Shape() == after.Shape();
}

/// Dates keep their places, so that those of the original tell them.
void CAccountAnonymiser::ShiftDates(const DayStatement& statement, std::string& copy) {
    CSheetWatch watch(statement.text);
    Read(statement, watch);
    const StatementSheet sheet = MakeSheet(statement.text, watch);
    for (const SheetCell& cell : sheet.cells) {
        if (cell.meaning == Meaning::Date) Replace(copy, cell, ShiftedDate(sheet.TextOf(cell), settings_.shiftWeeks));
    }
}

AnonymisedAccount CAccountAnonymiser::Make() {
    AnonymisedAccount made;
    std::vector<std::string> copies = MakeCopies().copies;
    for (std::size_t i = 0; i < statements_.size(); ++i) {
        const DayStatement& statement = statements_[i];
        if (!KeepsShape(statement, copies[i])) {
            leftOut_.push_back({statement.day, "its copy would not be read as it is"});
            continue;
        }
        if (settings_.shiftWeeks != 0) ShiftDates(statement, copies[i]);
        made.statements.push_back({statement.day,
                                   ShiftedDay(statement.day, settings_.shiftWeeks).value_or(statement.day),
                                   std::move(copies[i])});
    }
    std::ranges::sort(leftOut_, {}, &LeftOutStatement::day);
    made.leftOut = std::exchange(leftOut_, {});
    return made;
}

}  // namespace tradebill
