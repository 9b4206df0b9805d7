#include "readers/printed_money_reader.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/byte_mask.h"
#include "base/decimal.h"
#include "base/gbk.h"
#include "base/text.h"
#include "readers/heading_words.h"
#include "readers/section_scan.h"
#include "report/money_record.h"
#include "report/printed_money.h"
#include "report/statement_format.h"

namespace tradebill {
namespace {

using enum PrintedFigure;

struct FigureWord {
    std::string_view word;  ///< the Chinese characters of the label
    PrintedFigure figure;
};

// clang-format off
constexpr FigureWord kWords[] = {
    {"上日结存"_gbk,         Opening},
    {"期初结存"_gbk,         Opening},
    {"当日结存"_gbk,         Closing},
    {"期末结存"_gbk,         Closing},
    {"客户权益"_gbk,         Equity},
    {"权益"_gbk,             Equity},
    {"出入金"_gbk,           CashFlow},
    {"当日出入金"_gbk,       CashFlow},
    {"入金"_gbk,             Deposits},
    {"出金"_gbk,             Withdrawals},
    {"平仓盈亏"_gbk,         ClosedPL},
    {"盯市平仓盈亏"_gbk,     ClosedPL},
    {"持仓盯市盈亏"_gbk,     PositionPL},
    {"盯市盈亏"_gbk,         PositionPL},
    {"持仓盈亏"_gbk,         PositionPL},
    {"当日盈亏"_gbk,         DayPL},
    {"浮动盈亏"_gbk,         FloatingPL},
    {"期权执行盈亏"_gbk,     ExercisePL},
    {"手续费"_gbk,           Fees},
    {"行权手续费"_gbk,       ExerciseFees},
    {"行权费用"_gbk,         ExerciseFees},
    {"行权费"_gbk,           ExerciseFees},
    {"交割手续费"_gbk,       DeliveryFees},
    {"权利金收支"_gbk,       Premium},
    {"期权收支"_gbk,         Premium},
    {"权利金收入"_gbk,       PremiumReceived},
    {"权利金支出"_gbk,       PremiumPaid},
    {"质押变化金额"_gbk,     PledgeChange},
    {"货币质押变化金额"_gbk, FxPledgeChange},
    {"保证金占用"_gbk,       Margin},
    {"占用保证金"_gbk,       Margin},
    {"总保证金占用"_gbk,     Margin},
    {"保证金"_gbk,           Margin},
    {"交割保证金"_gbk,       DeliveryMargin},
    {"冻结资金"_gbk,         Frozen},
    {"可用资金"_gbk,         Available},
    {"可用"_gbk,             Available},
};
// clang-format on

std::optional<PrintedFigure> FigureOf(std::string_view word) {
    const auto* const found = std::ranges::find(kWords, word, &FigureWord::word);
    return found != std::end(kWords) ? std::optional(found->figure) : std::nullopt;
}

bool StartsNumber(std::string_view text) {
    if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
    return !text.empty() && IsDigit(text.front());
}

bool IsBetweenWords(char byte) {
    return byte == ' ' || byte == '|' || byte == ':' || byte == '\t';
}

/// Blanks and bars part columns, whatever the reader of the layout cuts at.
std::vector<std::string_view> ColumnsOf(std::string_view line) {
    std::vector<std::string_view> columns;
    std::size_t begin = 0;
    for (std::size_t at = 0; at <= line.size(); ++at) {
        if (at < line.size() && !IsWhiteSpace(line[at]) && line[at] != '|') continue;
        if (at > begin) columns.push_back(line.substr(begin, at - begin));
        begin = at + 1;
    }
    return columns;
}

class CFigureReader {
public:
    CFigureReader(PrintedMoney& money, FigurePlaces* places) : money_(money), places_(places) {}

    [[nodiscard]] bool HasFigures() const { return hasFigures_; }

    void ReadLine(std::string_view line) {
        if (heading_.empty() || !ReadColumns(ColumnsOf(line))) {
            if (!ReadPairs(line)) TakeHeading(ColumnsOf(line));
        }
    }

private:
    void Take(std::string_view word, std::string_view text) {
        const auto amount = ParseDecimal(text);
        const auto figure = FigureOf(word);
        if (!amount || !figure) return;
        money_[*figure] = amount->steps;
        if (places_ != nullptr) (*places_)[static_cast<std::size_t>(*figure)] = text;
        hasFigures_ = true;
    }

    /// A heading counts only if it names a figure: that of a block of labels says what labels are.
    void TakeHeading(const std::vector<std::string_view>& columns) {
        std::vector<std::string> words;
        words.reserve(columns.size());
        for (const std::string_view column : columns) words.push_back(HanziOf(column));
        if (std::ranges::any_of(words, [](const std::string& word) { return FigureOf(word).has_value(); })) {
            heading_ = std::move(words);
        }
    }

    /// The figures below a heading. Returns false for a line that has other columns.
    bool ReadColumns(const std::vector<std::string_view>& columns) {
        if (columns.size() != heading_.size()) return false;
        for (std::size_t i = 0; i < columns.size(); ++i) Take(heading_[i], columns[i]);
        heading_.clear();
        return true;
    }

    /// Figures behind their labels. Returns false for a line without a number.
    bool ReadPairs(std::string_view line) {
        bool hasNumber = false;
        bool atBoundary = true;
        label_.clear();
        const char* const end = line.data() + line.size();
        for (const char* at = line.data(); at != end;) {
            const std::string_view rest(at, static_cast<std::size_t>(end - at));
            if (IsBetweenWords(*at)) {
                atBoundary = true;
                ++at;
            } else if (atBoundary && StartsNumber(rest)) {
                const std::string_view number = rest.substr(0, rest.find_first_of(" \t|"));
                Take(label_, number);
                label_.clear();
                hasNumber = true;
                at += number.size();
            } else {
                const std::string_view character = rest.substr(0, GbkCharacterLength(rest));
                if (IsHanzi(character)) label_ += character;
                atBoundary = character == "："_gbk;
                at += character.size();
            }
        }
        return hasNumber;
    }

    PrintedMoney& money_;
    FigurePlaces* places_;
    std::vector<std::string> heading_;
    std::string label_;
    bool hasFigures_ = false;
};

int LineOf(std::string_view text, std::string_view row) {
    const auto offset = static_cast<std::size_t>(row.data() - text.data());
    return static_cast<int>(CountByte(text.substr(0, offset), '\n')) + 1;
}

struct FieldFigure {
    std::string_view (*text)(const MoneyRecord&);
    PrintedFigure figure;
};

#define TRADEBILL_MONEY_TEXT(Field) [](const MoneyRecord& record) { return FieldText(record.Field); }

// clang-format off
constexpr FieldFigure kFields[] = {
    {TRADEBILL_MONEY_TEXT(QCQY),   Opening},
    {TRADEBILL_MONEY_TEXT(QMJC),   Closing},
    {TRADEBILL_MONEY_TEXT(CRJ),    CashFlow},
    {TRADEBILL_MONEY_TEXT(PCYK),   ClosedPL},
    {TRADEBILL_MONEY_TEXT(CCDSYK), PositionPL},
    {TRADEBILL_MONEY_TEXT(SXF),    Fees},
    {TRADEBILL_MONEY_TEXT(XQSXF),  ExerciseFees},
    {TRADEBILL_MONEY_TEXT(QLJSZ),  Premium},
    {TRADEBILL_MONEY_TEXT(KHQY),   Equity},
    {TRADEBILL_MONEY_TEXT(BZJZY),  Margin},
    {TRADEBILL_MONEY_TEXT(KYZJ),   Available},
};
constexpr FieldFigure kForeignFields[] = {
    {TRADEBILL_MONEY_TEXT(QCQY),         Opening},
    {TRADEBILL_MONEY_TEXT(CRJ),          CashFlow},
    {TRADEBILL_MONEY_TEXT(SXF),          Fees},
    {TRADEBILL_MONEY_TEXT(PCYK),         ClosedPL},
    {TRADEBILL_MONEY_TEXT(HOST_CURRENT), FloatingPL},
    {TRADEBILL_MONEY_TEXT(KHQY),         Equity},
    {TRADEBILL_MONEY_TEXT(BZJZY),        Margin},
    {TRADEBILL_MONEY_TEXT(KYZJ),         Available},
};
// clang-format on

#undef TRADEBILL_MONEY_TEXT

void Fill(std::span<const FieldFigure> fields, const MoneyRecord& record, PrintedMoney& money) {
    for (const FieldFigure& field : fields) {
        if (money[field.figure]) continue;
        if (const auto amount = ParseDecimal(field.text(record))) money[field.figure] = amount->steps;
    }
}

}  // namespace

void ReadPrintedMoney(const MoneyBlock& block, PrintedMoney& money, FigurePlaces* places) {
    constexpr int kMostLines = 60;
    const std::string_view end = block.endRow.empty() ? block.titleRow : block.endRow;
    money.Row = LineOf(block.text, block.titleRow);
    std::string_view rest = block.text.substr(static_cast<std::size_t>(block.titleRow.data() - block.text.data()));
    static_cast<void>(TakeLine(rest));
    CFigureReader reader(money, places);
    for (int line = 0; line < kMostLines && !rest.empty(); ++line) {
        const std::string_view row = Trim(TakeLine(rest));
        const bool isPastEnd = row.data() >= end.data();
        if (row.empty() || IsRule(row)) {
            if (isPastEnd && reader.HasFigures() && (row.empty() || !block.endRow.empty())) return;
        } else {
            reader.ReadLine(row);
        }
    }
}

void CompleteFromRecord(const MoneyRecord& record, EquityRule equity, PrintedMoney& money) {
    const bool statesPremium = money[PremiumReceived] || money[PremiumPaid];
    MoneyRecord source = record;
    if (statesPremium) CopyField(source.QLJSZ, "");
    if (equity == EquityRule::MarginAndAvailable) CopyField(source.KHQY, "");
    if (money[Deposits] || money[Withdrawals]) CopyField(source.CRJ, "");
    Fill(kFields, source, money);
}

void TakeForeignMoney(const MoneyRecord& record, PrintedMoney& money) {
    Fill(kForeignFields, record, money);
}

}  // namespace tradebill
