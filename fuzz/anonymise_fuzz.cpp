// Some days of one account, any bytes each, changed so that nobody is known by them: what has a copy has one of the
// same lines and columns.
#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "anonymise/account_anonymiser.h"
#include "base/text.h"
#include "fuzz_statement.h"
#include "fuzz_target.h"
#include "report/request_copy.h"

namespace tradebill {
namespace {

constexpr std::size_t kFirstDay = 20240104;
constexpr std::size_t kMostDays = 4;
constexpr std::string_view kAccount = "90010002";
constexpr std::string_view kOther = "71234567";

AnonymisedAccount Anonymise(const StatementChoice& choice, const AnonymiseSettings& settings,
                            const std::vector<DayStatement>& statements) {
    GenerateBillRequest request = ClearedRequest();
    request.StatementFormat = choice.format;
    request.StatementKind = choice.kind;
    CopyField(request.Account, kAccount);
    CAccountAnonymiser anonymiser(request, {}, settings, kOther);
    for (const DayStatement& statement : statements) anonymiser.Add(statement);
    return anonymiser.Make();
}

bool HasSameLines(std::string_view one, std::string_view other) {
    return one.size() == other.size() && std::ranges::equal(one, other, [](char left, char right) {
               const auto isFixed = [](char byte) { return byte == '\n' || byte == '\r' || byte == '|'; };
               return left == right || (!isFixed(left) && !isFixed(right));
           });
}

}  // namespace

void FuzzAnonymise(std::string_view bytes) {
    CFuzzInput input(bytes);
    const StatementChoice choice = TakeStatementChoice(input);
    const AnonymiseSettings settings{.seed = input.Byte(), .shiftWeeks = static_cast<int>(input.Choice(3)) - 1};
    std::vector<DayStatement> statements;
    do {
        statements.push_back({std::to_string(kFirstDay + statements.size()), std::string(input.Text())});
    } while (!input.IsEmpty() && statements.size() < kMostDays);
    const AnonymisedAccount made = Anonymise(choice, settings, statements);
    Require(made.statements.size() + made.leftOut.size() == statements.size(), "each statement is copied or left out");
    for (const AnonymisedStatement& copy : made.statements) {
        const auto original = std::ranges::find(statements, copy.from, &DayStatement::day);
        Require(original != statements.end(), "copies are those of statements");
        Require(HasSameLines(original->text, copy.text), "copies keep lines and columns");
    }
    const AnonymisedAccount again = Anonymise(choice, settings, statements);
    Require(std::ranges::equal(made.statements, again.statements, {}, &AnonymisedStatement::text,
                               &AnonymisedStatement::text),
            "a seed makes the same copies");
}

}  // namespace tradebill
