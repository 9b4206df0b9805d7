#include "findings/request_findings.h"

#include <span>
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
#include "platform/text_encoding.h"
#include "report/report.h"
#include "report/trade_units.h"

namespace tradebill {
namespace {

Finding FindingOfRun(FindingCode code) {
    return {.code = code, .severity = KindOf(code).severity};
}

}  // namespace

bool CheckRequestTemplate(const CReport& report, std::vector<Finding>& findings) {
    if (report.IsForeign() || FieldText(report.Request.TemplateName).empty()) return true;
    Finding about = FindingOfRun(FindingCode::Template);
    about.file = FileNameOf(report.TemplatePath);
    IniFileContent content = LoadIniFile(report.TemplatePath);
    if (content.state == FileState::Missing && !report.CarriedTemplate.empty()) {
        content = {.state = FileState::Read, .file = CIniFile::Parse(report.CarriedTemplate)};
    }
    if (content.state != FileState::Read) {
        const bool isThere = content.state == FileState::Unreadable;
        about.expected = isThere ? "a template that can be read" : "a template file";
        about.found = isThere ? content.reason : "none";
        about.text = std::string(isThere ? "The template can't be read" : "The template isn't there") +
                     ": statements are read by the format's own layout.";
        findings.push_back(std::move(about));
        return !isThere;
    }
    for (const TemplateFinding& fault : CheckTemplate(content.file)) {
        if (!fault.isError) continue;
        Finding finding = about;
        if (fault.line > 0) finding.row = fault.line;
        finding.text = fault.text + ".";
        findings.push_back(std::move(finding));
    }
    return true;
}

void TellDoubtfulUnits(std::span<const DoubtfulUnit> units, std::vector<Finding>& findings) {
    for (const DoubtfulUnit& unit : units) {
        Finding finding = FindingOfRun(FindingCode::Unit);
        const std::string product = GbkToUtf8(unit.used.product);
        finding.found = std::to_string(unit.used.unit);
        if (unit.byTrades) {
            finding.severity = Severity::Error;
            finding.expected = std::to_string(*unit.byTrades);
            finding.text = "The unit of " + product + " isn't what the account's own trades say.";
        } else {
            finding.expected = "its unit";
            finding.text = "The unit of " + product + " isn't known: 1 is used.";
        }
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
