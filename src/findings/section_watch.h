// Watches the rows of one section while they are read.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "base/line_counter.h"
#include "findings/record_amounts.h"
#include "findings/section_facts.h"
#include "findings/section_totals.h"
#include "readers/scan_listener.h"

namespace tradebill {

/// How long a record that is told can be looked at.
enum class RecordLife { Stays, EndsWithRow };

class CSectionWatch {
public:
    /// Begins with a section that was looked for. `seen` is needed until End, `text` is all of the statement.
    void Begin(const SectionSeen& seen, std::string_view text, RecordLife life);

    /// Forgets what sections of the same kind have in common: those of another layout come.
    void Forget() { known_ = {}; }

    void OnColumns(std::span<const ColumnSeen> columns);
    void OnLabelWanted() { facts_.isLabelled = true; }
    /// A record of the row that is told next.
    void OnRecord(const RecordSeen& record);
    void OnRow(std::string_view row, Row columns, const RowVerdict& verdict, CLineCounter& lines);
    void OnLots(int lots) { totals_.AddLots(lots); }

    /// Forgets the section that is open, if one is.
    void Drop() { isOpen_ = false; }

    /// What was seen; the watch is ready for the next section.
    [[nodiscard]] SectionFacts End(CLineCounter& lines);

    [[nodiscard]] bool IsOpen() const { return isOpen_; }
    [[nodiscard]] SectionKind Kind() const { return seen_.kind; }

private:
    void TakeData(std::string_view row, Row columns, const RowVerdict& verdict, CLineCounter& lines);
    void TakeShape(std::string_view row, std::size_t columns, CLineCounter& lines);
    void TakeLostRow(std::string_view row, std::size_t columns, CLineCounter& lines);
    void LookForStrangeAmount(Row columns, bool areNumbers);
    void TellStrangeAmount(std::string_view row, std::size_t columns, CLineCounter& lines);
    [[nodiscard]] int Beyond(std::string_view row, std::size_t columns);
    void LookForUnreadRows(CLineCounter& lines);
    void LookForUnreadRows(std::string_view rows, CLineCounter& lines);
    void CompareTotals(CLineCounter& lines);
    void AddTotalFault(std::optional<TotalFault> fault, std::string_view row, CLineCounter& lines);
    /// `row`, a row of the text, with the blanks in front of it.
    [[nodiscard]] std::string_view LineWith(std::string_view row) const;
    /// The rows of the text between two of its rows.
    [[nodiscard]] std::string_view Between(std::string_view above, std::string_view below) const;

    /// What was found of the sections of a kind before, and needn't be looked at again: they look the same each day.
    struct Known {
        std::string heading;  ///< all between the title and the first row
        int headingColumns = 0;
        std::string soundHeading;  ///< one that has no row of data in it
    };
    [[nodiscard]] Known& KnownOfKind() { return known_[static_cast<std::size_t>(facts_.kind)]; }

    static constexpr std::size_t kKinds = 5;
    static constexpr std::size_t kMostColumns = 32;  ///< that are looked at
    std::array<Known, kKinds> known_;
    SectionSeen seen_{};
    RecordLife life_ = RecordLife::Stays;
    std::string_view text_;
    SectionFacts facts_;
    CSectionTotals totals_;
    std::string_view firstRow_;  ///< that was looked at
    std::string_view lastRow_;
    std::optional<int> headingColumns_;
    std::optional<StrangeAmount> strange_;  ///< in a record of the row at hand
    std::optional<RecordSeen> record_;      ///< of the row at hand, if it isn't looked at yet
    unsigned amounts_ = 0;                  ///< columns that the layout has for amounts, as bits
    bool tellsAmounts_ = false;             ///< they are numbers in the first row
    bool isOpen_ = false;
};

}  // namespace tradebill
