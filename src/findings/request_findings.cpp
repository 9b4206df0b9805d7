#include "findings/request_findings.h"

#include <string>
#include <utility>
#include <vector>

#include "base/ini_file.h"
#include "base/text.h"
#include "findings/finding.h"
#include "findings/finding_table.h"
#include "findings/template_check.h"
#include "platform/file.h"
#include "platform/paths.h"
#include "report/report.h"

namespace tradebill {
namespace {

Finding FindingOfRun(FindingCode code) {
    return {.code = code, .severity = KindOf(code).severity};
}

}  // namespace

void CheckRequestTemplate(const CReport& report, std::vector<Finding>& findings) {
    if (report.IsForeign() || FieldText(report.Request.TemplateName).empty()) return;
    Finding about = FindingOfRun(FindingCode::Template);
    about.file = FileNameOf(report.TemplatePath);
    const auto file = LoadIniFile(report.TemplatePath);
    if (!file) {
        about.expected = "a template file";
        about.found = "none";
        about.text = "The template isn't there: statements are read by the format's own layout.";
        findings.push_back(std::move(about));
        return;
    }
    for (const TemplateFinding& fault : CheckTemplate(*file)) {
        if (!fault.isError) continue;
        Finding finding = about;
        if (fault.line > 0) finding.row = fault.line;
        finding.text = fault.text + ".";
        findings.push_back(std::move(finding));
    }
}

Finding LiveFinding() {
    Finding finding = FindingOfRun(FindingCode::Live);
    finding.expected = "live figures";
    finding.found = "none";
    finding.text = "The report ends today, and without live figures its last record is empty.";
    return finding;
}

}  // namespace tradebill
