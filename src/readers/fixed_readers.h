// The readers of formats 0, 1 and 3 without options. `day` is the statement file's day, yyyymmdd, and BILL_DATE of the
// records unless the layout states its own date; `text` is the whole statement.
#pragma once

#include <string_view>

namespace tradebill {

void ReadFundClassStatement(std::string_view day, std::string_view text);          ///< format 0
void ReadFundStatusStatement(std::string_view day, std::string_view text);         ///< format 1
void ReadFundStatusPremiumStatement(std::string_view day, std::string_view text);  ///< format 1 with options
void ReadTabulatedStatement(std::string_view day, std::string_view text);          ///< format 3

}  // namespace tradebill
