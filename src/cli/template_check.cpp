#include "cli/template_check.h"

#include <algorithm>
#include <iostream>
#include <map>
#include <optional>
#include <utility>

#include "base/day.h"
#include "base/number.h"
#include "base/report_error.h"
#include "base/text.h"
#include "cli/input_ini.h"
#include "cli/template_known_keys.h"
#include "cli/usage_error.h"
#include "platform/text_encoding.h"
#include "readers/statement_template.h"

namespace tradebill {
namespace {

constexpr std::string_view kCommon = "DEALFIELD";
constexpr std::size_t kLongestText = 31;
constexpr std::string_view kChangeDate = "BILLFORMAT_NEWDATE";
constexpr std::string_view kTableFlags[] = {"MATCH_RECORD", "PING_DETAIL", "OPI_DETAIL", "OPI_SUM"};

using Entry = CIniFile::Entry;
using Section = CIniFile::Section;

std::string Quoted(std::string_view gbk) {
    return "\"" + GbkToUtf8(gbk) + "\"";
}

class CTemplateCheck {
public:
    explicit CTemplateCheck(const CIniFile& file) : file_(file) {}

    [[nodiscard]] std::vector<TemplateFinding> Run() {
        for (const auto& problem : file_.Problems()) {
            Error(problem.line, "expected [section], key=value or ; comment, found " + Quoted(problem.text));
        }
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
        const Section* const common = file_.FindSection(kCommon);
        return common != nullptr ? FindEntry(*common, key) : nullptr;
    }
    [[nodiscard]] bool HasChangeDate() const { return !Trim(file_.Text(kCommon, kChangeDate)).empty(); }

    [[nodiscard]] std::int32_t MoneyMode(bool isNew) const {
        const std::int32_t own = isNew ? file_.Integer(kCommon, "MONEY_MODE_NEW", -1) : -1;
        return own != -1 ? own : file_.Integer(kCommon, "MONEY_MODE", 0);
    }
    [[nodiscard]] bool IsEnabled(const TemplatePart& part) const {
        if (part.kind == SectionKind::Money) {
            return MoneyMode(part.isNew) == kMoneyLabelled || MoneyMode(part.isNew) == kMoneyInOneRow;
        }
        return file_.Integer(kCommon, part.name, 0) != 0;
    }

    void CheckChangeDate();
    void CheckSection(const Section& section);
    void CheckPart(const Section& section, const TemplatePart& part);
    void CheckKey(const Section& section, const Entry& entry, const std::optional<KnownKey>& known);
    void CheckNumber(const Entry& entry, KeyUse use);
    void CheckSides(const Section& section, const TemplatePart& part);
    void CheckSchemes();
    void CheckScheme(bool isNew);
    void CheckComplete(const TemplatePart& part);
    void CheckMoneyRow(const std::string& name);
    [[nodiscard]] bool HoldsBothSides(const Section& section) const;
    /// Whether a template without sections declines every statement: only labelled money makes it.
    [[nodiscard]] bool HandsEverythingOn() const {
        return MoneyMode(false) == kMoneyLabelled && (!HasChangeDate() || MoneyMode(true) == kMoneyLabelled);
    }
    [[nodiscard]] bool TurnsOnTables() const {
        return std::ranges::any_of(kTableFlags,
                                   [&](std::string_view flag) { return file_.Integer(kCommon, flag, 0) != 0; });
    }

    const CIniFile& file_;
    std::vector<TemplateFinding> findings_;
};

void CTemplateCheck::CheckChangeDate() {
    const Entry* const entry = CommonEntry(kChangeDate);
    if (entry == nullptr || !HasChangeDate()) return;
    try {
        static_cast<void>(MidnightOf(ParsePackedDay(Trim(entry->value))));
    } catch (const CReportError&) {
        Error(entry->line, std::string(kChangeDate) + ": expected a day as yyyymmdd, found " + Quoted(entry->value) +
                               "; every report with this template would stop with an error");
    }
}

void CTemplateCheck::CheckSection(const Section& section) {
    if (file_.FindSection(section.name) != &section) {
        Error(section.line, "[" + GbkToUtf8(section.name) + "] stands here again: only the first one is read");
        return;
    }
    const bool isCommon = EqualsIgnoringCase(section.name, kCommon);
    const auto part = FindTemplatePart(section.name);
    if (!isCommon && !part) {
        Error(section.line, "unknown section [" + GbkToUtf8(section.name) + "]");
        return;
    }
    for (const Entry& entry : section.entries) {
        const bool inOneRow = part && MoneyMode(part->isNew) == kMoneyInOneRow;
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
        if (entry.value.size() > kLongestText) Error(entry.line, name + ": only the first 31 bytes count");
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
        Warn(section.line, "[" + section.name + "] is never read: " + std::string(kChangeDate) + " is missing");
    } else if (!IsEnabled(part)) {
        Warn(section.line, "[" + section.name + "] is never read: " +
                               (part.kind == SectionKind::Money ? "the money mode" : std::string(part.name)) + " in [" +
                               std::string(kCommon) + "] turns it off");
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
    if (part.kind == SectionKind::Closed && IsEnabled(part) && FindEntry(section, "BID") == nullptr) {
        Error(section.line, "[" + section.name + "] lacks BID: every row of closed positions would raise an error");
    }
    const Entry* const deposits = FindEntry(section, "RJ_NAME");
    const bool isLabel = part.kind == SectionKind::Money && MoneyMode(part.isNew) == kMoneyLabelled;
    if (isLabel && deposits != nullptr && ParseAmount(deposits->value) <= 0) {
        Warn(deposits->line, "RJ_NAME and CJ_NAME compute nothing with labels: net deposits come from CRJ_NAME alone");
    }
}

void CTemplateCheck::CheckComplete(const TemplatePart& part) {
    const std::string name = std::string(part.name) + (part.isNew ? "_NEW" : "");
    if (!IsEnabled(part)) return;
    if (part.kind == SectionKind::Money && MoneyMode(part.isNew) == kMoneyInOneRow) {
        CheckMoneyRow(name);
        return;
    }
    const Section* const section = file_.FindSection(name);
    const bool bothSides = part.kind == SectionKind::Open && section != nullptr && HoldsBothSides(*section);
    for (const std::string_view key : {"START_FLAG", "END_FLAG", "DELIMITER"}) {
        if (!file_.Text(name, key).empty()) continue;
        const Entry* const flag = CommonEntry(part.kind == SectionKind::Money ? "MONEY_MODE" : part.name);
        const int line = section != nullptr ? section->line : flag != nullptr ? flag->line : 0;
        const std::string text = "[" + name + "] is turned on and lacks " + std::string(key);
        if (bothSides) {
            Warn(line, text + ": the reader goes on with what there is");
        } else {
            Error(line, text + ": the template declines, and a fixed reader reads every statement again");
        }
        return;
    }
}

/// Money in one row goes on with what there is, but a row above the title's or of one column is never what was meant.
void CTemplateCheck::CheckMoneyRow(const std::string& name) {
    const Section* const section = file_.FindSection(name);
    const int line = section != nullptr ? section->line : 0;
    const bool startsAnywhere = file_.Text(name, "START_FLAG").empty();
    if (startsAnywhere && file_.Integer(name, "START_OFFSET", -1) < 0) {
        Error(line, "[" + name + "] lacks START_FLAG and START_OFFSET: every statement would raise an error");
    } else if (startsAnywhere) {
        Warn(line, "[" + name + "] lacks START_FLAG: rows are counted from the top of the statement");
    }
    if (file_.Text(name, "DELIMITER").empty()) {
        Error(line, "[" + name + "] lacks DELIMITER: its row is one column and never makes a record");
    }
}

void CTemplateCheck::CheckScheme(bool isNew) {
    for (const std::string_view name : {"MONEY_RECORD", "MATCH_RECORD", "PING_DETAIL", "OPI_DETAIL", "OPI_SUM"}) {
        TemplatePart part = *FindTemplatePart(name);
        part.isNew = isNew;
        CheckComplete(part);
    }
}

void CTemplateCheck::CheckSchemes() {
    const bool describesNothing = std::ranges::none_of(
        file_.Sections(), [](const Section& section) { return FindTemplatePart(section.name).has_value(); });
    if (file_.FindSection(kCommon) == nullptr) {
        Error(0, "expected a section [DEALFIELD]");
    } else if (describesNothing && HandsEverythingOn() && !TurnsOnTables()) {
        Warn(file_.FindSection(kCommon)->line,
             "no section is described: fixed readers read every statement, and only the change date counts (format 3)");
    } else {
        if (describesNothing && !HandsEverythingOn())
            Error(0, "no section is described, and the money mode keeps fixed readers from reading");
        CheckScheme(false);
        if (HasChangeDate()) CheckScheme(true);
    }
}

}  // namespace

std::vector<TemplateFinding> CheckTemplate(const CIniFile& file) {
    return CTemplateCheck(file).Run();
}

int RunTemplateCheck(const std::string& path) {
    const auto file = CIniFile::Load(path);
    if (!file) throw CUsageError("can't read " + path + ": expected a template file");
    int errors = 0;
    int warnings = 0;
    for (const TemplateFinding& finding : CheckTemplate(*file)) {
        ++(finding.isError ? errors : warnings);
        std::cout << path;
        if (finding.line > 0) std::cout << ", line " << finding.line;
        std::cout << ": " << (finding.isError ? "error: " : "warning: ") << finding.text << "\n";
    }
    std::cout << path << ": " << errors << (errors == 1 ? " error, " : " errors, ") << warnings
              << (warnings == 1 ? " warning" : " warnings") << "\n";
    return errors == 0 ? kExitDone : kExitFailed;
}

}  // namespace tradebill
