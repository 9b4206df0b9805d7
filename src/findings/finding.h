// The room of findings: what is wrong or doubtful in what was read. statement_watch.h listens to the reading of a run
// and keeps what the checks need; account_findings.h runs the checks when all days are read and gives the findings;
// finding_table.h tells what each code means. Nothing here changes a report or a statement.
#pragma once

#include <optional>
#include <string>

#include "readers/scan_listener.h"

namespace tradebill {

enum class Severity {
    Error,    ///< figures of the report are false or missing
    Warning,  ///< they are doubtful
    Note,     ///< worth knowing; nothing is wrong
};

/// In the order of the table.
enum class FindingCode {
    Unreadable,
    Empty,
    NotAFile,
    Encoding,
    Unrecognised,
    CutOff,
    SectionMissing,
    RowSkipped,
    Shifted,
    Totals,
    Identity,
    Available,
    MoneyRows,
    Currency,
    Continuity,
    Gap,
    Lots,
    WrongAccount,
    WrongDay,
    Repeated,
    Unit,
    Template,
    Live,
    Opening,
};

/// One thing that was found. All texts are UTF-8.
struct Finding {
    FindingCode code;
    Severity severity;
    std::string day = {};   ///< of the file's name, yyyymmdd; of two files the later; empty: of the run as a whole
    std::string file = {};  ///< its base name; empty: of the run as a whole
    std::optional<int> row = {};  ///< line of the file from 1
    std::optional<SectionKind> section = {};
    std::string expected = {};
    std::string found = {};
    std::string text = {};  ///< one sentence on what is wrong, one on what to do
};

}  // namespace tradebill
