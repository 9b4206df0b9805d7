#include "export/findings_json.h"

#include <cstdint>
#include <ostream>
#include <span>
#include <string_view>

#include "export/json_text.h"
#include "findings/finding.h"
#include "findings/finding_table.h"
#include "readers/scan_listener.h"

namespace tradebill {
namespace {

void WriteFinding(CJsonText& json, const Finding& finding) {
    json.Space('\n');
    json.OpenObject();
    json.NamedText("code", KindOf(finding.code).name);
    json.NamedText("severity", SeverityName(finding.severity));
    json.NamedTextOrNull("day", finding.day);
    json.NamedTextOrNull("file", finding.file);
    json.Name("row");
    if (finding.row) {
        json.Number(std::int32_t{*finding.row});
    } else {
        json.Null();
    }
    json.NamedTextOrNull("section", finding.section ? SectionName(*finding.section) : std::string_view());
    json.NamedText("expected", finding.expected);
    json.NamedText("found", finding.found);
    json.NamedText("text", SentencesOf(finding));
    json.CloseObject();
}

}  // namespace

void WriteFindings(CJsonText& json, std::span<const Finding> findings) {
    json.OpenList();
    for (const Finding& finding : findings) WriteFinding(json, finding);
    json.CloseList();
}

void WriteFindingsJson(std::span<const Finding> findings, std::ostream& out) {
    CJsonText json(out);
    json.OpenObject();
    json.Name("schema");
    json.Number(std::int32_t{1});
    json.Name("findings");
    WriteFindings(json, findings);
    json.Name("counts");
    json.OpenObject();
    for (const FindingKind& kind : FindingKinds()) {
        const std::int32_t count = CountOf(findings, kind.code);
        if (count == 0) continue;
        json.Name(kind.name);
        json.Number(count);
    }
    json.CloseObject();
    json.CloseObject();
    json.EndLine();
}

}  // namespace tradebill
