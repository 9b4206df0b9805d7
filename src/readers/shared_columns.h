// Columns that several layouts print alike: trades of the two headed by a block of funds (class and status), and the
// detail of open positions in these and in the sheets with spaced titles.
#pragma once

#include "readers/columns.h"
#include "report/records.h"

namespace tradebill {

// clang-format off
inline constexpr Column<MatchRecord> kFundTradeColumns[] = {
    {Slot<&MatchRecord::MATCH_DATE>,   0},
    {Slot<&MatchRecord::EXCH_NAME>,    1},
    {Slot<&MatchRecord::CONTRACT>,     2},
    {Slot<&MatchRecord::DELIVERY>,     3},
    {Slot<&MatchRecord::BID>,          4},
    {Slot<&MatchRecord::OFFSET>,       5},
    {Slot<&MatchRecord::MATCH_PRICE>,  6},
    {Slot<&MatchRecord::MATCH_VOL>,    7},
    {Slot<&MatchRecord::TURNOVER>,     8},
    {Slot<&MatchRecord::POUNDAGE>,     9},
    {Slot<&MatchRecord::OFFSETPL>,    10},
    {Slot<&MatchRecord::HEDGE>,       11},
};

inline constexpr Column<OpiDetail> kOpenDetailColumns[] = {
    {Slot<&OpiDetail::EXCH_NAME>,      0},
    {Slot<&OpiDetail::CONTRACT>,       1},
    {Slot<&OpiDetail::DELIVERY>,       2},
    {Slot<&OpiDetail::OPEN_DATE>,      3},
    {Slot<&OpiDetail::BID>,            4},
    {Slot<&OpiDetail::HEDGE>,          5},
    {Slot<&OpiDetail::POSITION_VOL>,   6},
    {Slot<&OpiDetail::OPEN_PRICE>,     7},
    {Slot<&OpiDetail::YSETTLE_PRICE>,  8},
    {Slot<&OpiDetail::SETTLE_PRICE>,   9},
    {Slot<&OpiDetail::FLOATPL>,       10},
    {Slot<&OpiDetail::DSYK>,          11},
    {Slot<&OpiDetail::DEPOSIT>,       12},
};
// clang-format on

}  // namespace tradebill
