#include "cli/shown_findings.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <iostream>
#include <optional>
#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "cli/findings_text.h"
#include "cli/shown_text.h"
#include "cli/voice.h"
#include "findings/finding.h"
#include "findings/finding_table.h"
#include "requests/report_options.h"
#include "requests/report_settings.h"

namespace tradebill {
namespace {

/// As shells take it that know of escapes: what can't be shown, byte by byte.
std::string QuotedBytes(std::string_view word) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string quoted = "$'";
    for (const char byte : word) {
        const auto value = static_cast<unsigned char>(byte);
        if (value >= ' ' && value < 0x7F && byte != '\'' && byte != '\\') {
            quoted += byte;
        } else {
            quoted.append("\\x").append(1, kDigits[value >> 4]).append(1, kDigits[value & 0xF]);
        }
    }
    return quoted + "'";
}

bool NeedsQuotes(std::string_view word) {
    constexpr std::string_view kPlain = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-_./:,@%+=";
    return word.empty() || word.find_first_not_of(kPlain) != std::string_view::npos;
}

std::string Quoted(std::string_view word) {
    if (!NeedsQuotes(word)) return std::string(word);
    if (ShownText(word) != word) return QuotedBytes(word);
    std::string quoted = "'";
    for (const char byte : word) {
        if (byte == '\'') {
            quoted += "'\\''";
        } else {
            quoted += byte;
        }
    }
    return quoted + "'";
}

/// Notes are for who asks for them, and the run itself tells of files that it couldn't read.
bool IsNews(const Finding& finding) {
    return finding.severity != Severity::Note && finding.code != FindingCode::Unreadable &&
           finding.code != FindingCode::NotAFile;
}

/// "error unit", the first word in its colour.
void SendName(const Finding& finding, std::ostream& out) {
    SendColoured(out, ColourOf(finding.severity), SeverityName(finding.severity));
    out << " " << KindOf(finding.code).name;
}

/// A finding that no file's name tells the account of.
std::string WhoseText(const Finding& finding, const ReportOptions& options) {
    const bool isUntold = finding.file.empty() && options.account;
    return isUntold ? "account " + *options.account + ": " : std::string();
}

}  // namespace

std::string CheckCommandLine(const ReportOptions& options) {
    std::string line = "tradebill check";
    for (const ReportSetting& setting : kReportSettings) {
        const std::optional<std::string>& value = options.*setting.value;
        if (value && setting.isOfReading) line.append(" ").append(setting.option).append(" ").append(Quoted(*value));
    }
    return line;
}

void ShowFindings(std::span<const Finding> findings, const ReportOptions& options) {
    constexpr std::size_t kMostShown = 10;
    std::vector<Finding> news(findings.begin(), findings.end());
    std::erase_if(news, std::not_fn(IsNews));
    if (news.empty()) return;
    const std::size_t shown = std::min(news.size(), kMostShown);
    for (const Finding& finding : std::span(news).first(shown)) {
        std::cerr << "tradebill: ";
        SendName(finding, std::cerr);
        std::cerr << ": " << ShownText(WhoseText(finding, options) + FindingLine(finding)) << "\n";
    }
    const std::string more = news.size() == shown ? "" : "and " + std::to_string(news.size() - shown) + " more; ";
    Say(more + "all of them, and what to do: " + CheckCommandLine(options));
}

}  // namespace tradebill
