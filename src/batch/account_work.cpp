#include "batch/account_work.h"

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>

#include "batch/account_result.h"
#include "report/account_key.h"

namespace tradebill {
namespace {

using Json = nlohmann::json;

/// Lines are cut by their ends alone, which JSON has no use for.
std::string Line(const Json& json) {
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

Json KeyJson(const AccountKey& key) {
    return {{"user", key.user}, {"account", key.account}, {"isForeign", key.isForeign}};
}

AccountKey KeyOf(const Json& json) {
    return {.user = json.at("user"), .account = json.at("account"), .isForeign = json.at("isForeign")};
}

MadeFrom MadeOf(const Json& json) {
    return {.options = json.at("options"),
            .inputs = json.at("inputs"),
            .outputs = json.at("outputs"),
            .version = json.at("version")};
}

/// What `read` makes of a line; nothing of one that it can't read.
template <class Read>
auto Parsed(std::string_view line, Read read) -> std::optional<decltype(read(Json()))> {
    const Json json = Json::parse(line, nullptr, false);
    try {
        return read(json);
    } catch (const Json::exception&) {
        return std::nullopt;
    }
}

}  // namespace

std::string QuestionLine(const AccountQuestion& question) {
    Json json = {{"account", KeyJson(question.account)}, {"settings", question.settings}};
    if (question.made) {
        json["made"] = {{"options", question.made->options},
                        {"inputs", question.made->inputs},
                        {"outputs", question.made->outputs},
                        {"version", question.made->version}};
    }
    return Line(json);
}

std::optional<AccountQuestion> ParseQuestion(std::string_view line) {
    return Parsed(line, [](const Json& json) {
        AccountQuestion question{.account = KeyOf(json.at("account")), .settings = json.at("settings")};
        if (json.contains("made")) question.made = MadeOf(json.at("made"));
        return question;
    });
}

std::string AnswerLine(const AccountAnswer& answer) {
    Json json = {{"isAsMade", answer.isAsMade}, {"told", answer.told}};
    if (answer.result) json["result"] = ResultLine(*answer.result);
    return Line(json);
}

std::optional<AccountAnswer> ParseAnswer(std::string_view line) {
    return Parsed(line, [](const Json& json) {
        AccountAnswer answer{.isAsMade = json.at("isAsMade"), .told = json.at("told")};
        if (json.contains("result")) answer.result = ParseResultLine(json.at("result").get<std::string>());
        return answer;
    });
}

}  // namespace tradebill
