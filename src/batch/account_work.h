// What a batch asks a worker, and what the worker answers: a line of JSON each.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "batch/account_result.h"
#include "report/account_key.h"

namespace tradebill {

/// The exit code of a worker that ran short of memory.
inline constexpr int kExitShortOfMemory = 71;

/// An account of a batch. Texts are UTF-8.
struct AccountWork {
    AccountKey account;
    std::map<std::string, std::string> settings = {};  ///< what differs from the batch's own, by their names in files
    std::string refusal = {};                          ///< why it can't be made, if that is known already
};

/// How an account was made: with the same of it nothing new would come.
struct MadeFrom {
    std::string options;  ///< as those of AccountResult
    std::string inputs;
    std::map<std::string, std::string> outputs;  ///< all that must still be there
    std::string version;
};

/// A question about an account.
struct AccountQuestion {
    AccountKey account;
    std::map<std::string, std::string> settings = {};
    std::optional<MadeFrom> made = {};  ///< asks whether that still holds; nothing: asks to make it
};

struct AccountAnswer {
    std::optional<AccountResult> result = {};  ///< of what was made
    bool isAsMade = false;                     ///< what was asked about still holds
    std::vector<std::string> told = {};        ///< warnings, a line each
};

[[nodiscard]] std::string QuestionLine(const AccountQuestion& question);
[[nodiscard]] std::string AnswerLine(const AccountAnswer& answer);

/// Nothing of what is no such line.
[[nodiscard]] std::optional<AccountQuestion> ParseQuestion(std::string_view line);
[[nodiscard]] std::optional<AccountAnswer> ParseAnswer(std::string_view line);

}  // namespace tradebill
