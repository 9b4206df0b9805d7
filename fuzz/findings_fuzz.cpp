// Some days of one account, any bytes each, and all that is found in them: enough days for the form of its balance,
// which five statements tell.
#include <algorithm>
#include <cstddef>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "cli/findings_json.h"
#include "findings/account_findings.h"
#include "findings/finding.h"
#include "findings/statement_watch.h"
#include "fuzz_statement.h"
#include "fuzz_target.h"
#include "readers/statement_loader.h"
#include "report/report.h"

namespace tradebill {
namespace {

constexpr int kFirstDay = 20240104;
constexpr int kDays = 6;

std::vector<Finding> Find(const StatementChoice& choice, bool asksProducts,
                          const std::vector<std::string_view>& texts) {
    CFuzzReport made(choice, asksProducts);
    CReport& report = made.Get();
    CStatementWatch watch(report);
    watch.TallyUnits();
    for (int i = 0; i < kDays; ++i) {
        const std::string day = std::to_string(kFirstDay + i);
        const std::string_view text = texts[static_cast<std::size_t>(i) % texts.size()];
        const StatementFile file{.state = StatementState::Read, .reason = {}, .bytes = text, .text = text};
        watch.OnStatement(day, "D1." + day + "o.txt", file);
        if (ReadStatement(report, day, text, nullptr, &watch)) watch.OnStatementEnd();
    }
    FinishFuzzReport(report);
    return FindingsOf(report, watch);
}

}  // namespace

void FuzzFindings(std::string_view bytes) {
    CFuzzInput input(bytes);
    const StatementChoice choice = TakeStatementChoice(input);
    const bool asksProducts = input.Choice(2) == 1;
    std::vector<std::string_view> texts;
    do {
        texts.push_back(input.Text());
    } while (!input.IsEmpty() && texts.size() < kDays);
    const std::vector<Finding> findings = Find(choice, asksProducts, texts);
    std::ostringstream json;
    WriteFindingsJson(findings, json);
    RequireJson(json.view());
    std::vector<Finding> sorted = findings;
    SortFindings(sorted);
    std::ostringstream again;
    WriteFindingsJson(sorted, again);
    Require(json.view() == again.view(), "findings come sorted");
}

}  // namespace tradebill
