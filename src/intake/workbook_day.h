// What the monitoring centre's workbook of one day says, in its own terms.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tradebill {

struct Workbook;

// All amounts and prices count in 1/10000 (decimal.h); texts are UTF-8.

/// A trade of a future, or of an option, whose price is the premium.
struct DayTrade {
    std::string contract;
    std::string number;  ///< its last 12 digits
    bool isBuy = false;
    bool isOption = false;
    std::string hedge = {};
    std::int64_t price = 0;
    std::int64_t lots = 0;
    std::int64_t turnover = 0;  ///< of an option the premium
    std::string offset = {};    ///< empty: the sheet says nothing of it
    std::int64_t fee = 0;
    std::int64_t profit = 0;
};

struct DayClosing {
    std::string contract;
    std::string openNumber;  ///< of the trade that opened it, its last 12 digits
    bool isBuy = false;      ///< the trade that closed it
    std::int64_t price = 0;
    std::int64_t openPrice = 0;
    std::int64_t lots = 0;
    std::int64_t settledBefore = 0;
    std::int64_t profit = 0;
    std::optional<std::string> openDay = {};  ///< where the sheet has it
};

struct DayPosition {
    std::string contract;
    std::string number;  ///< of the trade that opened it, its last 12 digits; empty of an option
    bool isLong = false;
    bool isOption = false;
    std::string hedge = {};
    std::int64_t lots = 0;
    std::int64_t openPrice = 0;
    std::int64_t settledBefore = 0;
    std::int64_t settled = 0;
    std::int64_t profit = 0;
    std::optional<std::int64_t> margin = {};   ///< where the sheet has it
    std::optional<std::string> tradeDay = {};  ///< on which it was traded, where the sheet has it
};

/// Margin of all positions in a future.
struct DayMargin {
    std::string contract;
    std::int64_t margin = 0;
};

struct DayCash {
    std::string day;  ///< yyyymmdd
    std::string kind = {};
    std::int64_t in = 0;
    std::int64_t out = 0;
    std::string note = {};
};

struct DayMoney {
    std::int64_t opening = 0;
    std::int64_t cashFlow = 0;
    std::optional<std::int64_t> profit = {};
    std::optional<std::int64_t> premium = {};
    std::int64_t fees = 0;
    std::int64_t closing = 0;
    std::int64_t equity = 0;
    std::int64_t margin = 0;
    std::int64_t available = 0;
    std::int64_t frozen = 0;
    std::int64_t call = 0;
    std::string risk = {};
};

/// What the rows "合计" of the sheets say, added up; of a sheet that says nothing its rows.
struct DayTotals {
    std::int64_t tradeLots = 0;  ///< in 1/10000, as the other lots here
    std::int64_t tradeFees = 0;
    std::int64_t closedLots = 0;
    std::int64_t closedProfit = 0;
    std::int64_t positionProfit = 0;
};

struct WorkbookDay {
    std::optional<std::string> account = {};
    std::optional<std::string> day = {};  ///< yyyymmdd
    std::string client = {};
    std::string company = {};
    DayMoney money = {};
    DayTotals totals = {};
    std::vector<DayCash> cash = {};
    std::vector<DayTrade> trades = {};
    std::vector<DayClosing> closings = {};
    std::vector<DayPosition> positions = {};
    std::optional<std::vector<DayMargin>> margins = {};
    std::string refusal = {};  ///< why it is no such workbook, or can't be read as one, a sentence; empty: it is
};

/// Reads a workbook in the mark-to-market form. Whatever has no number where one must stand refuses it.
[[nodiscard]] WorkbookDay ReadWorkbookDay(const Workbook& workbook);

}  // namespace tradebill
