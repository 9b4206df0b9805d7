// What the readers tell whoever wants to know what they saw. A report has no listener and stays silent; `tradebill
// explain` is one. Views point into the statement's text, so a listener can tell their lines.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <variant>

#include "report/money_record.h"
#include "report/records.h"

namespace tradebill {

/// The last three are tables that the page has no place for (side_table_reader.h): layouts have no such section.
enum class SectionKind { Money, Trades, Closed, Open, Summary, Cash, Exercises, Deliveries };

/// In English, one word: "money", "trades", "closed", "open", "summary", "cash", "exercises" or "deliveries".
[[nodiscard]] std::string_view SectionName(SectionKind kind);

/// What became of a data row.
enum class RowFate {
    Read,         ///< it made a record or gave values
    TooShort,     ///< fewer columns than the section needs
    NoLots,       ///< no lots on either side
    Subtotal,     ///< a subtotal or a count between data rows
    Heading,      ///< names the exchange of the rows below
    FirstOfPair,  ///< the first of the two rows of a closed position: only the second counts
    Rule,         ///< a rule, of dashes and bars alone
};

/// A row's fate and, for a short one, how many columns it should have had.
struct RowVerdict {
    RowFate fate = RowFate::Read;
    std::size_t needed = 0;
};

/// Columns of a row; never empty ones. They point into the statement's text.
using Row = std::span<const std::string_view>;

/// A record that is about to be handed over, with all its fields.
using RecordSeen = std::variant<const MatchRecord*, const PingDetail*, const OpiDetail*, const OpiSum*>;

/// A section that was looked for.
struct SectionSeen {
    SectionKind kind;
    std::string_view titleWord;
    std::string_view terminatorWord;       ///< empty: every row contains it
    std::string_view otherTerminatorWord;  ///< a second word that ends it as well, or empty
    bool needsTerminator = true;           ///< false: the section is read without looking for its end
    std::string_view delimiter = {};       ///< between two columns
    bool stripsBars = false;               ///< rows lose leading and trailing "|" before they are split
    std::size_t minColumns = 0;            ///< shorter rows make no record
    std::string_view titleRow;             ///< empty: not found
    std::string_view terminatorRow;        ///< empty: not found, or not looked for
};

/// A column of a section from which a field is filled.
struct ColumnSeen {
    std::size_t column;      ///< counted from 0
    std::string_view field;  ///< a name of report/record_fields.h
    bool isAmount;           ///< it is read as a number
    bool mayLack = false;    ///< the layout prints it in some statements only
};

/// What stands behind a label of the money section.
struct LabelledValue {
    std::string_view field;    ///< a name of report/record_fields.h
    std::string_view printed;  ///< points into the statement's text
    std::string_view kept;     ///< what the reader takes of it
};

/// What came of the request's template.
struct TemplateSeen {
    enum class Outcome {
        NoFile,      ///< a fixed reader reads the statement
        KnownDay,    ///< a statement of its date has been read: it is passed over
        Incomplete,  ///< declined: a fixed reader reads the whole statement again
        Read,
    };
    Outcome outcome;
    bool newScheme = false;            ///< the day is at or behind the template's change date
    std::string_view section = {};     ///< the incomplete one
    std::string_view missingKey = {};  ///< what it lacks
};

/// Told in the order of reading: a reader's name, its date, then each section with its rows and records. A template's
/// reading has no name and is summed up when it is over: OnTemplate comes last of it. A listener changes nothing in
/// what is read.
class CScanListener {
public:
    CScanListener() = default;
    CScanListener(const CScanListener&) = delete;
    CScanListener& operator=(const CScanListener&) = delete;
    virtual ~CScanListener() = default;

    virtual void OnTemplate(const TemplateSeen& seen) = 0;
    virtual void OnReader(std::string_view layout) = 0;  ///< a name of the layout table
    virtual void OnDate(std::string_view dateWord, std::string_view date) = 0;
    virtual void OnSection(const SectionSeen& seen) = 0;
    /// Which columns the rows of the section at hand are read by, from here on.
    virtual void OnColumns(std::span<const ColumnSeen> /*columns*/) {}
    /// A row that was looked at, behind its records. `columns` are valid during the call; a subtotal isn't split.
    virtual void OnRow(std::string_view row, Row columns, const RowVerdict& verdict) = 0;
    virtual void OnLabelWanted(std::string_view label) = 0;  ///< the money section at hand looks for it
    virtual void OnLabelMet(std::string_view label) = 0;
    /// An amount that the money section at hand states behind a label.
    virtual void OnLabelledValue(const LabelledValue& /*value*/) {}
    /// A money record is about to be handed over; `currency` is empty for that of a domestic account.
    virtual void OnMoney(const MoneyRecord& record, std::string_view currency) = 0;
    virtual void OnRecord(const RecordSeen& record) = 0;  ///< a row's record is
    /// An error is about to leave the reading of the section at hand, at `row`, which nothing has been told of. Empty:
    /// at one that the text doesn't have.
    virtual void OnStop(std::string_view /*row*/) {}
};

}  // namespace tradebill
