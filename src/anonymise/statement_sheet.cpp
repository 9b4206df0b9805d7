#include "anonymise/statement_sheet.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "anonymise/amount_text.h"
#include "anonymise/cell_meaning.h"
#include "anonymise/day_shift.h"
#include "anonymise/identity_map.h"
#include "anonymise/loose_cells.h"
#include "anonymise/sheet_watch.h"
#include "anonymise/table_heading.h"
#include "base/decimal.h"
#include "base/gbk.h"
#include "base/text.h"
#include "findings/row_shapes.h"
#include "readers/scan_listener.h"
#include "readers/section_scan.h"

namespace tradebill {
namespace {

constexpr std::string_view kWideColon = "："_gbk;

/// A colon that parts a label from its value, not one of a time.
struct Colon {
    std::size_t at;
    std::size_t size;
};

std::optional<Colon> FindColon(std::string_view text, std::size_t from) {
    for (std::size_t at = from; at < text.size();) {
        const std::string_view rest = text.substr(at);
        if (rest.starts_with(kWideColon)) return Colon{at, kWideColon.size()};
        const bool isOfTime =
            rest.front() == ':' && at > 0 && IsDigit(text[at - 1]) && rest.size() > 1 && IsDigit(rest[1]);
        if (rest.front() == ':' && !isOfTime) return Colon{at, 1};
        at += GbkCharacterLength(rest);
    }
    return std::nullopt;
}

/// A delivery month of three or four digits: 2405, 405.
///
/// REQUIRES: `text` is no longer.
bool IsMonth(std::string_view text) {
    constexpr std::size_t kLeast = 3;
    if (text.size() < kLeast || !std::ranges::all_of(text, IsDigit)) return false;
    const std::string_view month = text.substr(text.size() - 2);
    return month >= "01" && month <= "12";
}

/// What a number means that nothing tells of.
Meaning MeaningByLook(std::string_view text, const PrintedNumber& number) {
    constexpr std::size_t kLongNumber = 5;
    constexpr std::int64_t kSmall = 100 * kDecimalSteps;
    if (number.printedPlaces > 0 || number.hasMarks) return Meaning::Money;
    if (text.size() >= kLongNumber || (text.size() > 1 && text.front() == '0')) return Meaning::Identity;
    if (IsMonth(text) || (number.steps < kSmall && number.steps > -kSmall)) return Meaning::Keep;
    return Meaning::Money;
}

/// Words that say what stands in a cell, not what is to be hidden.
bool StaysAsItIs(Meaning meaning) {
    switch (meaning) {
        case Meaning::Keep:
        case Meaning::Contract:
        case Meaning::Product:
        case Meaning::Delivery:
        case Meaning::Side:
        case Meaning::Currency:
        case Meaning::Lots:
            return true;
        default:
            return false;
    }
}

class CSheetMaker {
public:
    CSheetMaker(std::string_view text, const CSheetWatch& watch) : watch_(watch) { sheet_.text = text; }

    StatementSheet Make() {
        std::string_view rest = sheet_.text;
        while (!rest.empty()) {
            std::string_view line = TakeLine(rest);
            if (line.ends_with('\r')) line.remove_suffix(1);
            const std::string_view row = Trim(line);
            if (!row.empty() && !IsRule(row)) TakeRow(line, row);
        }
        return std::move(sheet_);
    }

private:
    [[nodiscard]] std::size_t PlaceOf(std::string_view part) const {
        return static_cast<std::size_t>(part.data() - sheet_.text.data());
    }

    void TakeRow(std::string_view line, std::string_view row) {
        line_ = PlaceOf(line);
        const WatchedRow* const watched = WatchedAt(PlaceOf(row));
        const bool isTable = watched != nullptr && watched->kind != SectionKind::Money;
        if (!isTable && IsHeadingRow(row) && !FindColon(row, 0)) {
            TakeHeading(line);
            return;
        }
        SheetRow made{.firstCell = sheet_.cells.size(),
                      .cells = 0,
                      .table = table_,
                      .isTotal = IsTotalRow(row),
                      .watched = watched};
        isTotal_ = made.isTotal;
        pending_ = Meaning::Unknown;
        if (row.find('|') != std::string_view::npos) {
            TakeBars(row);
        } else if (!isTable && !made.isTotal && FindColon(row, 0)) {
            made.isInTable = false;
            TakeLabels(row);
        } else {
            TakeWords(row);
        }
        made.cells = sheet_.cells.size() - made.firstCell;
        hasRows_ = true;
        if (made.cells > 0) sheet_.rows.push_back(made);
    }

    void TakeHeading(std::string_view line) {
        if (hasRows_) {
            const bool isWord = WordsOf(line).size() < 2 && line.find('|') == std::string_view::npos;
            if (isWord) return;  // names the exchange of the rows below, or is a title
            heading_ = {};
            hasRows_ = false;
            ++table_;
        }
        heading_.AddLine(line);
    }

    [[nodiscard]] const WatchedRow* WatchedAt(std::size_t at) const {
        const auto& rows = watch_.Rows();
        const auto found = std::ranges::lower_bound(rows, at, {}, &WatchedRow::at);
        return found != rows.end() && found->at == at ? &*found : nullptr;
    }

    [[nodiscard]] std::string_view FieldAt(std::size_t at) const {
        const auto& cells = watch_.Cells();
        const auto found = std::ranges::lower_bound(cells, at, {}, &WatchedCell::at);
        return found != cells.end() && found->at == at ? found->field : std::string_view();
    }

    /// Cells between bars. One that is a label says what the next means.
    void TakeBars(std::string_view row) {
        std::size_t column = 0;
        const bool opens = row.front() == '|';
        for (std::size_t begin = opens ? 1 : 0; begin <= row.size(); ++column) {
            const std::size_t end = std::min(row.find('|', begin), row.size());
            const std::string_view cell = Trim(row.substr(begin, end - begin));
            begin = end + 1;
            if (cell.empty()) continue;
            if (!isTotal_ && FieldAt(PlaceOf(cell)).empty() && FindColon(cell, 0)) {
                TakeSegment(cell);
                continue;
            }
            const Meaning told = std::exchange(pending_, Meaning::Unknown);
            AddCell(cell, told != Meaning::Unknown ? told : heading_.AtBar(column), column);
            if (IsHeadingRow(cell)) pending_ = ClientWord(cell);
        }
    }

    /// What a word in a cell of its own says of the next, if it speaks of the client.
    [[nodiscard]] static Meaning ClientWord(std::string_view word) {
        const Meaning meaning = MeaningOfLabel(word);
        const bool isOfClient =
            Contains(word, "客户"_gbk) || Contains(word, "Client"_gbk) || Contains(word, "姓名"_gbk);
        return isOfClient && (meaning == Meaning::Name || meaning == Meaning::Identity) ? meaning : Meaning::Unknown;
    }

    void TakeWords(std::string_view row) {
        const std::vector<std::string_view> words = WordsOf(row);
        for (std::size_t i = 0; i < words.size(); ++i) {
            const std::size_t begin = PlaceOf(words[i]) - line_;
            const Meaning meaning = heading_.AtWord({begin, begin + words[i].size()}, i, words.size());
            AddCell(words[i], meaning, begin + words[i].size());
        }
    }

    /// Parts that two blanks or a tab keep from each other.
    void TakeLabels(std::string_view row) {
        isOfClient_ = false;
        for (std::size_t begin = 0; begin < row.size();) {
            const std::size_t end = std::min({row.find("  ", begin), row.find('\t', begin), row.size()});
            const std::string_view segment = Trim(row.substr(begin, end - begin));
            begin = std::max(end, begin + 1);
            if (!segment.empty()) TakeSegment(segment);
        }
    }

    void TakeSegment(std::string_view segment) {
        std::size_t from = 0;
        for (;;) {
            const auto colon = FindColon(segment, from);
            if (!colon) break;
            const std::string_view label = Trim(segment.substr(from, colon->at - from));
            if (!label.empty()) pending_ = MeaningOfLabel(label);
            isOfClient_ |= pending_ == Meaning::Identity;
            from = colon->at + colon->size;
            const std::size_t next = TakeValueWithLabelBehind(segment, from);
            if (next == from) continue;
            from = next;
        }
        TakeValue(Trim(segment.substr(from)));
    }

    /// A value with another label behind it, as in "AccountID：1 Currency：CNY": it is one word. Returns where the
    /// label begins.
    std::size_t TakeValueWithLabelBehind(std::string_view segment, std::size_t from) {
        if (!FindColon(segment, from)) return from;
        const std::string_view rest = TrimLeft(segment.substr(from));
        const std::size_t word = std::min(rest.find(' '), rest.size());
        if (word == rest.size() || FindColon(rest.substr(0, word), 0)) return from;
        TakeValue(rest.substr(0, word));
        return static_cast<std::size_t>(rest.data() - segment.data()) + word;
    }

    void TakeValue(std::string_view value) {
        if (value.empty()) return;
        Meaning meaning = std::exchange(pending_, Meaning::Unknown);
        const bool isUnnamed = meaning == Meaning::Unknown && FieldAt(PlaceOf(value)).empty();
        if (isUnnamed && isOfClient_ && IsHeadingRow(value)) meaning = Meaning::Name;
        if (meaning == Meaning::Identity && IsHeadingRow(value)) meaning = Meaning::Name;
        const std::size_t word = std::min(value.find(' '), value.size());
        if (meaning == Meaning::Name || word == value.size()) {
            AddCell(value, meaning, 0);
            return;
        }
        AddCell(value.substr(0, word), meaning, 0);
        const std::string_view behind = TrimLeft(value.substr(word));
        if (isOfClient_ && meaning == Meaning::Identity) {
            AddCell(behind, Meaning::Name, 0);
        } else {
            AddLooseCells(behind, PlaceOf(behind), sheet_.cells);
        }
    }

    void AddCell(std::string_view part, Meaning meaning, std::size_t place) {
        SheetCell cell{.at = PlaceOf(part),
                       .size = part.size(),
                       .meaning = meaning,
                       .field = FieldAt(PlaceOf(part)),
                       .place = place};
        cell.number = ParsePrinted(part);
        if (!cell.field.empty()) cell.meaning = MeaningOfField(cell.field);
        if (!Settle(cell, part)) {
            AddLooseCells(part, cell.at, sheet_.cells);
            return;
        }
        sheet_.cells.push_back(cell);
    }

    /// Makes up what a cell means. False if it is none of a meaning as a whole.
    [[nodiscard]] bool Settle(SheetCell& cell, std::string_view part) const {
        const std::size_t date = DateLengthAt(part);
        const bool isDate = date == part.size();
        if (isTotal_ && !cell.number) return false;
        // A time may have its day in front: "制表时间：20240103".
        if (cell.meaning == Meaning::Keep && cell.field.empty() && date > 0) return false;
        if (cell.number) {
            const bool isDecimal = cell.number->printedPlaces > 0 || cell.number->hasMarks;
            const bool isTold = !cell.field.empty();
            if (IsMoney(cell.meaning) || cell.meaning == Meaning::Price || cell.meaning == Meaning::Ratio) return true;
            if (isDate && (cell.meaning == Meaning::Date || cell.meaning == Meaning::Unknown)) {
                cell.meaning = Meaning::Date;
                return true;
            }
            if (isDecimal && !isTold) cell.meaning = Meaning::Money;
            if (isTotal_ && cell.meaning == Meaning::Identity) cell.meaning = Meaning::Unknown;
            if (cell.meaning == Meaning::Unknown || (cell.meaning == Meaning::Date && !isTotal_)) {
                cell.meaning = isTotal_ && !isDecimal ? Meaning::Unknown : MeaningByLook(part, *cell.number);
            }
            return true;
        }
        if (cell.meaning == Meaning::Identity) return HasLettersOrDigits(part);
        if (cell.meaning == Meaning::Name || StaysAsItIs(cell.meaning)) return true;
        if (isDate) cell.meaning = Meaning::Date;
        return isDate;
    }

    const CSheetWatch& watch_;
    StatementSheet sheet_;
    CTableHeading heading_;
    std::size_t line_ = 0;
    std::size_t table_ = 0;
    Meaning pending_ = Meaning::Unknown;  // of the value that comes next
    bool hasRows_ = false;
    bool isTotal_ = false;
    bool isOfClient_ = false;
};

}  // namespace

SheetCell* StatementSheet::CellAt(std::size_t at) {
    const auto found = std::ranges::lower_bound(cells, at, {}, &SheetCell::at);
    return found != cells.end() && found->at == at ? &*found : nullptr;
}

StatementSheet MakeSheet(std::string_view text, const CSheetWatch& watch) {
    return CSheetMaker(text, watch).Make();
}

}  // namespace tradebill
