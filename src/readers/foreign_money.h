// The money blocks of a foreign statement: one column of figures per currency.
#pragma once

#include <string_view>

#include "readers/section_scan.h"

namespace tradebill {

/// Reads all blocks. The first currency of the first block is the account itself and goes to MoneyStore; every currency
/// goes to CurrencyMoneyStore, its name the key.
void ReadForeignMoney(std::string_view day, CSectionScan& scan);

}  // namespace tradebill
