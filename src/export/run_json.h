// What tells one run from another in the JSON: what it was asked, what it read, and the page that came of it. Neither
// a time nor a folder stands there: the same files make the same bytes, wherever they lie.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "export/file_digest.h"

namespace tradebill {

class CJsonText;
class CReport;

/// A day's statement that was read.
struct StatementRead {
    std::string day;     ///< of the file's name, yyyymmdd
    std::string layout;  ///< whose reader had the last word, or "template"; empty: nobody read it
    FileDigest file;
};

/// Another file that decided what the report says.
struct InputRead {
    std::string kind;  ///< "request", "units", "carriedUnits" (the program's own), "products", "live", "chains",
                       ///< "template" or "carriedTemplate"
    FileDigest file;
};

/// What a run read and left.
struct RunFacts {
    int days = 0;  ///< walked
    std::vector<StatementRead> statements;
    std::vector<InputRead> inputs;
    std::optional<FileDigest> page;
};

/// The object "run".
void WriteRun(CJsonText& json, const CReport& report, const RunFacts& run);

}  // namespace tradebill
