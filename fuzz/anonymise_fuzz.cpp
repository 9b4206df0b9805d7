// Some days of one account, any bytes each, changed so that nobody is known by them: what has a copy has one of the
// same lines and columns, of which as many records are read, and which doesn't name the account.
#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "anonymise/account_anonymiser.h"
#include "base/text.h"
#include "fuzz_statement.h"
#include "fuzz_target.h"
#include "report/report.h"
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

bool IsOfWord(char byte) {
    const char lower = static_cast<char>(byte | 0x20);
    return IsDigit(byte) || (lower >= 'a' && lower <= 'z') || (byte & '\x80') != 0;
}

/// Whether the number of the account stands for itself where it stood in the original.
bool NamesAccount(std::string_view original, std::string_view copy) {
    for (std::size_t at = original.find(kAccount); at != std::string_view::npos; at = original.find(kAccount, at + 1)) {
        const std::size_t end = at + kAccount.size();
        const bool isWord =
            (at == 0 || !IsOfWord(original[at - 1])) && (end == original.size() || !IsOfWord(original[end]));
        if (isWord && copy.substr(at, kAccount.size()) == kAccount) return true;
    }
    return false;
}

void RequireSameShape(const StatementChoice& choice, const AnonymisedStatement& copy, std::string_view original) {
    CFuzzReport one(choice, false);
    CFuzzReport other(choice, false);
    Require(ReadStatement(one.Get(), copy.from, original, nullptr, nullptr) ==
                ReadStatement(other.Get(), copy.day, copy.text, nullptr, nullptr),
            "a copy is read as its original is");
    const auto sizes = [](const CReport& report) {
        return std::array{report.MatchStore.Rows.size(),     report.PingDetailStore.Rows.size(),
                          report.OpiDetailStore.Rows.size(), report.OpiSumStore.Rows.size(),
                          report.MoneyStore.Records.size(),  report.CurrencyMoneyStore.Names.size()};
    };
    Require(sizes(one.Get()) == sizes(other.Get()), "a copy has as many records as its original");
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
        Require(!NamesAccount(original->text, copy.text), "no copy names the account");
        RequireSameShape(choice, copy, original->text);
    }
    const AnonymisedAccount again = Anonymise(choice, settings, statements);
    Require(std::ranges::equal(made.statements, again.statements, {}, &AnonymisedStatement::text,
                               &AnonymisedStatement::text),
            "a seed makes the same copies");
}

}  // namespace tradebill
