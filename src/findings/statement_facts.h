// What one statement showed, kept until all days are read.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "findings/finding.h"
#include "findings/lots_book.h"
#include "findings/section_facts.h"
#include "findings/side_table_watch.h"
#include "readers/scan_listener.h"
#include "readers/statement_loader.h"

namespace tradebill {

struct StatementFacts {
    std::string day;        ///< of the file's name, yyyymmdd
    std::string file;       ///< base name
    bool isUsable = false;  ///< it was read, and is of the account's layout
    bool isEnded = false;   ///< no error ended the reading

    std::vector<Finding> findings;  ///< that need no other statement

    std::uint64_t hash = 0;
    std::size_t size = 0;
    bool statesDay = false;
    bool hasTrades = false;
    bool hasClosingTrades = false;
    bool expectsLots = false;  ///< there must be open positions

    std::string layout;  ///< of the reader
    std::vector<SectionFacts> sections;
    std::vector<SideTableFacts> sideTables;  ///< none in runs that don't ask for them
    bool isCutOff = false;
    bool endsInLine = false;  ///< no line end behind the last row
    int lastRow = 0;          ///< that isn't blank

    bool hasMoney = false;       ///< a money record was made
    bool lacksLabels = false;    ///< and none of the labels stands in the statement that its layout looks for
    bool lacksEquity = false;    ///< and no equity is in it, though the statement prints one
    std::string otherOptions;    ///< of layouts that a statement without labels looks like, as a user gives them
    std::size_t firstMoney = 0;  ///< its figures in the report's PrintedMoney
    std::size_t moneyCount = 0;
    std::vector<LotsFault> lots;  ///< compared with the usable statement before

    [[nodiscard]] const SectionFacts* Section(SectionKind kind) const {
        const SectionFacts* best = nullptr;
        for (const SectionFacts& section : sections) {
            if (section.kind == kind && (best == nullptr || (!best->IsFound() && section.hasTitle))) best = &section;
        }
        return best;
    }
};

}  // namespace tradebill
