// Which form of the balance an account keeps: counters print the same figures and add them up in different ways.
#pragma once

namespace tradebill {

class CReport;

/// Sets the report's MoneyIdentity by its PrintedMoney: of all forms the one that most statements keep, if these are
/// four of five at least, of five at least. Does nothing for the foreign family, whose form is known.
///
/// REQUIRES: all days are read.
void FindMoneyIdentity(CReport& report);

}  // namespace tradebill
