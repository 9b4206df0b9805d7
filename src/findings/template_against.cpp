#include "findings/template_against.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/ini_file.h"
#include "base/number.h"
#include "base/report_error.h"
#include "findings/template_check.h"
#include "findings/template_known_keys.h"
#include "platform/text_encoding.h"
#include "readers/scan_listener.h"
#include "readers/statement_template.h"
#include "readers/statement_text.h"
#include "readers/template_keys.h"
#include "readers/template_reader.h"
#include "report/money_record.h"
#include "report/report.h"

namespace tradebill {
namespace {

constexpr std::int32_t kFormatOfPositions = 1;
constexpr std::int32_t kFormatOfBothSides = 201;
constexpr std::string_view kOpenSection = "OPI_DETAIL";

using Entry = CIniFile::Entry;
using Section = CIniFile::Section;

/// What a reading showed of one section.
struct SectionFacts {
    bool hasTitle = false;
    bool hasEnd = false;
    int rows = 0;       ///< split into columns
    int shortRows = 0;  ///< passed over
    std::size_t needed = 0;
    std::size_t widest = 0;  ///< of all of them
    std::vector<std::size_t> columns = {};
    std::vector<std::string_view> labelsNotMet = {};
};

/// Keeps what a template's reading shows.
class CTemplateWatch final : public CScanListener {
public:
    [[nodiscard]] const std::map<SectionKind, SectionFacts>& Sections() const { return sections_; }
    /// The section that was looked at last; nothing before the first.
    [[nodiscard]] const std::optional<SectionKind>& Last() const { return last_; }
    /// The row at which an error left; empty if there was none, or no such row.
    [[nodiscard]] std::string_view StoppedAt() const { return stoppedAt_; }

    void OnTemplate(const TemplateSeen& /*seen*/) override {}
    void OnReader(std::string_view /*layout*/) override {}
    void OnDate(std::string_view /*dateWord*/, std::string_view /*date*/) override {}
    void OnSection(const SectionSeen& seen) override {
        last_ = seen.kind;
        Facts().hasTitle = !seen.titleRow.empty();
        Facts().hasEnd = !seen.terminatorRow.empty() || !seen.needsTerminator;
    }
    void OnColumns(std::span<const ColumnSeen> columns) override {
        for (const ColumnSeen& seen : columns) Facts().columns.push_back(seen.column);
    }
    void OnRow(std::string_view /*row*/, Row columns, const RowVerdict& verdict) override {
        if (verdict.fate == RowFate::Rule) return;
        SectionFacts& facts = Facts();
        facts.widest = std::max(facts.widest, columns.size());
        const bool isShort = verdict.fate == RowFate::TooShort;
        ++(isShort ? facts.shortRows : facts.rows);
        if (isShort) facts.needed = verdict.needed;
    }
    void OnLabelWanted(std::string_view label) override { Facts().labelsNotMet.push_back(label); }
    void OnLabelMet(std::string_view label) override { std::erase(Facts().labelsNotMet, label); }
    void OnMoney(const MoneyRecord& /*record*/, std::string_view /*currency*/) override {}
    void OnRecord(const RecordSeen& /*record*/) override {}
    void OnStop(std::string_view row) override { stoppedAt_ = row; }

private:
    SectionFacts& Facts() { return sections_[*last_]; }

    std::map<SectionKind, SectionFacts> sections_;
    std::optional<SectionKind> last_;
    std::string_view stoppedAt_;
};

class CTemplateTrial {
public:
    CTemplateTrial(const CIniFile& file, const TemplateSample& sample) : file_(file), sample_(sample), parsed_(file) {}

    [[nodiscard]] std::vector<TemplateFinding> Run() {
        try {
            isNew_ = parsed_.HoldsNewScheme(sample_.day);
        } catch (const CReportError&) {
            return {};  // the change date is no date
        }
        Read();
        for (const auto& [kind, facts] : watch_.Sections()) CheckSection(kind, facts);
        std::ranges::stable_sort(findings_, {}, &TemplateFinding::line);
        return std::move(findings_);
    }

private:
    void Error(int line, std::string text) { findings_.push_back({line, true, std::move(text)}); }
    void Warn(int line, std::string text) { findings_.push_back({line, false, std::move(text)}); }

    [[nodiscard]] const TemplateSection& Parsed(SectionKind kind) const { return parsed_.Scheme(isNew_).Section(kind); }
    [[nodiscard]] const Section* Written(SectionKind kind) const { return file_.FindSection(Parsed(kind).name); }
    [[nodiscard]] bool InOneRow() const { return parsed_.Scheme(isNew_).moneyMode == kMoneyInOneRow; }
    [[nodiscard]] std::string NameOf(SectionKind kind) const { return "[" + Parsed(kind).name + "]"; }
    /// The line of a key, or of its section.
    [[nodiscard]] int LineOf(SectionKind kind, std::string_view key) const {
        const Section* const written = Written(kind);
        const Entry* const entry = written != nullptr ? FindEntry(*written, key) : nullptr;
        return entry != nullptr ? entry->line : written != nullptr ? written->line : 0;
    }

    void Read();
    void TellStop(const CReportError& error);
    void CheckSection(SectionKind kind, const SectionFacts& facts);
    void CheckMissing(SectionKind kind, const SectionFacts& facts);
    void CheckKey(SectionKind kind, const SectionFacts& facts, const Entry& entry);

    const CIniFile& file_;
    TemplateSample sample_;
    CStatementTemplate parsed_;
    bool isNew_ = false;
    CTemplateWatch watch_;
    std::vector<TemplateFinding> findings_;
};

void CTemplateTrial::Read() {
    CReport report;
    report.Request.StatementKind = 1;
    report.Request.StatementFormat = sample_.format.value_or(FormatByTemplate(file_));
    try {
        static_cast<void>(ReadTemplateStatement(
            {.day = sample_.day, .text = sample_.text, .byTemplate = &parsed_, .listener = &watch_}, report));
    } catch (const CReportError& error) {
        TellStop(error);
    }
}

void CTemplateTrial::TellStop(const CReportError& error) {
    if (!watch_.Last()) return;
    std::string place = "a row that the statement doesn't have";
    if (!watch_.StoppedAt().empty()) {
        const auto before = static_cast<std::size_t>(watch_.StoppedAt().data() - sample_.text.data());
        place = "line " + std::to_string(1 + std::ranges::count(sample_.text.substr(0, before), '\n')) +
                " of the statement, which lacks a column that every row must have";
    }
    const Section* const written = Written(*watch_.Last());
    Error(written != nullptr ? written->line : 0,
          NameOf(*watch_.Last()) + ": the reading stops with an error at " + place + " (" + error.what() + ")");
}

/// A day without rows may lack a table, but never its money.
void CTemplateTrial::CheckMissing(SectionKind kind, const SectionFacts& facts) {
    const TemplateSection& section = Parsed(kind);
    const std::string words = "\"" + GbkToUtf8(facts.hasTitle ? section.terminator : section.title) + "\"";
    if (facts.hasTitle) {
        Error(LineOf(kind, "END_FLAG"), NameOf(kind) + ": no row below its title contains END_FLAG, " + words);
    } else if (kind == SectionKind::Money) {
        Error(LineOf(kind, "START_FLAG"), NameOf(kind) + ": no row of the statement contains START_FLAG, " + words);
    } else {
        Warn(LineOf(kind, "START_FLAG"), NameOf(kind) + ": no row of the statement contains START_FLAG, " + words +
                                             "; a day without such rows may have none");
    }
}

void CTemplateTrial::CheckSection(SectionKind kind, const SectionFacts& facts) {
    if (!facts.hasTitle || !facts.hasEnd) {
        CheckMissing(kind, facts);
        return;
    }
    if (facts.rows == 0 && facts.shortRows > 0) {
        Error(LineOf(kind, "DELIMITER"), NameOf(kind) + ": none of its rows has the " + std::to_string(facts.needed) +
                                             " columns that it takes, the longest has " + std::to_string(facts.widest) +
                                             ": is DELIMITER right?");
        return;
    }
    if (kind == SectionKind::Money && InOneRow() && facts.rows == 0) {
        Error(LineOf(kind, "START_OFFSET"),
              NameOf(kind) + ": the statement ends before the row that START_OFFSET names");
        return;
    }
    const Section* const written = Written(kind);
    if (written == nullptr) return;
    for (const Entry& entry : written->entries) {
        if (FindEntry(*written, entry.key) == &entry) CheckKey(kind, facts, entry);
    }
}

/// A key that is read: its column is among those of the section's rows, its label stands in the section.
void CTemplateTrial::CheckKey(SectionKind kind, const SectionFacts& facts, const Entry& entry) {
    const auto known = FindPartKey(kind, InOneRow(), entry.key);
    if (!known) return;
    const std::string key = GbkToUtf8(entry.key);
    if (known->use == KeyUse::Text) {
        const std::string_view label = std::string_view(entry.value).substr(0, kLongestTemplateText);
        if (std::ranges::find(facts.labelsNotMet, label) == facts.labelsNotMet.end()) return;
        Error(entry.line, key + ": no row of " + NameOf(kind) + " has the label \"" + GbkToUtf8(label) + "\"");
    } else if (known->use == KeyUse::Column || known->use == KeyUse::LotsColumn || known->use == KeyUse::MustHave) {
        const std::int32_t column = ParseInteger(entry.value);
        const bool isRead = std::ranges::find(facts.columns, static_cast<std::size_t>(column)) != facts.columns.end();
        if (facts.rows == 0 || !isRead || static_cast<std::size_t>(column) < facts.widest) return;
        Error(entry.line, key + "=" + std::to_string(column) + ": no row of " + NameOf(kind) +
                              " has this column, the longest has " + std::to_string(facts.widest) +
                              " columns, counted from 0");
    }
}

}  // namespace

std::int32_t FormatByTemplate(const CIniFile& file) {
    const auto holdsSides = [](const Section& section) {
        const auto part = FindTemplatePart(section.name);
        const bool isOpen = part && part->name == kOpenSection;
        return isOpen && (FindEntry(section, "BID_VOL") != nullptr || FindEntry(section, "ASK_VOL") != nullptr);
    };
    return std::ranges::any_of(file.Sections(), holdsSides) ? kFormatOfBothSides : kFormatOfPositions;
}

std::vector<TemplateFinding> CheckTemplateAgainst(const CIniFile& file, const TemplateSample& sample) {
    return CTemplateTrial(file, sample).Run();
}

}  // namespace tradebill
