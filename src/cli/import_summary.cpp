#include "cli/import_summary.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/utf8.h"
#include "cli/shown_text.h"
#include "export/findings_json.h"
#include "export/json_text.h"
#include "findings/finding.h"
#include "intake/bill_import.h"
#include "platform/paths.h"
#include "report/account_key.h"

namespace tradebill {
namespace {

constexpr std::size_t kColumns = 5;
using Cells = std::array<std::string, kColumns>;

constexpr std::array<std::string_view, kColumns> kHeadings = {"file", "what it is", "account", "days", "where it went"};

/// Columns of a terminal: characters of Chinese fill two.
std::size_t WidthOf(std::string_view text) {
    constexpr char32_t kFirstWide = 0x1100;
    std::size_t width = 0;
    while (!text.empty()) {
        const Utf8Character character = FirstUtf8Character(text);
        width += character.point && *character.point >= kFirstWide ? 2 : 1;
        text.remove_prefix(character.size);
    }
    return width;
}

std::string OrDash(const std::string& text) {
    return text.empty() ? "-" : text;
}

std::string WhatItIs(const ImportedFile& file) {
    std::string text(file.layout.name);
    if (!file.encoding.empty()) text.append(text.empty() ? "" : ", ").append(file.encoding);
    return OrDash(text);
}

std::string DaysOf(const ImportedFile& file) {
    if (file.days.size() < 2) return file.days.empty() ? "-" : file.days.front();
    return file.days.front() + " to " + file.days.back() + " (" + std::to_string(file.days.size()) + ")";
}

std::string PlaceOf(const ImportedFile& file) {
    if (file.days.size() == 1) return Utf8Path(file.to.front());
    return Utf8Path(file.to.front().substr(0, file.to.front().rfind('/')));
}

std::string WhereItWent(const ImportedFile& file, bool isDryRun) {
    if (file.outcome == ImportOutcome::Refused) {
        if (file.to.empty()) return "nowhere: " + file.text;
        return std::to_string(file.to.size()) + " of " + std::to_string(file.days.size()) + " days to " +
               PlaceOf(file) + ": " + file.text;
    }
    std::string text = file.outcome == ImportOutcome::Equal ? "already in " : isDryRun ? "would go to " : "";
    text += PlaceOf(file);
    return file.text.empty() ? text : text + " (" + file.text + ")";
}

Cells CellsOf(const ImportedFile& file, bool isDryRun) {
    Cells cells = {Utf8Path(file.file), WhatItIs(file), OrDash(file.account), DaysOf(file),
                   WhereItWent(file, isDryRun)};
    for (std::string& cell : cells) cell = ShownText(cell);
    return cells;
}

void PrintTable(std::span<const Cells> rows, std::ostream& out) {
    std::array<std::size_t, kColumns> widths{};
    for (const Cells& row : rows) {
        for (std::size_t i = 0; i < kColumns; ++i) widths[i] = std::max(widths[i], WidthOf(row[i]));
    }
    for (const Cells& row : rows) {
        for (std::size_t i = 0; i + 1 < kColumns; ++i) {
            out << row[i] << std::string(widths[i] - WidthOf(row[i]) + 2, ' ');
        }
        out << row.back() << "\n";
    }
}

std::string CountsText(std::span<const ImportedFile> files, bool isDryRun) {
    std::string text = std::to_string(files.size()) + (files.size() == 1 ? " file:" : " files:");
    const char* separator = " ";
    for (const ImportOutcome outcome : {ImportOutcome::Imported, ImportOutcome::Equal, ImportOutcome::Refused}) {
        const auto count = std::ranges::count(files, outcome, &ImportedFile::outcome);
        if (count == 0) continue;
        text.append(separator).append(std::to_string(count)).append(" ").append(OutcomeName(outcome));
        separator = ", ";
    }
    return isDryRun ? text + "; a dry run, nothing was written" : text;
}

void WriteTexts(CJsonText& json, std::string_view name, std::span<const std::string> texts) {
    json.Name(name);
    json.OpenList();
    for (const std::string& text : texts) json.Utf8Text(Utf8Path(text));
    json.CloseList();
}

void WriteFile(CJsonText& json, const ImportedFile& file) {
    json.Space('\n');
    json.OpenObject();
    json.NamedText("file", Utf8Path(file.file));
    json.NamedTextOrNull("kind", file.layout.name.empty() ? std::string_view() : KindName(file.layout.isForeign));
    json.NamedTextOrNull("layout", file.layout.name);
    json.NamedTextOrNull("encoding", file.encoding);
    json.NamedTextOrNull("account", file.account);
    WriteTexts(json, "days", file.days);
    WriteTexts(json, "to", file.to);
    json.NamedText("outcome", OutcomeName(file.outcome));
    json.NamedText("text", file.text);
    json.CloseObject();
}

}  // namespace

void PrintImported(std::span<const ImportedFile> files, ShownFiles shown, bool isDryRun, std::ostream& out) {
    std::vector<Cells> rows(1);
    std::ranges::copy(kHeadings, rows.front().begin());
    for (const ImportedFile& file : files) {
        if (shown == ShownFiles::Refused && file.outcome != ImportOutcome::Refused) continue;
        rows.push_back(CellsOf(file, isDryRun));
    }
    PrintTable(rows, out);
    out << CountsText(files, isDryRun) << "\n";
}

void WriteImportJson(std::span<const ImportedFile> files, std::span<const Finding> findings, std::ostream& out) {
    CJsonText json(out);
    json.OpenObject();
    json.Name("schema");
    json.Number(std::int32_t{1});
    json.Name("files");
    json.OpenList();
    for (const ImportedFile& file : files) WriteFile(json, file);
    json.CloseList();
    json.Name("findings");
    WriteFindings(json, findings);
    json.CloseObject();
    json.EndLine();
}

}  // namespace tradebill
