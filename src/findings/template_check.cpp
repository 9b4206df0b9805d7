#include "findings/template_check.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/day.h"
#include "base/ini_file.h"
#include "base/number.h"
#include "base/utf8.h"
#include "findings/template_known_keys.h"
#include "platform/text_encoding.h"
#include "readers/scan_listener.h"
#include "readers/statement_template.h"
#include "readers/template_keys.h"

namespace tradebill {
namespace {

constexpr SectionKind kKinds[] = {SectionKind::Money, SectionKind::Trades, SectionKind::Closed, SectionKind::Open,
                                  SectionKind::Summary};

using Entry = CIniFile::Entry;
using Section = CIniFile::Section;

std::string Quoted(std::string_view gbk) {
    return "\"" + GbkToUtf8(gbk) + "\"";
}

class CTemplateCheck {
public:
    explicit CTemplateCheck(const CIniFile& file) : file_(file), parsed_(file) {}

    [[nodiscard]] std::vector<TemplateFinding> Run() {
        if (file_.EncodingMark() == CIniFile::Mark::Utf16) {
            return {{1, true, "the template is saved as UTF-16: nothing in it is understood"}};
        }
        for (const auto& problem : file_.Problems()) {
            Error(problem.line, "expected [section], key=value or ; comment, found " + Quoted(problem.text));
        }
        CheckEncoding();
        CheckChangeDate();
        for (const Section& section : file_.Sections()) CheckSection(section);
        CheckSchemes();
        std::ranges::stable_sort(findings_, {}, &TemplateFinding::line);
        return std::move(findings_);
    }

private:
    void Error(int line, std::string text) { findings_.push_back({line, true, std::move(text)}); }
    void Warn(int line, std::string text) { findings_.push_back({line, false, std::move(text)}); }

    [[nodiscard]] const Entry* CommonEntry(std::string_view key) const {
        const Section* const common = file_.FindSection(kTemplateCommonSection);
        return common != nullptr ? FindEntry(*common, key) : nullptr;
    }
    [[nodiscard]] bool HasChangeDate() const { return !parsed_.ChangeDate().empty(); }
    [[nodiscard]] bool IsInOneRow(bool isNew) const { return parsed_.Scheme(isNew).moneyMode == kMoneyInOneRow; }
    [[nodiscard]] const TemplateSection& Parsed(const TemplatePart& part) const {
        return parsed_.Scheme(part.isNew).Section(part.kind);
    }

    void CheckEncoding();
    void CheckChangeDate();
    void CheckSection(const Section& section);
    void CheckPart(const Section& section, const TemplatePart& part);
    void CheckKey(const Section& section, const Entry& entry, const std::optional<KnownKey>& known);
    void CheckNumber(const Entry& entry, KeyUse use);
    void CheckSides(const Section& section, const TemplatePart& part);
    void CheckSchemes();
    void CheckScheme(bool isNew);
    void CheckComplete(SectionKind kind, const TemplateSection& section);
    void CheckMoneyRow(const TemplateSection& section);
    void CheckFirstRow(const TemplateSection& section);
    [[nodiscard]] bool HoldsBothSides(const Section& section) const;
    /// Whether a template without sections declines every statement: only labelled money makes it.
    [[nodiscard]] bool HandsEverythingOn() const {
        return parsed_.Scheme(false).moneyMode == kMoneyLabelled &&
               (!HasChangeDate() || parsed_.Scheme(true).moneyMode == kMoneyLabelled);
    }
    [[nodiscard]] bool TurnsOnTables() const {
        return std::ranges::any_of(kKinds, [this](SectionKind kind) {
            return kind != SectionKind::Money && parsed_.Scheme(false).Section(kind).isEnabled;
        });
    }

    const CIniFile& file_;
    CStatementTemplate parsed_;  // as the reader understands it
    std::vector<TemplateFinding> findings_;
};

/// Chinese text in GBK is as good as never sound UTF-8.
void CTemplateCheck::CheckEncoding() {
    const Entry* first = nullptr;
    for (const Section& section : file_.Sections()) {
        for (const Entry& entry : section.entries) {
            if (std::ranges::all_of(entry.value, [](char byte) { return static_cast<unsigned char>(byte) < 0x80; })) {
                continue;
            }
            if (!IsUtf8(entry.value)) return;
            if (first == nullptr) first = &entry;
        }
    }
    if (first != nullptr) {
        Error(first->line, "the template is saved as UTF-8: none of its texts stands in a GBK statement");
    } else if (file_.EncodingMark() == CIniFile::Mark::Utf8) {
        Error(1, "the template is saved as UTF-8, with a mark at its start: save it as GBK");
    }
}

void CTemplateCheck::CheckChangeDate() {
    if (!HasChangeDate() || HasMidnight(ParsePackedDay(parsed_.ChangeDate()))) return;
    const Entry* const entry = CommonEntry(kTemplateChangeDate);
    Error(entry->line, std::string(kTemplateChangeDate) + ": expected a day as yyyymmdd, found " +
                           Quoted(entry->value) + "; every report with this template would stop with an error");
}

void CTemplateCheck::CheckSection(const Section& section) {
    if (file_.FindSection(section.name) != &section) {
        Error(section.line, "[" + GbkToUtf8(section.name) + "] stands here again: only the first one is read");
        return;
    }
    const bool isCommon = EqualsIgnoringCase(section.name, kTemplateCommonSection);
    const auto part = FindTemplatePart(section.name);
    if (!isCommon && !part) {
        Error(section.line, "unknown section [" + GbkToUtf8(section.name) + "]");
        return;
    }
    for (const Entry& entry : section.entries) {
        const bool inOneRow = part && IsInOneRow(part->isNew);
        CheckKey(section, entry, isCommon ? FindCommonKey(entry.key) : FindPartKey(part->kind, inOneRow, entry.key));
    }
    if (part) CheckPart(section, *part);
}

void CTemplateCheck::CheckKey(const Section& section, const Entry& entry, const std::optional<KnownKey>& known) {
    const std::string name = GbkToUtf8(entry.key);
    if (!known) {
        Error(entry.line, "unknown key " + name + " in [" + GbkToUtf8(section.name) + "]");
    } else if (FindEntry(section, entry.key) != &entry) {
        Error(entry.line, name + " stands here again: only the first one is read");
    } else if (known->use == KeyUse::NotUsed) {
        Warn(entry.line, name + " has no effect here");
    } else if (known->use == KeyUse::Text) {
        if (entry.value.size() > kLongestTemplateText) Error(entry.line, name + ": only the first 31 bytes count");
    } else if (known->use != KeyUse::Remark) {
        CheckNumber(entry, known->use);
    }
}

void CTemplateCheck::CheckNumber(const Entry& entry, KeyUse use) {
    const std::string name = GbkToUtf8(entry.key);
    const std::int32_t read = ParseInteger(entry.value);
    if (!WholeNumber(entry.value)) {
        Error(entry.line, name + ": expected a whole number, found " + Quoted(entry.value) + ", which is read as " +
                              std::to_string(read));
    } else if (use != KeyUse::Integer && read < 0) {
        Error(entry.line, name + ": a column below 0 can never take effect");
    }
}

void CTemplateCheck::CheckPart(const Section& section, const TemplatePart& part) {
    if (part.isNew && !HasChangeDate()) {
        Warn(section.line, "[" + section.name + "] is never read: " + std::string(kTemplateChangeDate) + " is missing");
    } else if (!Parsed(part).isEnabled) {
        Warn(section.line, "[" + section.name + "] is never read: " +
                               (part.kind == SectionKind::Money ? "the money mode" : std::string(part.name)) + " in [" +
                               std::string(kTemplateCommonSection) + "] turns it off");
    }
    CheckSides(section, part);
}

bool CTemplateCheck::HoldsBothSides(const Section& section) const {
    return FindEntry(section, "BID_VOL") != nullptr || FindEntry(section, "ASK_VOL") != nullptr;
}

/// Columns that only count together with another one.
void CTemplateCheck::CheckSides(const Section& section, const TemplatePart& part) {
    static constexpr struct {
        SectionKind kind;
        std::string_view key;
        std::string_view needs;
    } kPairs[] = {
        {SectionKind::Open, "BID_PRICE", "BID_VOL"},
        {SectionKind::Open, "ASK_PRICE", "ASK_VOL"},
        {SectionKind::Summary, "BID_AVPRICE", "BID_POSITION_VOL"},
        {SectionKind::Summary, "ASK_AVPRICE", "ASK_POSITION_VOL"},
        {SectionKind::Money, "RJ_NAME", "CJ_NAME"},
        {SectionKind::Money, "CJ_NAME", "RJ_NAME"},
    };
    for (const auto& pair : kPairs) {
        const Entry* const entry = FindEntry(section, pair.key);
        if (pair.kind != part.kind || entry == nullptr || FindEntry(section, pair.needs) != nullptr) continue;
        Error(entry->line, std::string(pair.key) + " can never take effect without " + std::string(pair.needs));
    }
    if (part.kind == SectionKind::Closed && Parsed(part).isEnabled && FindEntry(section, "BID") == nullptr) {
        Error(section.line, "[" + section.name + "] lacks BID: every row of closed positions would raise an error");
    }
    const Entry* const deposits = FindEntry(section, "RJ_NAME");
    const bool isLabel = part.kind == SectionKind::Money && parsed_.Scheme(part.isNew).moneyMode == kMoneyLabelled;
    if (isLabel && deposits != nullptr && ParseAmount(deposits->value) <= 0) {
        Warn(deposits->line, "RJ_NAME and CJ_NAME compute nothing with labels: net deposits come from CRJ_NAME alone");
    }
}

void CTemplateCheck::CheckComplete(SectionKind kind, const TemplateSection& section) {
    if (!section.isEnabled) return;
    if (section.MissingKey().empty()) {
        if (kind != SectionKind::Money) CheckFirstRow(section);
        return;
    }
    const Section* const written = file_.FindSection(section.name);
    const bool bothSides = kind == SectionKind::Open && written != nullptr && HoldsBothSides(*written);
    const TemplatePart part = *FindTemplatePart(section.name);
    const Entry* const flag = CommonEntry(kind == SectionKind::Money ? "MONEY_MODE" : part.name);
    const int line = written != nullptr ? written->line : flag != nullptr ? flag->line : 0;
    const std::string text = "[" + section.name + "] is turned on and lacks " + std::string(section.MissingKey());
    if (bothSides) {
        Warn(line, text + ": the reader goes on with what there is");
    } else {
        Error(line, text + ": the template declines, and a fixed reader reads every statement again");
    }
}

/// Without the key, or below 0, rows above the title are read: a table's headline at best, at worst none, which raises
/// an error. Labelled money begins two rows below its title in any case.
void CTemplateCheck::CheckFirstRow(const TemplateSection& section) {
    if (section.firstRow >= 0) return;
    const Section* const written = file_.FindSection(section.name);
    const Entry* const entry = written != nullptr ? FindEntry(*written, "START_OFFSET") : nullptr;
    const std::string name = "[" + section.name + "]";
    if (entry != nullptr) {
        Error(entry->line, "START_OFFSET is below 0: " + name + " would be read from above its title");
    } else {
        Error(written != nullptr ? written->line : 0,
              name + " lacks START_OFFSET: it would be read from the row above its title");
    }
}

/// Money in one row goes on with what there is, but a row above the title's or of one column is never what was meant.
void CTemplateCheck::CheckMoneyRow(const TemplateSection& section) {
    const Section* const written = file_.FindSection(section.name);
    const int line = written != nullptr ? written->line : 0;
    const std::string name = "[" + section.name + "]";
    if (section.title.empty() && section.firstRow < 0) {
        Error(line, name + " lacks START_FLAG and START_OFFSET: every statement would raise an error");
    } else if (section.firstRow < 0) {
        CheckFirstRow(section);
    } else if (section.title.empty()) {
        Warn(line, name + " lacks START_FLAG: rows are counted from the top of the statement");
    }
    if (section.delimiter.empty())
        Error(line, name + " lacks DELIMITER: its row is one column and never makes a record");
}

void CTemplateCheck::CheckScheme(bool isNew) {
    const TemplateScheme& scheme = parsed_.Scheme(isNew);
    for (const SectionKind kind : kKinds) {
        if (kind == SectionKind::Money && IsInOneRow(isNew)) {
            CheckMoneyRow(scheme.money);
        } else {
            CheckComplete(kind, scheme.Section(kind));
        }
    }
}

void CTemplateCheck::CheckSchemes() {
    const bool describesNothing = std::ranges::none_of(
        file_.Sections(), [](const Section& section) { return FindTemplatePart(section.name).has_value(); });
    if (file_.FindSection(kTemplateCommonSection) == nullptr) {
        Error(0, "expected a section [DEALFIELD]");
    } else if (describesNothing && HandsEverythingOn() && !TurnsOnTables()) {
        Warn(file_.FindSection(kTemplateCommonSection)->line,
             "no section is described: fixed readers read every statement, and only the change date counts (format 3)");
    } else {
        if (describesNothing && !HandsEverythingOn()) {
            Error(0, "no section is described, and the money mode keeps fixed readers from reading");
        }
        CheckScheme(false);
        if (HasChangeDate()) CheckScheme(true);
    }
}

}  // namespace

std::vector<TemplateFinding> CheckTemplate(const CIniFile& file) {
    return CTemplateCheck(file).Run();
}

}  // namespace tradebill
