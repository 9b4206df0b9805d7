#include "cli/findings_text.h"

#include <algorithm>
#include <cstddef>
#include <ostream>
#include <span>
#include <string>

#include "cli/shown_text.h"
#include "findings/finding.h"
#include "findings/finding_table.h"
#include "readers/scan_listener.h"

namespace tradebill {
namespace {

void Append(std::string& text, const char* separator, const std::string& part) {
    if (part.empty()) return;
    if (!text.empty()) text += separator;
    text += part;
}

std::string PlaceOf(const Finding& finding) {
    std::string place = finding.day;
    Append(place, " ", finding.file);
    if (finding.row) Append(place, ", ", "line " + std::to_string(*finding.row));
    if (finding.section) Append(place, ", ", std::string(SectionName(*finding.section)));
    return place;
}

/// The findings that follow the first of `rest` with its code and severity, itself included.
std::span<const Finding> GroupOf(std::span<const Finding> rest) {
    const auto end = std::ranges::find_if(rest, [&](const Finding& finding) {
        return finding.code != rest.front().code || finding.severity != rest.front().severity;
    });
    return rest.first(static_cast<std::size_t>(end - rest.begin()));
}

}  // namespace

Colour ColourOf(Severity severity) {
    constexpr Colour kColours[] = {Colour::Red, Colour::Yellow, Colour::Cyan};
    return kColours[static_cast<std::size_t>(severity)];
}

std::string FindingLine(const Finding& finding) {
    std::string line = PlaceOf(finding);
    Append(line, ": ", finding.text);
    if (!finding.expected.empty()) line += " Expected " + finding.expected + ", found " + finding.found + ".";
    return line;
}

void PrintFindings(std::span<const Finding> findings, std::size_t mostPerCode, std::ostream& out) {
    for (std::span<const Finding> rest = findings; !rest.empty();) {
        const std::span<const Finding> group = GroupOf(rest);
        const FindingKind& kind = KindOf(group.front().code);
        const Severity severity = group.front().severity;
        SendColoured(out, ColourOf(severity), SeverityName(severity));
        out << " " << kind.name << ": " << kind.when << "\n";
        for (const Finding& finding : group.first(std::min(group.size(), mostPerCode))) {
            out << "  " << ShownText(FindingLine(finding)) << "\n";
        }
        if (group.size() > mostPerCode) out << "  ... and " << group.size() - mostPerCode << " more\n";
        if (severity != Severity::Note) out << "  -> " << kind.advice << "\n";
        out << "\n";
        rest = rest.subspan(group.size());
    }
    out << FindingCountsText(findings) << "\n";
}

std::string FindingCountsText(std::span<const Finding> findings) {
    std::string text;
    for (const Severity severity : {Severity::Error, Severity::Warning, Severity::Note}) {
        const auto count = std::ranges::count(findings, severity, &Finding::severity);
        if (count == 0) continue;
        Append(text, ", ", std::to_string(count) + " " + std::string(SeverityName(severity)) + (count == 1 ? "" : "s"));
    }
    return text.empty() ? "nothing was found" : text;
}

}  // namespace tradebill
