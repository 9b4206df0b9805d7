// Any bytes as an INI file: what was read of it, written down, reads as the same.
#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

#include "base/ini_file.h"
#include "base/number.h"
#include "fuzz_target.h"

namespace tradebill {
namespace {

/// Values in quotes, which keep the blanks and quotes in them.
std::string Written(const CIniFile& file) {
    std::string text;
    for (const CIniFile::Section& section : file.Sections()) {
        text.append("[").append(section.name).append("]\n");
        for (const CIniFile::Entry& entry : section.entries) {
            text.append(entry.key).append("=\"").append(entry.value).append("\"\n");
        }
    }
    return text;
}

bool IsSame(const CIniFile::Entry& one, const CIniFile::Entry& other) {
    return one.key == other.key && one.value == other.value;
}

bool IsSame(const CIniFile::Section& one, const CIniFile::Section& other) {
    return one.name == other.name &&
           std::ranges::equal(one.entries, other.entries,
                              [](const auto& left, const auto& right) { return IsSame(left, right); });
}

/// The first section of a name counts, and in it the first key.
void RequireLookUps(const CIniFile& file) {
    for (const CIniFile::Section& section : file.Sections()) {
        const CIniFile::Section* const first = file.FindSection(section.name);
        Require(first != nullptr && first->line <= section.line, "the first section of a name is found");
        for (const CIniFile::Entry& entry : first->entries) {
            const CIniFile::Entry* const found = FindEntry(*first, entry.key);
            Require(found != nullptr && found->line <= entry.line, "the first key of a name is found");
            Require(file.Text(section.name, entry.key) == found->value, "a key's text is its value");
            Require(file.Integer(section.name, entry.key, 7) == ParseInteger(found->value),
                    "a key's number is that of its value");
        }
    }
}

}  // namespace

void FuzzIni(std::string_view bytes) {
    const CIniFile file = CIniFile::Parse(bytes);
    const CIniFile again = CIniFile::Parse(Written(file));
    Require(again.Problems().empty(), "what is written has no line that can't be read");
    Require(std::ranges::equal(file.Sections(), again.Sections(),
                               [](const auto& left, const auto& right) { return IsSame(left, right); }),
            "what is written of an INI file reads as the same");
    RequireLookUps(file);
    const auto lines = std::ranges::count(bytes, '\n') + 1;
    Require(std::ranges::all_of(file.Problems(), [&](const auto& problem) { return problem.line <= lines; }),
            "a problem stands in the file");
}

}  // namespace tradebill
