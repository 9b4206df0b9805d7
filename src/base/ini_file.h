// INI files, read by one set of rules on every system: the chain files, and the small files that the program takes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tradebill {

/// One INI file, parsed once. Texts are bytes as the file holds them; names are compared without regard to ASCII case.
/// Rules: only the first section of a name is read, and in it the first key of a name; blanks around names and values
/// are dropped, and one pair of quotes around a value; ";" opens a comment line, "#" doesn't.
class CIniFile {
public:
    struct Entry {
        std::string key;
        std::string value;
        int line;  ///< counted from 1
    };
    struct Section {
        std::string name;
        int line;
        std::vector<Entry> entries;  ///< in file order, later ones of the same name included
    };
    /// A line that is neither section, key nor comment. The lenient readers pass over it; the program reports it.
    struct Problem {
        int line;
        std::string text;
    };

    /// The mark at the start that tells another encoding than GBK.
    enum class Mark { None, Utf8, Utf16 };

    /// Parses `content`; a UTF-8 byte order mark is passed over.
    [[nodiscard]] static CIniFile Parse(std::string_view content);

    [[nodiscard]] const Section* FindSection(std::string_view name) const;
    [[nodiscard]] const std::vector<Section>& Sections() const { return sections_; }
    [[nodiscard]] const std::vector<Problem>& Problems() const { return problems_; }

    [[nodiscard]] Mark EncodingMark() const { return mark_; }

    /// The value, or `fallback` if section or key are missing.
    [[nodiscard]] std::string_view Text(std::string_view section, std::string_view key,
                                        std::string_view fallback = {}) const;

    /// The value as a whole number: "12x" is 12, an empty value and "0x10" are 0. `fallback` if the key is missing.
    [[nodiscard]] std::int32_t Integer(std::string_view section, std::string_view key, std::int32_t fallback) const;

private:
    void ParseLine(std::string_view line, int number);

    std::vector<Section> sections_;
    std::vector<Problem> problems_;
    Mark mark_ = Mark::None;
};

/// Equality without regard to the case of ASCII letters.
[[nodiscard]] bool EqualsIgnoringCase(std::string_view left, std::string_view right);

/// The value of `key` in a section, or null.
[[nodiscard]] const CIniFile::Entry* FindEntry(const CIniFile::Section& section, std::string_view key);

}  // namespace tradebill
