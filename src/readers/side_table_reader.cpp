#include "readers/side_table_reader.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/gbk.h"
#include "base/text.h"
#include "readers/heading_words.h"
#include "readers/scan_listener.h"
#include "readers/section_scan.h"
#include "report/side_records.h"

namespace tradebill {
namespace {

constexpr std::size_t kMostFields = 14;
constexpr std::size_t kCurrency = kMostFields;  // behind the fields of the record
constexpr std::size_t kNoColumn = std::numeric_limits<std::size_t>::max();

/// A heading's word, and the field below it. Of two columns for one field the word that comes first here decides.
struct HeadingWord {
    std::string_view word;  ///< Chinese characters, or small letters, alone
    std::size_t field;
};

template <class Record, std::size_t N>
consteval std::size_t FieldAt(const SideField<Record> (&fields)[N], std::string_view name) {
    static_assert(N <= kMostFields);
    const auto* const found = std::ranges::find(fields, name, &SideField<Record>::name);
    if (found == std::end(fields)) throw "no such field";
    return static_cast<std::size_t>(found - fields);
}

#define TRADEBILL_CASH(name) FieldAt(kCashFields, #name)
#define TRADEBILL_EXERCISE(name) FieldAt(kExerciseFields, #name)
#define TRADEBILL_DELIVERY(name) FieldAt(kDeliveryFields, #name)

// clang-format off
constexpr HeadingWord kCashWords[] = {
    {"发生日期"_gbk,   TRADEBILL_CASH(CASH_DATE)},
    {"日期"_gbk,       TRADEBILL_CASH(CASH_DATE)},
    {"出入金类型"_gbk, TRADEBILL_CASH(CASH_TYPE)},
    {"类型"_gbk,       TRADEBILL_CASH(CASH_TYPE)},
    {"方式"_gbk,       TRADEBILL_CASH(CASH_TYPE)},
    {"入金"_gbk,       TRADEBILL_CASH(CASH_IN)},
    {"入金金额"_gbk,   TRADEBILL_CASH(CASH_IN)},
    {"出金"_gbk,       TRADEBILL_CASH(CASH_OUT)},
    {"出金金额"_gbk,   TRADEBILL_CASH(CASH_OUT)},
    {"说明"_gbk,       TRADEBILL_CASH(NOTE)},
    {"摘要"_gbk,       TRADEBILL_CASH(NOTE)},
    {"备注"_gbk,       TRADEBILL_CASH(NOTE)},
    {"账户币种"_gbk,   kCurrency},
    {"币种"_gbk,       kCurrency},
    {"date",           TRADEBILL_CASH(CASH_DATE)},
    {"type",           TRADEBILL_CASH(CASH_TYPE)},
    {"deposit",        TRADEBILL_CASH(CASH_IN)},
    {"withdrawal",     TRADEBILL_CASH(CASH_OUT)},
    {"note",           TRADEBILL_CASH(NOTE)},
};

constexpr HeadingWord kExerciseWords[] = {
    {"行权日期"_gbk,   TRADEBILL_EXERCISE(EXERCISE_DATE)},
    {"交割日期"_gbk,   TRADEBILL_EXERCISE(EXERCISE_DATE)},
    {"成交日期"_gbk,   TRADEBILL_EXERCISE(EXERCISE_DATE)},
    {"日期"_gbk,       TRADEBILL_EXERCISE(EXERCISE_DATE)},
    {"交易所"_gbk,     TRADEBILL_EXERCISE(EXCH_NAME)},
    {"品种"_gbk,       TRADEBILL_EXERCISE(PRODUCT)},
    {"合约"_gbk,       TRADEBILL_EXERCISE(CONTRACT)},
    {"投保"_gbk,       TRADEBILL_EXERCISE(HEDGE)},
    {"买卖"_gbk,       TRADEBILL_EXERCISE(BID)},
    {"是否行权"_gbk,   TRADEBILL_EXERCISE(EXERCISED)},
    {"行权数量"_gbk,   TRADEBILL_EXERCISE(EXERCISE_VOL)},
    {"行权手数"_gbk,   TRADEBILL_EXERCISE(EXERCISE_VOL)},
    {"行权价格"_gbk,   TRADEBILL_EXERCISE(EXERCISE_PRICE)},
    {"行权价"_gbk,     TRADEBILL_EXERCISE(EXERCISE_PRICE)},
    {"行权金额"_gbk,   TRADEBILL_EXERCISE(EXERCISE_AMOUNT)},
    {"行权盈亏"_gbk,   TRADEBILL_EXERCISE(EXERCISE_PL)},
    {"行权手续费"_gbk, TRADEBILL_EXERCISE(EXERCISE_FEE)},
    {"行权费"_gbk,     TRADEBILL_EXERCISE(EXERCISE_FEE)},
    {"账户币种"_gbk,   kCurrency},
    {"币种"_gbk,       kCurrency},
    {"date",            TRADEBILL_EXERCISE(EXERCISE_DATE)},
    {"exchange",        TRADEBILL_EXERCISE(EXCH_NAME)},
    {"product",         TRADEBILL_EXERCISE(PRODUCT)},
    {"instrument",      TRADEBILL_EXERCISE(CONTRACT)},
    {"sh",              TRADEBILL_EXERCISE(HEDGE)},
    {"bs",              TRADEBILL_EXERCISE(BID)},
    {"exerciseabandon", TRADEBILL_EXERCISE(EXERCISED)},
    {"volumeexercised", TRADEBILL_EXERCISE(EXERCISE_VOL)},
    {"exerciseprice",   TRADEBILL_EXERCISE(EXERCISE_PRICE)},
    {"amountexercised", TRADEBILL_EXERCISE(EXERCISE_AMOUNT)},
    {"exercisepl",      TRADEBILL_EXERCISE(EXERCISE_PL)},
    {"exercisefee",     TRADEBILL_EXERCISE(EXERCISE_FEE)},
};

constexpr HeadingWord kDeliveryWords[] = {
    {"交割日期"_gbk,   TRADEBILL_DELIVERY(DELIVERY_DATE)},
    {"日期"_gbk,       TRADEBILL_DELIVERY(DELIVERY_DATE)},
    {"交易所"_gbk,     TRADEBILL_DELIVERY(EXCH_NAME)},
    {"品种"_gbk,       TRADEBILL_DELIVERY(PRODUCT)},
    {"合约"_gbk,       TRADEBILL_DELIVERY(CONTRACT)},
    {"交割期"_gbk,     TRADEBILL_DELIVERY(CONTRACT)},
    {"投保"_gbk,       TRADEBILL_DELIVERY(HEDGE)},
    {"买卖"_gbk,       TRADEBILL_DELIVERY(BID)},
    {"实提数量"_gbk,   TRADEBILL_DELIVERY(DELIVERED_VOL)},
    {"交割数量"_gbk,   TRADEBILL_DELIVERY(DELIVERED_VOL)},
    {"剩余数量"_gbk,   TRADEBILL_DELIVERY(RESIDUAL_VOL)},
    {"交割价格"_gbk,   TRADEBILL_DELIVERY(DELIVERY_PRICE)},
    {"交割价"_gbk,     TRADEBILL_DELIVERY(DELIVERY_PRICE)},
    {"交割金额"_gbk,   TRADEBILL_DELIVERY(DELIVERY_AMOUNT)},
    {"交割手续费"_gbk, TRADEBILL_DELIVERY(DELIVERY_FEE)},
    {"开仓均价"_gbk,   TRADEBILL_DELIVERY(OPEN_PRICE)},
    {"交割盈亏"_gbk,   TRADEBILL_DELIVERY(DELIVERY_PL)},
    {"账户币种"_gbk,   kCurrency},
    {"币种"_gbk,       kCurrency},
    {"date",                 TRADEBILL_DELIVERY(DELIVERY_DATE)},
    {"exchange",             TRADEBILL_DELIVERY(EXCH_NAME)},
    {"product",              TRADEBILL_DELIVERY(PRODUCT)},
    {"instrument",           TRADEBILL_DELIVERY(CONTRACT)},
    {"delmth",               TRADEBILL_DELIVERY(CONTRACT)},
    {"sh",                   TRADEBILL_DELIVERY(HEDGE)},
    {"bs",                   TRADEBILL_DELIVERY(BID)},
    {"deliveredqty",         TRADEBILL_DELIVERY(DELIVERED_VOL)},
    {"residual",             TRADEBILL_DELIVERY(RESIDUAL_VOL)},
    {"deliveryprice",        TRADEBILL_DELIVERY(DELIVERY_PRICE)},
    {"deliveryamount",       TRADEBILL_DELIVERY(DELIVERY_AMOUNT)},
    {"deliveryfee",          TRADEBILL_DELIVERY(DELIVERY_FEE)},
    {"avgopeningprice",      TRADEBILL_DELIVERY(OPEN_PRICE)},
    {"realizedplatdelivery", TRADEBILL_DELIVERY(DELIVERY_PL)},
};

struct TableForm {
    SectionKind kind;
    std::string_view title;
    std::span<const HeadingWord> words;
    std::size_t fields;
};

constexpr TableForm kForms[] = {
    {SectionKind::Cash,       "出入金明细"_gbk, kCashWords,     std::size(kCashFields)},
    {SectionKind::Exercises,  "行权明细"_gbk,   kExerciseWords, std::size(kExerciseFields)},
    {SectionKind::Deliveries, "交割明细"_gbk,   kDeliveryWords, std::size(kDeliveryFields)},
};
// clang-format on

#undef TRADEBILL_CASH
#undef TRADEBILL_EXERCISE
#undef TRADEBILL_DELIVERY

bool HasDigit(std::string_view text) {
    return std::ranges::any_of(text, IsDigit);
}

std::string LettersOf(std::string_view text) {
    std::string letters;
    for (const char byte : text) {
        if (byte >= 'a' && byte <= 'z') letters += byte;
        if (byte >= 'A' && byte <= 'Z') letters += static_cast<char>(byte - 'A' + 'a');
    }
    return letters;
}

/// What a heading's cell says: "发生日期 Date" and "发生日期" the same, "S/H" what "s/h" does.
std::string WordOf(std::string_view cell) {
    std::string word = HanziOf(cell);
    return word.empty() ? LettersOf(cell) : word;
}

/// Without blanks of either width.
std::string Packed(std::string_view text) {
    constexpr std::string_view kWideBlank = "　"_gbk;
    std::string packed;
    while (!text.empty()) {
        const std::string_view character = text.substr(0, GbkCharacterLength(text));
        if (character != kWideBlank && !IsWhiteSpace(character.front())) packed += character;
        text.remove_prefix(character.size());
    }
    return packed;
}

/// The table that a line is the title of, or null. A title has its line for itself; a label has its colon, and its
/// value, behind it.
const TableForm* FormOfTitle(std::string_view row) {
    constexpr std::size_t kLongestTitle = 160;
    if (row.size() > kLongestTitle || HasDigit(row)) return nullptr;
    const std::string packed = Packed(row);
    const auto* const found = std::ranges::find_if(
        kForms, [&](const TableForm& form) { return std::string_view(packed).starts_with(form.title); });
    if (found == std::end(kForms)) return nullptr;
    const std::string_view rest = std::string_view(packed).substr(found->title.size());
    return rest.starts_with(':') || rest.starts_with("："_gbk) ? nullptr : found;
}

/// Which currency a table is of may stand between its title and its heading.
bool NamesCurrency(std::string_view row) {
    return row.find("币种"_gbk) != std::string_view::npos || row.find("Currency") != std::string_view::npos;
}

/// A bar may be the second byte of a character.
void SplitCells(std::string_view row, std::vector<std::string_view>& cells) {
    cells.clear();
    if (row.starts_with('|')) row.remove_prefix(1);
    std::size_t begin = 0;
    for (std::size_t at = 0; at < row.size(); at += GbkCharacterLength(row.substr(at, 2))) {
        if (row[at] != '|') continue;
        cells.push_back(Trim(row.substr(begin, at - begin)));
        begin = at + 1;
    }
    if (begin < row.size()) cells.push_back(Trim(row.substr(begin)));
}

/// "共   2条", "合计".
bool IsTotal(std::span<const std::string_view> cells) {
    const auto first = std::ranges::find_if(cells, [](std::string_view cell) { return !cell.empty(); });
    if (first == cells.end()) return false;
    return first->starts_with("共"_gbk) || first->starts_with("合计"_gbk) || first->starts_with("总计"_gbk);
}

class CSideTableScan {
public:
    explicit CSideTableScan(CSideTableListener& listener) : listener_(listener) {}

    void ReadLine(std::string_view row) {
        if (row.empty() || IsRule(row)) return;
        if (row.find('|') == std::string_view::npos) {
            ReadText(row);
        } else if (form_ != nullptr) {
            SplitCells(row, cells_);
            if (isOpen_) {
                ReadCells(row);
            } else {
                Open(row);
            }
        }
    }

    /// The table at hand is over.
    void End() {
        if (isOpen_) {
            TellHeading();
            listener_.OnTableEnd();
        }
        isOpen_ = false;
        form_ = nullptr;
    }

private:
    void ReadText(std::string_view row) {
        if (const TableForm* const form = FormOfTitle(row)) {
            End();
            form_ = form;
            titleRow_ = row;
        } else if (isOpen_) {
            strays_.push_back(row);
        } else if (!NamesCurrency(row)) {
            form_ = nullptr;
        }
    }

    void Open(std::string_view row) {
        columns_.fill(kNoColumn);
        ranks_.fill(kNoColumn);
        strays_.clear();
        width_ = cells_.size();
        heading_ = WordsOf();
        hasTold_ = false;
        isOpen_ = true;
        listener_.OnTable({.kind = form_->kind, .titleRow = titleRow_, .headingRow = row, .columns = width_});
        if (!TakeHeading()) End();
    }

    [[nodiscard]] std::vector<std::string> WordsOf() const {
        std::vector<std::string> words;
        words.reserve(cells_.size());
        for (const std::string_view cell : cells_) words.push_back(WordOf(cell));
        return words;
    }

    /// Gives the columns of the row at hand to fields that have none. Returns whether it names any.
    bool TakeHeading() {
        const auto before = columns_;
        bool isKnown = false;
        for (std::size_t i = 0; i < cells_.size(); ++i) {
            const auto found = std::ranges::find(form_->words, WordOf(cells_[i]), &HeadingWord::word);
            if (found == form_->words.end()) continue;
            isKnown = true;
            const auto rank = static_cast<std::size_t>(found - form_->words.begin());
            if (before[found->field] != kNoColumn || rank >= ranks_[found->field]) continue;
            columns_[found->field] = i;
            ranks_[found->field] = rank;
        }
        return isKnown;
    }

    void TellHeading() {
        if (hasTold_) return;
        hasTold_ = true;
        std::array<bool, kMostFields> known{};
        std::ranges::transform(std::span(columns_).first<kMostFields>(), known.begin(),
                               [](std::size_t column) { return column != kNoColumn; });
        listener_.OnHeading(std::span(known).first(form_->fields));
    }

    void ReadCells(std::string_view row) {
        if (IsTotal(cells_)) {
            TellHeading();
            listener_.OnTotal(row);
            return End();
        }
        if (!HasDigit(row)) return ReadWords(row);
        TellHeading();
        for (const std::string_view stray : strays_) listener_.OnOddRow(stray, 1);
        strays_.clear();
        if (cells_.size() != width_) return listener_.OnOddRow(row, cells_.size());
        HandOn(row);
    }

    /// A row without any digit is no data: the second row of a heading, the heading again on a new page, or that of
    /// another table, whose title isn't known.
    void ReadWords(std::string_view row) {
        if (WordsOf() == heading_) {
            strays_.clear();
        } else if (!strays_.empty()) {
            End();
        } else if (hasTold_ || !TakeHeading()) {
            TellHeading();
            listener_.OnOddRow(row, cells_.size());
        }
    }

    void HandOn(std::string_view row) {
        std::array<std::string_view, kMostFields> fields;
        const auto cellOf = [&](std::size_t field) {
            return columns_[field] == kNoColumn ? std::string_view() : cells_[columns_[field]];
        };
        for (std::size_t field = 0; field < form_->fields; ++field) fields[field] = cellOf(field);
        listener_.OnRow({.row = row,
                         .cells = cells_,
                         .fields = std::span(fields).first(form_->fields),
                         .currency = cellOf(kCurrency)});
    }

    CSideTableListener& listener_;
    const TableForm* form_ = nullptr;  // of the table at hand, from its title on
    std::string_view titleRow_;
    bool isOpen_ = false;   // its heading has come
    bool hasTold_ = false;  // of the heading
    std::size_t width_ = 0;
    std::array<std::size_t, kMostFields + 1> columns_{};  // by field
    std::array<std::size_t, kMostFields + 1> ranks_{};    // of the words by which they were found
    std::vector<std::string> heading_;
    std::vector<std::string_view> cells_;   // of the row at hand
    std::vector<std::string_view> strays_;  // lines without bars behind the last row
};

}  // namespace

void ReadSideTables(std::string_view text, CSideTableListener& listener) {
    CSideTableScan scan(listener);
    while (!text.empty()) scan.ReadLine(Trim(TakeLine(text)));
    scan.End();
}

}  // namespace tradebill
