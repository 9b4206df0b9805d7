// The rows of a settlement statement, as the statement spelled them, and the tally of one contract's closed positions.
//
// Every text field is zero-terminated GBK of fixed width: longer values are cut, absent ones stay empty, and all code
// reads an empty amount as 0. A value-initialised record (`T{}`) is a cleared one. MoneyRecord stands in its own
// header, since hosts pass it in memory.
#pragma once

#include <cstdint>

#include "report/money_record.h"

namespace tradebill {

/// A cleared MoneyRecord: texts empty, rate 1.0.
[[nodiscard]] constexpr MoneyRecord ClearedMoneyRecord() {
    MoneyRecord record{};
    record.EXCHANGE_RATE = 1.0;
    return record;
}

/// One trade.
struct MatchRecord {
    char BILL_DATE[9];     ///< day of the statement, yyyymmdd; never a date read from the row
    char MATCH_DATE[9];    ///< trade date of the row
    char EXCH_NAME[81];    ///< exchange
    char CONTRACT[81];     ///< contract or product
    char DELIVERY[9];      ///< delivery month
    char HEDGE[9];         ///< speculation or hedge mark
    char BID[9];           ///< side of the trade
    char MATCH_PRICE[16];  ///< trade price
    char MATCH_VOL[16];    ///< lots
    char TURNOVER[16];
    char OFFSET[9];     ///< open or close mark
    char POUNDAGE[16];  ///< fee
    char OFFSETPL[16];  ///< realised P/L of the trade
    char MATCHNO[16];   ///< trade number
    char ROYALTY[16];   ///< option premium
    char CURRENCY[16];  ///< foreign family only
};

/// One closed position.
struct PingDetail {
    char BILL_DATE[9];
    char MATCH_DATE[9];  ///< date of the closing trade
    char EXCH_NAME[81];
    char CONTRACT[81];
    char DELIVERY[9];
    char BID[9];           ///< side of the position that was closed, not of the closing trade
    char MATCH_PRICE[16];  ///< closing price
    char MATCH_VOL[16];    ///< lots closed
    char OPEN_DATE[16];
    char OPEN_PRICE[16];
    char SETTLE_PRICE[16];
    char POUNDAGE[16];
    char HEDGE[9];
    char OFFSETPL[16];  ///< realised P/L as the statement prints it
    char CURRENCY[16];
};

/// One open-position lot.
struct OpiDetail {
    char BILL_DATE[9];
    char EXCH_NAME[81];
    char CONTRACT[81];
    char DELIVERY[9];
    char OPEN_DATE[9];
    char HEDGE[9];
    char BID[9];            ///< side of the position
    char POSITION_VOL[16];  ///< lots held
    char OPEN_PRICE[16];
    char YSETTLE_PRICE[16];  ///< previous settlement price
    char SETTLE_PRICE[16];
    char FLOATPL[16];  ///< floating P/L
    char DSYK[16];     ///< mark-to-market P/L
    char DEPOSIT[16];  ///< margin
    char CURRENCY[16];
};

/// One side of one contract in the summary of open positions.
struct OpiSum {
    char BILL_DATE[9];
    char EXCH_NAME[81];
    char CONTRACT[81];
    char DELIVERY[9];
    char BID[9];                ///< "买" or "卖", set by the reader
    char BID_POSITION_VOL[16];  ///< buy lots of a row that shows both sides; read by nothing
    char SPARE_OPI_1[16];
    char ASK_POSITION_VOL[16];  ///< sell lots of such a row; read by nothing
    char SPARE_OPI_2[16];
    char POSITION_VOL[16];    ///< lots of this side
    char POSITION_PRICE[16];  ///< average price of this side
    char YSETTLE_PRICE[16];
    char SETTLE_PRICE[16];
    char DSYK[16];
    char DEPOSIT[16];
    char HEDGE[9];
};

/// The closed positions of one contract, added up. The foreign family fills the long fields alone.
struct ContractOffset {
    char CONTRACT[81];  ///< as first seen
    char DELIVERY[9];   ///< as first seen
    char CURRENCY[16];  ///< of the first row, foreign family only
    std::int32_t LONG_VOL;
    std::int32_t SHORT_VOL;
    double LONG_PL;
    double SHORT_PL;
    std::int32_t LONG_COUNT;
    std::int32_t SHORT_COUNT;
    std::int32_t LONG_WIN_COUNT;
    std::int32_t SHORT_WIN_COUNT;
    std::int32_t LONG_WIN_VOL;
    std::int32_t SHORT_WIN_VOL;
    double LONG_WIN_PL;
    double SHORT_WIN_PL;
    std::int32_t LONG_LOSE_COUNT;
    std::int32_t SHORT_LOSE_COUNT;
    std::int32_t LONG_LOSE_VOL;
    std::int32_t SHORT_LOSE_VOL;
    double LONG_LOSE_PL;
    double SHORT_LOSE_PL;
    double LONG_MAX_WIN;
    double LONG_MAX_LOSS;
    double SHORT_MAX_WIN;
    double SHORT_MAX_LOSS;
};

}  // namespace tradebill
