// The readers of fixed layouts. `day` is the statement file's day, yyyymmdd, and BILL_DATE of the records unless the
// layout states its own date; `text` is the whole statement. A listener hears what was found.
#pragma once

#include <string_view>

namespace tradebill {

class CScanListener;

/// The one shape of all of them, so that they fit into a table.
using Reader = void(std::string_view day, std::string_view text, CScanListener* listener);

void ReadFundClassStatement(std::string_view day, std::string_view text, CScanListener* listener = nullptr);
void ReadFundStatusStatement(std::string_view day, std::string_view text, CScanListener* listener = nullptr);
void ReadFundStatusPremiumStatement(std::string_view day, std::string_view text, CScanListener* listener = nullptr);
void ReadTabulatedStatement(std::string_view day, std::string_view text, CScanListener* listener = nullptr);
void ReadClientBillStatement(std::string_view day, std::string_view text, CScanListener* listener = nullptr);
void ReadClientBillPremiumStatement(std::string_view day, std::string_view text, CScanListener* listener = nullptr);
void ReadSpacedTitleStatement(std::string_view day, std::string_view text, CScanListener* listener = nullptr);
void ReadSpacedTitlePremiumStatement(std::string_view day, std::string_view text, CScanListener* listener = nullptr);

/// Hands over to ReadBilingualStatementNew from the change date of the request's template on. Throws CReportError for a
/// change date that is no date.
void ReadBilingualStatement(std::string_view day, std::string_view text, CScanListener* listener = nullptr);
void ReadBilingualStatementNew(std::string_view day, std::string_view text, CScanListener* listener = nullptr);

/// The foreign family's reader.
void ReadForeignStatement(std::string_view day, std::string_view text, CScanListener* listener = nullptr);

}  // namespace tradebill
