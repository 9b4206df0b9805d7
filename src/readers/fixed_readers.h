// The readers of fixed layouts, which the layout table lists (layout_table.h).
#pragma once

#include "readers/statement_text.h"

namespace tradebill {

void ReadFundClassStatement(const StatementText& statement, CReport& report);
void ReadFundStatusStatement(const StatementText& statement, CReport& report);
void ReadFundStatusPremiumStatement(const StatementText& statement, CReport& report);
void ReadTabulatedStatement(const StatementText& statement, CReport& report);
void ReadClientBillStatement(const StatementText& statement, CReport& report);
void ReadClientBillPremiumStatement(const StatementText& statement, CReport& report);
void ReadSpacedTitleStatement(const StatementText& statement, CReport& report);
void ReadSpacedTitlePremiumStatement(const StatementText& statement, CReport& report);

/// Hands over to ReadBilingualStatementNew from the change date of the statement's template on. Throws CReportError for
/// a change date that is no date.
void ReadBilingualStatement(const StatementText& statement, CReport& report);
void ReadBilingualStatementNew(const StatementText& statement, CReport& report);

/// The foreign family's reader.
void ReadForeignStatement(const StatementText& statement, CReport& report);

}  // namespace tradebill
