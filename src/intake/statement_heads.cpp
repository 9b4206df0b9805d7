#include "intake/statement_heads.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/gbk.h"
#include "base/text.h"
#include "findings/statement_texts.h"

namespace tradebill {
namespace {

constexpr std::size_t kHeadLines = 20;  // from the first label of a head to its last one

/// The labels of a text's first head, which its later ones bear too. Empty: it has none.
struct HeadLabels {
    std::string_view account = {};
    std::string_view day = {};
    bool isDayMade = false;
    bool accountOpens = true;  ///< the account stands before the day
};

/// What one line states.
struct LineStates {
    std::optional<std::string> account = {};
    std::optional<std::string> day = {};
    bool isRange = false;
    bool isAccountOfOtherForm = false;
    bool isDayOfOtherForm = false;
};

/// The text from the line with its first label on, as far as a head goes.
std::string_view HeadOf(const std::vector<std::string_view>& lines) {
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (!FindAccountLabel(lines[i]) && !FindDayLabel(lines[i]) && !FindMakingDayLabel(lines[i])) continue;
        const std::string_view last = lines[std::min(i + kHeadLines, lines.size()) - 1];
        return {lines[i].data(), static_cast<std::size_t>(last.data() + last.size() - lines[i].data())};
    }
    return {};
}

HeadLabels LabelsOf(std::string_view head) {
    HeadLabels labels;
    if (const auto account = FindAccountLabel(head)) labels.account = account->label;
    auto day = FindDayLabel(head);
    labels.isDayMade = !day;
    if (!day) day = FindMakingDayLabel(head);
    if (day) labels.day = day->label;
    labels.accountOpens = labels.day.empty() || (!labels.account.empty() && labels.account.data() < labels.day.data());
    return labels;
}

constexpr std::size_t kDayDigits = 8;

bool HoldsAccount(std::string_view behind) {
    const std::string_view account = AccountAt(behind);
    return std::ranges::any_of(account, IsDigit) && account.find('*') == std::string_view::npos;
}

/// With what follows it where a name that leads elsewhere would be cut to one that doesn't.
std::string WholeAccountAt(std::string_view behind) {
    constexpr std::string_view kGoesOn = "/\\.:+@#";
    const std::string_view account = AccountAt(behind);
    const std::string_view rest = behind.substr(account.size());
    const bool goesOn = !rest.empty() && kGoesOn.find(rest.front()) != std::string_view::npos;
    return std::string(goesOn ? behind.substr(0, behind.find_first_of(" \t\r\n")) : account);
}

std::string DayAt(std::string_view behind) {
    constexpr std::size_t kLongestDate = 32;
    return PackedDate(behind.substr(0, kLongestDate));
}

/// What stands behind the date that `text` begins with.
std::string_view BehindDate(std::string_view text) {
    constexpr std::string_view kSeparators[] = {"-", "/", ".", "年"_gbk, "月"_gbk};
    constexpr std::size_t kDigits[] = {4, 2, 2};
    constexpr std::string_view kDayWord = "日"_gbk;
    for (std::size_t part = 0; part < std::size(kDigits); ++part) {
        for (const std::string_view separator : kSeparators) {
            if (part > 0 && text.starts_with(separator)) text.remove_prefix(separator.size());
        }
        for (std::size_t i = 0; i < kDigits[part] && !text.empty() && IsDigit(text.front()); ++i) text.remove_prefix(1);
    }
    return text.starts_with(kDayWord) ? text.substr(kDayWord.size()) : text;
}

/// Whether another day stands behind the one that `behind` begins with, and both are the ends of a range.
bool HoldsRange(std::string_view behind) {
    constexpr std::string_view kBetween[] = {"--", "-", "~", "至"_gbk, "到"_gbk, "—"_gbk, "～"_gbk};
    const std::string_view rest = TrimLeft(BehindDate(behind));
    return std::ranges::any_of(kBetween, [&](std::string_view between) {
        const std::string last = rest.starts_with(between) ? DayAt(rest.substr(between.size())) : std::string();
        return last.size() == kDayDigits && last != DayAt(behind);
    });
}

/// Whether a label is one by its words alone, as "日期" is and "到期日期" isn't.
bool IsPlain(const StatedLabel& label) {
    constexpr std::string_view kPlain[] = {"日期"_gbk,   "日  期"_gbk,   "日 期"_gbk,   "结算日"_gbk,
                                           "交易日"_gbk, "结算日期"_gbk, "交易日期"_gbk};
    return std::ranges::find(kPlain, label.label) != std::end(kPlain);
}

LineStates StatesOf(std::string_view line, const HeadLabels& labels) {
    LineStates states;
    auto account = labels.account.empty() ? std::nullopt : BehindLabelOf(line, labels.account);
    if (account && !HoldsAccount(*account)) account = std::nullopt;
    if (!account) {
        const auto other = FindAccountLabel(line);
        states.isAccountOfOtherForm = other.has_value();
        if (other) account = other->behind;
    }
    auto day = labels.day.empty() ? std::nullopt : BehindLabelOf(line, labels.day);
    if (day && DayAt(*day).size() != kDayDigits) day = std::nullopt;
    if (!day) {
        const auto other = FindDayLabel(line);
        states.isDayOfOtherForm = other && IsPlain(*other);
        if (states.isDayOfOtherForm) day = other->behind;
    }
    if (account) states.account = WholeAccountAt(*account);
    if (day) states.day = DayAt(*day);
    states.isRange = day && HoldsRange(*day);
    return states;
}

/// Puts what lines state together to heads.
class CHeadCollector {
public:
    explicit CHeadCollector(const HeadLabels& labels) : labels_(labels) {}

    void Add(std::size_t line, const LineStates& states) {
        if (labels_.accountOpens) {
            AddAccount(line, states);
            AddDay(line, states);
        } else {
            AddDay(line, states);
            AddAccount(line, states);
        }
    }

    [[nodiscard]] std::vector<StatementHead> Take() {
        // One that only looks like a head, as an account beside a bank's, states no more than half of it.
        std::erase_if(heads_,
                      [](const StatementHead& head) { return head.isOfOtherForm && !(head.account && head.day); });
        return std::move(heads_);
    }

private:
    [[nodiscard]] bool IsOpen(std::size_t line) const {
        return !heads_.empty() && line < heads_.back().line + kHeadLines;
    }

    /// The head that a line's account or day belongs to, which may be a new one. Null if it says nothing new.
    StatementHead* HeadFor(std::size_t line, bool opens, bool isOfOtherForm,
                           std::optional<std::string> StatementHead::*field) {
        const bool completes = IsOpen(line) && !(heads_.back().*field);
        // Beside the labels of the first head others only complete what is open.
        if (completes && (!opens || isOfOtherForm)) return &heads_.back();
        if (isOfOtherForm && IsOpen(line) && !(heads_.back().account && heads_.back().day)) return nullptr;
        heads_.push_back({.line = line});
        return &heads_.back();
    }

    void AddAccount(std::size_t line, const LineStates& states) {
        if (!states.account) return;
        StatementHead* const head =
            HeadFor(line, labels_.accountOpens, states.isAccountOfOtherForm, &StatementHead::account);
        if (head == nullptr) return;
        head->account = states.account;
        head->isOfOtherForm |= states.isAccountOfOtherForm;
    }

    void AddDay(std::size_t line, const LineStates& states) {
        if (!states.day) return;
        StatementHead* const head = HeadFor(line, !labels_.accountOpens, states.isDayOfOtherForm, &StatementHead::day);
        if (head == nullptr) return;
        head->day = states.day;
        head->isRange = states.isRange;
        head->isDayMade = labels_.isDayMade && !states.isDayOfOtherForm;
        head->isOfOtherForm |= states.isDayOfOtherForm;
    }

    const HeadLabels& labels_;
    std::vector<StatementHead> heads_;
};

}  // namespace

std::vector<StatementHead> FindHeads(const std::vector<std::string_view>& lines) {
    const HeadLabels labels = LabelsOf(HeadOf(lines));
    CHeadCollector heads(labels);
    for (std::size_t i = 0; i < lines.size(); ++i) heads.Add(i, StatesOf(lines[i], labels));
    return heads.Take();
}

}  // namespace tradebill
