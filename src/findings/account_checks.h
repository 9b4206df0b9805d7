// The checks that compare an account's statements with each other. Each adds what it finds.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "findings/finding.h"
#include "findings/section_facts.h"
#include "findings/statement_facts.h"
#include "readers/scan_listener.h"
#include "report/printed_money.h"

namespace tradebill {

class CReport;

using StatementList = std::vector<StatementFacts>;

/// A finding about one statement, of its code's usual severity.
[[nodiscard]] Finding FindingAbout(const StatementFacts& statement, FindingCode code);

/// The money figures that a statement prints, one for each currency.
[[nodiscard]] std::span<const PrintedMoney> MoneyOf(const CReport& report, const StatementFacts& statement);

/// Those of `currency` (GBK), or null.
[[nodiscard]] const PrintedMoney* FindMoney(const CReport& report, const StatementFacts& statement,
                                            std::string_view currency);

/// A row that is wrong by itself. `isShifted` tells it from one that is no row of its section at all.
[[nodiscard]] Finding FindingOfRow(const StatementFacts& statement, SectionKind section, const RowFault& fault,
                                   bool isShifted);

/// Adds one for each row of totals of `section` that doesn't agree with the rows above it.
void TellTotals(const StatementFacts& statement, const SectionFacts& section, std::vector<Finding>& findings);

/// Rows that are shifted or made no record, and totals.
void CheckRows(const StatementList& statements, std::vector<Finding>& findings);

/// Sections that are missing, and files that end in a row of totals.
void CheckSections(const CReport& report, const StatementList& statements, std::vector<Finding>& findings);

/// The account's balance and its available funds, day by day.
void CheckMoney(const CReport& report, const StatementList& statements, std::vector<Finding>& findings);

/// The tables beside the page's own: rows that can't be read, totals, and the money figures that they add up to.
void CheckSideTables(const CReport& report, const StatementList& statements, std::vector<Finding>& findings);

/// Days against the days before them: missing ones, balances, open lots, and statements that came twice.
///
/// REQUIRES: `findings` has those of CheckSections.
void CheckDays(const CReport& report, const StatementList& statements, std::vector<Finding>& findings);

}  // namespace tradebill
