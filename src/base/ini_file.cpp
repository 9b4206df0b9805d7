#include "base/ini_file.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/number.h"
#include "base/text.h"

namespace tradebill {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

char Lower(char byte) {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
}

std::string_view Unquoted(std::string_view value) {
    const bool quoted =
        value.size() >= 2 && value.front() == value.back() && (value.front() == '"' || value.front() == '\'');
    return quoted ? value.substr(1, value.size() - 2) : value;
}

CIniFile::Mark MarkOf(std::string_view content) {
    if (content.starts_with(kByteOrderMark)) return CIniFile::Mark::Utf8;
    const bool isWide = content.starts_with("\xFF\xFE") || content.starts_with("\xFE\xFF");
    return isWide ? CIniFile::Mark::Utf16 : CIniFile::Mark::None;
}

}  // namespace

bool EqualsIgnoringCase(std::string_view left, std::string_view right) {
    return std::ranges::equal(left, right, {}, Lower, Lower);
}

const CIniFile::Entry* FindEntry(const CIniFile::Section& section, std::string_view key) {
    const auto found =
        std::ranges::find_if(section.entries, [&](const auto& entry) { return EqualsIgnoringCase(entry.key, key); });
    return found == section.entries.end() ? nullptr : &*found;
}

CIniFile CIniFile::Parse(std::string_view content) {
    CIniFile file;
    file.mark_ = MarkOf(content);
    if (file.mark_ == Mark::Utf8) content.remove_prefix(kByteOrderMark.size());
    int number = 0;
    while (!content.empty()) file.ParseLine(Trim(TakeLine(content)), ++number);
    return file;
}

void CIniFile::ParseLine(std::string_view line, int number) {
    if (line.empty() || line.front() == ';') return;
    if (line.front() == '[') {
        const std::size_t end = line.find(']');
        if (end == std::string_view::npos) problems_.push_back({number, std::string(line)});
        sections_.push_back(
            {std::string(Trim(line.substr(1, end == std::string_view::npos ? end : end - 1))), number, {}});
        return;
    }
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos || sections_.empty()) {
        problems_.push_back({number, std::string(line)});
        return;
    }
    sections_.back().entries.push_back(
        {std::string(Trim(line.substr(0, equals))), std::string(Unquoted(Trim(line.substr(equals + 1)))), number});
}

const CIniFile::Section* CIniFile::FindSection(std::string_view name) const {
    const auto found =
        std::ranges::find_if(sections_, [&](const auto& section) { return EqualsIgnoringCase(section.name, name); });
    return found == sections_.end() ? nullptr : &*found;
}

std::string_view CIniFile::Text(std::string_view section, std::string_view key, std::string_view fallback) const {
    const Section* const found = FindSection(section);
    const Entry* const entry = found != nullptr ? FindEntry(*found, key) : nullptr;
    return entry != nullptr ? std::string_view(entry->value) : fallback;
}

std::int32_t CIniFile::Integer(std::string_view section, std::string_view key, std::int32_t fallback) const {
    const Section* const found = FindSection(section);
    const Entry* const entry = found != nullptr ? FindEntry(*found, key) : nullptr;
    return entry != nullptr ? ParseInteger(entry->value) : fallback;
}

}  // namespace tradebill
