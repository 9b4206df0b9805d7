// One statement as its reader gets it, and the date that it states of itself.
#pragma once

#include <optional>
#include <string_view>

#include "readers/scan_listener.h"

namespace tradebill {

class CReport;
class CStatementTemplate;

struct StatementText {
    std::string_view day;                            ///< of the statement's file, yyyymmdd
    std::string_view text;                           ///< GBK, all of it
    const CStatementTemplate* byTemplate = nullptr;  ///< of the request; null if there is none
    CScanListener* listener = nullptr;               ///< hears what was found; null: nobody does
    /// Tables of other kinds are found, but their rows are passed over. A money record is made all the same, by which
    /// its day is known, with the figures that stand in rows of their own.
    std::optional<SectionKind> onlyRows = {};
};

/// The one shape of all readers, so that they fit into a table. What a statement lacks or has otherwise is passed over.
/// BILL_DATE of the records is the day of the file, or what stands behind the layout's date word: nothing if that is
/// missing.
using Reader = void(const StatementText& statement, CReport& report);

/// The digits, dots and blanks behind the first `dateWord` of `text`, as they stand; nothing if the word is missing or
/// is the very start of the text.
[[nodiscard]] std::optional<std::string_view> FindDate(std::string_view text, std::string_view dateWord);

/// The same, the empty text for nothing.
[[nodiscard]] std::string_view ScanDate(std::string_view text, std::string_view dateWord);

}  // namespace tradebill
