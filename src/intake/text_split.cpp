#include "intake/text_split.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/gbk.h"
#include "base/text.h"
#include "intake/decoded_text.h"
#include "intake/statement_heads.h"

namespace tradebill {
namespace {

using Lines = std::vector<std::string_view>;

/// Each with its line end.
Lines LinesOf(std::string_view text) {
    Lines lines;
    while (!text.empty()) {
        const std::string_view line = TakeLine(text);
        const bool hasEnd = text.data() > line.data() + line.size();
        lines.push_back({line.data(), line.size() + (hasEnd ? 1 : 0)});
    }
    return lines;
}

/// Whether two lines are alike but for their figures and the blanks around them.
bool AreAlike(std::string_view one, std::string_view other) {
    one = Trim(one);
    other = Trim(other);
    return std::ranges::equal(one, other,
                              [](char left, char right) { return left == right || (IsDigit(left) && IsDigit(right)); });
}

bool IsRule(std::string_view line) {
    return std::ranges::all_of(Trim(line), [](char byte) { return byte == '-' || byte == '=' || byte == '*'; });
}

/// Whether a line could stand in a title: no row, no rule, no sentence of a footer.
bool MayBeTitle(std::string_view line) {
    line = Trim(line);
    return !line.empty() && !IsRule(line) && !Contains(line, "|") && !line.ends_with("。"_gbk) && !HasFigures(line);
}

/// How many lines above the first head stand above the head at `line` too, down to `least`. Brokers head all statements
/// alike.
std::size_t LinesAlikeAbove(const Lines& lines, std::size_t first, std::size_t line, std::size_t least) {
    std::size_t count = 0;
    while (count < first && line - count > least && AreAlike(lines[first - count - 1], lines[line - count - 1]))
        ++count;
    return count;
}

/// The same where nothing is alike: the lines of a title right above the head, or behind one empty line.
std::size_t TitleLinesAbove(const Lines& lines, std::size_t line, std::size_t least) {
    constexpr std::size_t kMost = 6;
    std::size_t begin = line;
    if (begin > least && Trim(lines[begin - 1]).empty()) --begin;
    const std::size_t bottom = begin;
    while (begin > least && bottom - begin < kMost && MayBeTitle(lines[begin - 1])) --begin;
    return begin == bottom ? 0 : line - begin;
}

/// Where a statement begins.
struct Begin {
    std::size_t line;  ///< the first that is all its own
    const char* at;    ///< its first byte
};

/// Where the statement of the head at `line` begins; not before `least`. A file without a last line end, put before
/// another one, ends in the line that the next title begins with.
Begin BeginOf(const Lines& lines, std::size_t first, std::size_t line, std::size_t least) {
    const std::size_t alike = LinesAlikeAbove(lines, first, line, least);
    if (alike < first && line - alike > least) {
        const std::string_view title = TrimRight(lines[first - alike - 1]);
        const std::string_view above = TrimRight(lines[line - alike - 1]);
        if (MayBeTitle(title) && above.ends_with(title)) {
            return {line - alike, above.data() + (above.size() - title.size())};
        }
    }
    const bool isTitle = std::ranges::any_of(std::span(lines).subspan(line - alike, alike), MayBeTitle);
    const std::size_t begin = line - (isTitle ? alike : TitleLinesAbove(lines, line, least));
    return {begin, lines[begin].data()};
}

/// A statement's head and where its text begins.
struct Cut {
    Begin begin;
    StatementHead head = {};
};

std::string TwoAccounts(const std::string& one, const std::string& other) {
    return "it holds statements of two accounts, " + one + " and " + other;
}

constexpr std::size_t kMostStatements = 10'000;  // of forty years

/// The first head of each statement. A refusal ends it.
std::vector<Cut> CutsOf(const Lines& lines, StatementSplit& split) {
    std::vector<Cut> cuts;
    std::size_t behindHead = 0;
    for (StatementHead& head : FindHeads(lines)) {
        const bool isOfOtherDay = !cuts.empty() && head.day && head.day != cuts.back().head.day;
        if (head.isOfOtherForm && !cuts.empty() && !isOfOtherDay) continue;  // an account beside the client's own
        if (head.account && split.account && *head.account != *split.account) {
            split.refusal = TwoAccounts(*split.account, *head.account);
            return cuts;
        }
        if (head.account) split.account = head.account;
        if (cuts.empty()) {
            cuts.push_back({{0, lines.front().data()}, head});
        } else if (!cuts.back().head.day) {
            cuts.back().head.day = head.day;
            cuts.back().head.isDayMade = head.isDayMade;
        } else if (isOfOtherDay) {
            cuts.push_back({BeginOf(lines, cuts.front().head.line, head.line, behindHead), head});
        }
        if (cuts.size() > kMostStatements) {
            split.refusal = "it holds more than " + std::to_string(kMostStatements) + " statements";
            return cuts;
        }
        cuts.back().head.isRange |= head.isRange;
        behindHead = head.line + 1;
    }
    return cuts;
}

/// What statements say of themselves that aren't those of one day; in titles, or anywhere in a head.
struct OtherForm {
    std::string_view word;
    const char* refusal;
};

constexpr const char* kByTrade =
    "it is a statement of the trade-by-trade form: the mark-to-market form (盯市) is needed";
constexpr const char* kOfMonth =
    "it is the statement of a month or of a range of days: those of single days are needed";

// clang-format off
constexpr OtherForm kOtherForms[] = {
    {"逐笔对冲"_gbk,          kByTrade},
    {"(逐笔)"_gbk,            kByTrade},
    {"（逐笔）"_gbk,          kByTrade},
    {"Trade by Trade",        kByTrade},
    {"Trade-by-Trade",        kByTrade},
    {"月结单"_gbk,            kOfMonth},
    {"月结算"_gbk,            kOfMonth},
    {"月度结算"_gbk,          kOfMonth},
    {"结算月报"_gbk,          kOfMonth},
    {"月份："_gbk,            kOfMonth},
    {"月份:"_gbk,             kOfMonth},
    {"Monthly Statement",     kOfMonth},
};
// clang-format on

/// Why the lines from a statement's title to its head are those of no day; empty if they may be.
std::string WhyNotOfDay(std::span<const std::string_view> lines) {
    for (const std::string_view line : lines) {
        if (Trim(line).ends_with("。"_gbk)) continue;
        for (const OtherForm& form : kOtherForms) {
            if (Contains(line, form.word)) return form.refusal;
        }
    }
    return {};
}

/// A head's labels may stand in more than one line.
constexpr std::size_t kHeadLines = 4;

void Refuse(StatementSplit& split, const Lines& lines, std::span<const Cut> cuts) {
    for (const Cut& cut : cuts) {
        const std::size_t end = std::min(cut.head.line + kHeadLines, lines.size());
        split.refusal = WhyNotOfDay(std::span(lines).subspan(cut.begin.line, end - cut.begin.line));
        if (split.refusal.empty() && cut.head.isRange) split.refusal = kOfMonth;
        if (!split.refusal.empty()) return;
    }
}

}  // namespace

StatementSplit SplitStatements(std::string_view text) {
    StatementSplit split;
    const Lines lines = LinesOf(text);
    std::vector<Cut> cuts = CutsOf(lines, split);
    if (split.refusal.empty()) Refuse(split, lines, cuts);
    if (cuts.empty()) {
        split.statements.push_back({.text = text});
        return split;
    }
    for (std::size_t i = 0; i < cuts.size(); ++i) {
        const char* const begin = cuts[i].begin.at;
        const char* const end = i + 1 < cuts.size() ? cuts[i + 1].begin.at : text.data() + text.size();
        StatementHead& head = cuts[i].head;
        split.statements.push_back({{begin, end}, std::move(head.day), head.isDayMade});
    }
    return split;
}

}  // namespace tradebill
