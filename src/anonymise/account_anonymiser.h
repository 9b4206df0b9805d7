// One account's statements, changed so that nobody is known by them: layout, columns, widths, lots and every identity
// stay; numbers of account, client and trades, names, prices and amounts don't.
//
// sheet_watch.h hears from the readers where they find what; statement_sheet.h makes cells of it and of what no reader
// reads, by cell_meaning.h. table_amounts.h changes the rows, table_totals.h and money_amounts.h what follows from
// them, free_text.h the lines beside the tables. A copy is read again before it is handed out: what its reader makes of
// it must be what it made of the original.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "anonymise/amount_text.h"
#include "anonymise/free_text.h"
#include "anonymise/identity_map.h"
#include "anonymise/unit_book.h"
#include "driver/report_request.h"
#include "report/money_identity.h"
#include "report/printed_money.h"

namespace tradebill {

class CSheetWatch;
struct StatementSheet;

struct AnonymiseSettings {
    std::uint64_t seed = 0;  ///< the same seed and statements make the same copy
    int shiftWeeks = 0;      ///< by which all dates are moved
};

/// One day's statement.
struct DayStatement {
    std::string day;  ///< yyyymmdd
    std::string text;
};

/// A statement that has no copy.
struct LeftOutStatement {
    std::string day;
    std::string reason;  ///< a part of a sentence
};

struct AnonymisedStatement {
    std::string from;  ///< day of the original
    std::string day;   ///< of the copy
    std::string text;
};

struct AnonymisedAccount {
    std::vector<AnonymisedStatement> statements;  ///< in the order of their days
    std::vector<LeftOutStatement> leftOut;
};

/// The template that statements are read by went away, or can't be read; what() is a part of a sentence that names it.
class CLostTemplate : public std::runtime_error {
public:
    explicit CLostTemplate(const std::string& path, const std::string& reason = {})
        : std::runtime_error("can't read " + path + (reason.empty() ? "" : ": " + reason)) {}
};

/// The template that statements are read by.
struct TemplateSource {
    std::string path = {};          ///< empty: none is looked for
    std::string_view carried = {};  ///< INI text where no file is there; empty: there must be one
};

/// Without their template statements would be read as others than they are, so nothing is copied then: Add and Make
/// throw CLostTemplate.
class CAccountAnonymiser {
public:
    /// The request says how statements are read, and `source` by which template. Its account becomes
    /// `account` in the copy.
    CAccountAnonymiser(const GenerateBillRequest& request, TemplateSource source, const AnonymiseSettings& settings,
                       std::string_view account);

    /// Takes a statement, all bytes of its file. One that can't be read as a whole is left out.
    ///
    /// REQUIRES: days come in their order.
    void Add(DayStatement statement);

    /// The copies of all that were taken.
    [[nodiscard]] AnonymisedAccount Make();

private:
    /// What one factor makes of all statements, with the dates of the originals.
    struct Attempt {
        std::vector<std::string> copies;
        std::size_t sameAmounts = 0;            ///< that came out as they were: sums of a few small ones
        std::optional<std::size_t> unfit = {};  ///< the statement in which a number doesn't fit into its column
    };

    [[nodiscard]] std::optional<std::string> WhyLeftOut(const DayStatement& statement);
    void Read(const DayStatement& statement, CSheetWatch& watch) const;
    void Learn(const DayStatement& statement, const CSheetWatch& watch);
    [[nodiscard]] std::vector<std::size_t> OriginsOfFiles() const;
    [[nodiscard]] Attempt TryFactor(const CAmountFactor& factor);
    [[nodiscard]] Attempt MakeCopies();
    [[nodiscard]] bool Write(const StatementSheet& sheet, std::string& text);
    [[nodiscard]] bool KeepsShape(const DayStatement& statement, const std::string& copy) const;
    [[nodiscard]] MoneyIdentity Identity() const;
    void ShiftDates(const DayStatement& statement, std::string& copy);

    GenerateBillRequest request_;
    TemplateSource template_;
    AnonymiseSettings settings_;
    std::vector<DayStatement> statements_;
    std::vector<LeftOutStatement> leftOut_;
    CIdentityMap identities_;
    CKnownNames names_;
    CUnitBook units_;
    PrintedMoneyList printed_;
};

}  // namespace tradebill
