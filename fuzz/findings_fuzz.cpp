// Some days of one account, any bytes each, and all that is found in them: enough days for the form of its balance,
// which five statements tell.
#include <cstddef>
#include <memory>
#include <span>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/ini_file.h"
#include "export/findings_json.h"
#include "findings/account_findings.h"
#include "findings/finding.h"
#include "findings/statement_watch.h"
#include "fuzz_statement.h"
#include "fuzz_target.h"
#include "readers/statement_loader.h"
#include "readers/statement_template.h"
#include "report/report.h"

namespace tradebill {
namespace {

constexpr std::size_t kFirstDay = 20240104;
constexpr std::size_t kDays = 6;

/// An account's statements, and how they are read.
struct Account {
    StatementChoice choice;
    bool asksProducts = false;
    std::unique_ptr<CStatementTemplate> byTemplate = {};  ///< may be null
    std::vector<std::string_view> texts = {};             ///< one at least; they come again behind the last
};

Account TakeAccount(CFuzzInput& input) {
    Account account{.choice = TakeStatementChoice(input)};
    const std::size_t settings = input.Byte();
    account.asksProducts = (settings & 1) != 0;
    if ((settings & 2) != 0) account.byTemplate = std::make_unique<CStatementTemplate>(CIniFile::Parse(input.Text()));
    do {
        account.texts.push_back(input.Text());
    } while (!input.IsEmpty() && account.texts.size() < kDays);
    return account;
}

std::vector<Finding> Find(const Account& account) {
    CFuzzReport made(account.choice, account.asksProducts);
    CReport& report = made.Get();
    CStatementWatch watch(report);
    watch.TallyUnits();
    watch.ReadSideRows();
    for (std::size_t i = 0; i < kDays; ++i) {
        const std::string day = std::to_string(kFirstDay + i);
        const std::string_view text = account.texts[i % account.texts.size()];
        const StatementFile file{.state = StatementState::Read, .reason = {}, .bytes = text, .text = text};
        watch.OnStatement(day, "D1." + day + "o.txt", file);
        if (ReadStatement(report, day, text, account.byTemplate.get(), &watch)) watch.OnStatementEnd();
    }
    FinishFuzzReport(report);
    return FindingsOf(report, watch);
}

std::string JsonOf(std::span<const Finding> findings) {
    std::ostringstream json;
    WriteFindingsJson(findings, json);
    return std::move(json).str();
}

}  // namespace

void FuzzFindings(std::string_view bytes) {
    CFuzzInput input(bytes);
    const std::vector<Finding> findings = Find(TakeAccount(input));
    const std::string json = JsonOf(findings);
    RequireJson(json);
    std::vector<Finding> sorted = findings;
    SortFindings(sorted);
    Require(JsonOf(sorted) == json, "findings come sorted");
}

}  // namespace tradebill
