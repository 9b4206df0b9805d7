// What one section of a statement showed: kept until all days are read, since only the account's other statements tell
// what is usual.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "readers/scan_listener.h"

namespace tradebill {

/// Rows of a section that stand together and have as many columns more or less than its heading.
struct RowRun {
    std::vector<int> rows;  ///< lines of the file
    int columnsBeyond = 0;  ///< columns less those of the heading
    int columns = 0;
};

/// A row that is wrong by itself.
struct RowFault {
    enum class Kind {
        NoRecord,  ///< it made none
        NoAmount,  ///< a text stands where the layout has an amount
    };
    Kind kind;
    int row = 0;
    int columns = 0;
    int columnsBeyond = 0;
    std::string expected;  ///< UTF-8
    std::string found;
};

/// A row of totals that doesn't agree with the rows above it.
struct TotalFault {
    int row = 0;
    std::string expected;  ///< what the rows add up to; UTF-8
    std::string found;     ///< what is printed
    bool isWithinRounding = false;
};

struct SectionFacts {
    SectionKind kind = SectionKind::Money;
    bool hasTitle = false;
    bool hasEnd = false;      ///< or needs none
    int titleRow = 0;         ///< 0 without a title
    std::string titleWord;    ///< GBK
    bool isLabelled = false;  ///< a block of labels and values
    int rowsRead = 0;
    int totalColumns = 0;  ///< amounts in its row of totals
    int totalRow = 0;      ///< its line, or 0
    std::vector<RowRun> runs;
    std::vector<RowFault> faults;
    std::vector<TotalFault> totals;

    [[nodiscard]] bool IsFound() const { return hasTitle && hasEnd; }
};

}  // namespace tradebill
