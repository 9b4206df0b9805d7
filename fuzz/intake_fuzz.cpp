// Any bytes as a file that is imported: what comes out is GBK with CRLF, cut at lines and by days, under an account
// that leads nowhere else.
#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "fuzz_target.h"
#include "intake/decoded_text.h"
#include "intake/file_plan.h"
#include "intake/name_facts.h"
#include "intake/text_forms.h"
#include "intake/text_split.h"
#include "platform/text_encoding.h"

namespace tradebill {
namespace {

/// As it is, or saved anew as one of the encodings that texts are met in.
std::string SavedAs(std::size_t form, std::string_view text) {
    if (form == 0) return std::string(text);
    const std::string utf8 = GbkToUtf8(text);
    if (form == 1) return utf8;
    return std::string(form == 2 ? kLittleEndianMark : kBigEndianMark) + Utf16(utf8, form == 3);
}

bool HasOnlyCrlf(std::string_view text) {
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '\r' && text.substr(at + 1, 1) != "\n") return false;
        if (text[at] == '\n' && (at == 0 || text[at - 1] != '\r')) return false;
    }
    return true;
}

/// Whether all of it is ASCII and pairs.
bool IsGbk(std::string_view text) {
    const auto isIn = [](char byte, unsigned char first) { return static_cast<unsigned char>(byte) >= first; };
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (!isIn(text[at], 0x80)) continue;
        if (++at == text.size() || !isIn(text[at - 1], 0x81) || !isIn(text[at], 0x40)) return false;
    }
    return true;
}

void CheckText(const DecodedText& decoded) {
    if (!decoded.refusal.empty()) {
        Require(decoded.text.empty() && decoded.replaced.empty(), "a refused text is none");
        return;
    }
    Require(HasOnlyCrlf(decoded.text), "lines end with CRLF");
    Require(decoded.text.find('\0') == std::string::npos, "no text has a zero byte");
    Require(IsGbk(decoded.text), "what comes out is GBK");
    const StatementSplit split = SplitStatements(decoded.text);
    if (!split.refusal.empty()) return;
    std::string joined;
    for (const SplitStatement& statement : split.statements) joined += statement.text;
    Require(joined == decoded.text, "the statements are the text");
    Require(!split.statements.empty(), "a text has a statement");
}

void CheckPlan(const FilePlan& plan) {
    if (!plan.refusal.empty()) return;
    Require(IsAccountName(plan.account), "the account can be part of a name");
    Require(!plan.statements.empty() && !plan.layout.name.empty(), "what is imported is something");
    const auto isOutOfOrder = [](const PlannedStatement& left, const PlannedStatement& right) {
        return left.day >= right.day;
    };
    Require(std::ranges::adjacent_find(plan.statements, isOutOfOrder) == plan.statements.end(),
            "each day is there once");
    for (const PlannedStatement& statement : plan.statements) Require(IsCalendarDay(statement.day), "days are days");
}

}  // namespace

void FuzzIntake(std::string_view bytes) {
    CFuzzInput input(bytes);
    const std::size_t form = input.Choice(4);
    const std::string_view name = input.Text();
    const std::string_view account = input.Text();
    const std::string file = SavedAs(form, input.Rest());
    CheckText(DecodeText(file));
    CheckPlan(PlanFile(file, name, account.empty() ? std::nullopt : std::optional<std::string>(account)));
}

}  // namespace tradebill
