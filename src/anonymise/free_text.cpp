#include "anonymise/free_text.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "anonymise/cell_meaning.h"
#include "anonymise/identity_map.h"
#include "anonymise/sheet_watch.h"
#include "anonymise/statement_sheet.h"
#include "base/gbk.h"
#include "base/text.h"
#include "readers/scan_listener.h"

namespace tradebill {
namespace {

bool IsOfNumber(char byte) {
    return IsDigit(byte) || (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
}

/// A character of two bytes that is no sign of punctuation.
bool IsHanzi(std::string_view character) {
    constexpr unsigned char kFirstSign = 0xA1;
    constexpr unsigned char kLastSign = 0xA9;
    if (character.size() != 2) return false;
    const auto lead = static_cast<unsigned char>(character.front());
    return lead < kFirstSign || lead > kLastSign;
}

/// A company's own name, in front of what all companies are called.
struct CompanyName {
    std::size_t at;
    std::size_t size;
};

/// The name in front of the company's form that ends at `end`, back to `begin`, where the word begins.
std::optional<CompanyName> NameBefore(std::string_view line, std::size_t begin, std::size_t end) {
    constexpr std::string_view kForms[] = {"有限责任公司"_gbk, "股份有限公司"_gbk, "有限公司"_gbk};
    constexpr std::string_view kTrades[] = {"期货经纪"_gbk, "期货"_gbk};
    std::string_view word = line.substr(begin, end - begin);
    const auto take = [&](const auto& words) {
        const auto* const found =
            std::ranges::find_if(words, [&](std::string_view one) { return word.ends_with(one); });
        if (found == std::end(words)) return false;
        word.remove_suffix(found->size());
        return true;
    };
    if (!take(kForms)) return std::nullopt;
    static_cast<void>(take(kTrades));
    return word.empty() ? std::nullopt : std::optional(CompanyName{begin, word.size()});
}

std::vector<CompanyName> CompaniesIn(std::string_view line) {
    constexpr std::string_view kCompany = "公司"_gbk;
    std::vector<CompanyName> names;
    std::size_t begin = 0;  // of the run of characters at hand
    for (std::size_t at = 0; at < line.size();) {
        const std::string_view rest = line.substr(at);
        const std::size_t length = GbkCharacterLength(rest);
        if (!IsHanzi(rest.substr(0, length))) {
            begin = at + length;
        } else if (rest.starts_with(kCompany)) {
            if (const auto name = NameBefore(line, begin, at + kCompany.size())) names.push_back(*name);
            begin = at + kCompany.size();
            at = begin;
            continue;
        }
        at += length;
    }
    return names;
}

/// The Latin name of a company, which goes to the start of its line; 0 if there is none.
std::size_t LatinCompanyLength(std::string_view line) {
    constexpr std::string_view kForms[] = {"Co.,", "Ltd", "LTD", "Limited", "LIMITED", "Inc."};
    for (const std::string_view form : kForms) {
        const std::size_t at = line.find(form);
        if (at != std::string_view::npos) return at;
    }
    return 0;
}

/// Masks a part of `before` in `text`, which is as long.
void Mask(std::string& text, std::string_view before, std::size_t at, std::size_t size) {
    const std::string masked = MaskedText(before.substr(at, size));
    std::ranges::copy(masked, text.begin() + static_cast<std::ptrdiff_t>(at));
}

/// Calls `onLine(at, size)` for each line of `text` that is no row of a table, or one that nobody reads: a section that
/// isn't ended takes in whatever stands behind it.
template <class OnLine>
void ForEachFreeLine(std::string_view text, const std::vector<WatchedRow>& rows, OnLine onLine) {
    std::string_view rest = text;
    while (!rest.empty()) {
        const std::string_view line = TakeLine(rest);
        const auto at = static_cast<std::size_t>(line.data() - text.data());
        const auto row = std::ranges::lower_bound(rows, at, {}, &WatchedRow::at);
        const bool isRow = row != rows.end() && row->at < at + line.size() && row->kind != SectionKind::Money &&
                           row->fate != RowFate::TooShort;
        if (!isRow) onLine(at, line.size());
    }
}

}  // namespace

void CKnownNames::Learn(const StatementSheet& sheet) {
    constexpr std::size_t kLeastName = 4;  // bytes: one character is a word of any sentence
    constexpr std::size_t kLeastNumber = 4;
    for (const SheetRow& row : sheet.rows) {
        for (std::size_t i = row.firstCell; i < row.firstCell + row.cells; ++i) {
            const SheetCell& cell = sheet.cells[i];
            const std::string_view text = sheet.TextOf(cell);
            if (cell.meaning == Meaning::Name && text.size() >= kLeastName && !row.isInTable) names_.emplace(text);
            if (cell.meaning == Meaning::Identity && text.size() >= kLeastNumber && !row.isInTable)
                numbers_.emplace(text);
        }
    }
    std::string_view rest = sheet.text;
    while (!rest.empty()) LearnCompanies(TakeLine(rest));
}

/// Behind other words a company's name can be told from them only where it has stood alone.
bool CKnownNames::EndsInName(std::string_view text) const {
    return std::ranges::any_of(names_, [&](const std::string& name) { return text.ends_with(name); });
}

void CKnownNames::LearnCompanies(std::string_view line) {
    constexpr std::size_t kLeastName = 4;
    constexpr std::size_t kMostName = 24;  // more is a sentence
    for (const CompanyName& name : CompaniesIn(line)) {
        const std::string_view text = line.substr(name.at, name.size);
        if (name.size >= kLeastName && name.size <= kMostName && !EndsInName(text)) names_.emplace(text);
    }
}

void CKnownNames::Hide(std::string& text, const CSheetWatch& watch, CIdentityMap& identities) const {
    const std::string before = text;
    ForEachFreeLine(before, watch.Rows(), [&](std::size_t begin, std::size_t size) {
        const std::string_view line = std::string_view(before).substr(begin, size);
        for (const CompanyName& name : CompaniesIn(line)) {
            if (!EndsInName(line.substr(name.at, name.size))) Mask(text, before, begin + name.at, name.size);
        }
        if (const std::size_t latin = LatinCompanyLength(line); latin > 0) Mask(text, before, begin, latin);
        for (std::size_t at = 0; at < line.size();) {
            const std::string_view rest = line.substr(at);
            const auto name =
                std::ranges::find_if(names_, [&](const std::string& one) { return rest.starts_with(one); });
            if (name != names_.end()) {
                Mask(text, before, begin + at, name->size());
                at += name->size();
                continue;
            }
            std::size_t word = 0;
            while (word < rest.size() && IsOfNumber(rest[word])) ++word;
            if (const auto number = numbers_.find(rest.substr(0, word)); word > 0 && number != numbers_.end())
                std::ranges::copy(identities.Of(*number), text.begin() + static_cast<std::ptrdiff_t>(begin + at));
            at += word > 0 ? word : GbkCharacterLength(rest);
        }
    });
}

}  // namespace tradebill
