// Made-up statements of format 1 in any number, the same every time.
#pragma once

#include <string>

#include "made_trading.h"

namespace tradebill {

/// Makes the statements of one account, day after day.
class CStatementMaker {
public:
    explicit CStatementMaker(TradingShape shape) : trading_(shape) {}

    /// The next day's statement: GBK with CRLF. `day` is yyyymmdd.
    [[nodiscard]] std::string Next(const std::string& day);

private:
    CMadeTrading trading_;
};

}  // namespace tradebill
