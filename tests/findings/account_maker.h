// Accounts made up by dice, whose figures are right by construction: days of trades, closed and open positions and the
// money that follows from them. account_pages.h prints them in a layout.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "base/day.h"

namespace tradebill {

class CDice {
public:
    explicit CDice(unsigned seed) : engine_(seed) {}

    /// From `least` to `most`, both included; the same for the same seed on every system.
    int Roll(int least, int most) {
        return least + static_cast<int>(engine_() % static_cast<unsigned>(most - least + 1));
    }
    bool OneIn(int chances) { return Roll(1, chances) == 1; }

private:
    std::mt19937 engine_;
};

struct MadeContract {
    std::string exchange;
    std::string product;
    std::string month;  ///< of an option also what follows it
    int unit;
    int price;  ///< that it begins with
    bool isOption = false;

    [[nodiscard]] std::string Code() const { return product + month; }
};

// Prices are whole numbers, money counts in cents.
struct MadeTrade {
    std::size_t contract;
    bool isBuy;
    bool opens;
    int price;
    int lots;
    std::int64_t turnover;
    std::int64_t fee;
    std::int64_t profit = 0;   ///< of a closing trade
    std::int64_t premium = 0;  ///< received, or paid if below 0
};

struct MadeClosing {
    std::size_t contract;
    bool isBuy;  ///< the closing trade
    int price;
    std::string openDay;
    int openPrice;
    int lots;
    int settledBefore;
    std::int64_t profit;
};

struct MadePosition {
    std::size_t contract;
    bool isLong;
    int lots;
    std::string openDay;
    int openPrice;
    int settledBefore = 0;
    int settled = 0;
    std::int64_t floating = 0;
    std::int64_t profit = 0;  ///< of the day
    std::int64_t margin = 0;
};

/// What one statement prints. The money figures are members of their own, so that one can be made false.
struct MadeDay {
    std::string day;
    std::vector<MadeTrade> trades;
    std::vector<MadeClosing> closings;
    std::vector<MadePosition> positions;
    std::int64_t opening = 0;
    std::int64_t deposits = 0;
    std::int64_t withdrawals = 0;
    std::int64_t closedProfit = 0;
    std::int64_t positionProfit = 0;
    std::int64_t fees = 0;
    std::int64_t exerciseFees = 0;
    std::int64_t premiumReceived = 0;
    std::int64_t premiumPaid = 0;
    std::int64_t closing = 0;
    std::int64_t equity = 0;
    std::int64_t margin = 0;
    std::int64_t available = 0;
    std::int64_t rounding = 0;  ///< cents that the balance is off
};

struct MadeAccount {
    std::vector<MadeContract> contracts;
    std::vector<MadeDay> days;
};

struct AccountWishes {
    int days = 12;
    bool hasOptions = false;
    bool hasExerciseFees = false;
    bool feesHoldExerciseFees = false;  ///< the fees that are printed contain them
    bool hasHoliday = true;             ///< some weekdays in a row without a statement
    bool hasQuietDays = true;           ///< days without trades
    bool isRounded = false;             ///< balances are off by a cent, as sums of rounded figures are
    bool leavesOutEmptyTables = false;
};

/// Adds up what `day` prints behind a day that closed with `before`.
inline void AddUpMoney(MadeDay& day, std::int64_t before, const AccountWishes& wishes) {
    day.fees = day.closedProfit = day.positionProfit = day.margin = day.premiumReceived = day.premiumPaid = 0;
    for (const MadeTrade& trade : day.trades) {
        day.fees += trade.fee;
        (trade.premium > 0 ? day.premiumReceived : day.premiumPaid) += std::abs(trade.premium);
    }
    for (const MadeClosing& closing : day.closings) day.closedProfit += closing.profit;
    for (const MadePosition& position : day.positions) {
        day.positionProfit += position.profit;
        day.margin += position.margin;
    }
    if (wishes.feesHoldExerciseFees) day.fees += day.exerciseFees;
    day.opening = before;
    day.closing = before + day.deposits - day.withdrawals + day.closedProfit + day.positionProfit - day.fees -
                  (wishes.feesHoldExerciseFees ? 0 : day.exerciseFees) + day.premiumReceived - day.premiumPaid +
                  day.rounding;
    day.equity = day.closing;
    day.available = day.equity - day.margin;
}

/// The same for all days behind one that was changed.
inline void AddUpMoney(MadeAccount& account, const AccountWishes& wishes) {
    std::int64_t balance = account.days.front().opening;
    for (MadeDay& day : account.days) {
        AddUpMoney(day, balance, wishes);
        balance = day.closing;
    }
}

/// Makes an account, day by day.
class CAccountMaker {
public:
    CAccountMaker(unsigned seed, const AccountWishes& wishes) : dice_(seed), wishes_(wishes) {
        account_.contracts = {{"大商所", "i", "2405", 100, 1000},
                              {"上期所", "rb", "2405", 10, 3900},
                              {"郑商所", "SR", "405", 10, 6300},
                              {"大商所", "m", "2405", 10, 3000}};
        if (wishes.hasOptions) {
            account_.contracts.push_back({"大商所", "m", "2405-C-3000", 10, 80, true});
            account_.contracts.push_back({"郑商所", "SR", "405P6100", 10, 60, true});
        }
        for (const MadeContract& contract : account_.contracts) settled_.push_back(contract.price);
        for (std::size_t i = 0; i < account_.contracts.size(); ++i) {
            if (dice_.OneIn(2)) open_.push_back({i, dice_.OneIn(2), dice_.Roll(1, 5), "20231229", settled_[i]});
        }
    }

    MadeAccount Make() {
        const int holiday = wishes_.hasHoliday ? dice_.Roll(2, wishes_.days - 2) : -1;
        CalendarDay date{2024, 1, 2};
        for (int i = 0; i < wishes_.days; ++i) {
            if (i == holiday) date = Later(date, dice_.Roll(2, 4));
            MakeDay(DayText(date));
            date = Later(date, 1);
        }
        return account_;
    }

private:
    /// `weekdays` after `date`, in January or February of 2024.
    static CalendarDay Later(CalendarDay date, int weekdays) {
        while (weekdays > 0) {
            if (++date.day > (date.month == 1 ? 31 : 29)) date = {date.year, date.month + 1, 1};
            // The first of January was a Monday.
            const int weekday = (date.day - 1 + (date.month == 2 ? 31 : 0)) % 7;
            if (weekday < 5) --weekdays;
        }
        return date;
    }

    void MakeDay(const std::string& day) {
        today_ = {};
        today_.day = day;
        std::vector<int> before = settled_;
        for (int& price : settled_) price = std::max(5, price + dice_.Roll(-price / 40 - 1, price / 40 + 1));
        if (!wishes_.hasQuietDays || !dice_.OneIn(4)) {
            for (int trades = dice_.Roll(1, 6); trades > 0; --trades) MakeTrade(before);
        }
        if (dice_.OneIn(5)) today_.deposits = dice_.Roll(1, 50) * 100000;
        if (dice_.OneIn(6)) today_.withdrawals = dice_.Roll(1, 20) * 100000;
        if (wishes_.hasExerciseFees && dice_.OneIn(2)) today_.exerciseFees = dice_.Roll(100, 999);
        MakePositions(before);
        if (wishes_.isRounded) today_.rounding = dice_.Roll(-1, 1);
        AddUpMoney(today_, balance_, wishes_);
        balance_ = today_.closing;
        account_.days.push_back(today_);
    }

    void MakeTrade(const std::vector<int>& before) {
        const auto contract = static_cast<std::size_t>(dice_.Roll(0, static_cast<int>(settled_.size()) - 1));
        const bool isBuy = dice_.OneIn(2);
        const int price = settled_[contract] + dice_.Roll(-3, 3);
        const int held = HeldOf(contract, !isBuy);
        const bool opens = held == 0 || dice_.OneIn(2);
        const int lots = opens ? dice_.Roll(1, 6) : dice_.Roll(1, held);
        MadeTrade trade{contract, isBuy, opens, price, lots, 0, dice_.Roll(100, 3999)};
        trade.turnover = std::int64_t{100} * price * lots * UnitOf(contract);
        if (IsOption(contract)) trade.premium = isBuy ? -trade.turnover : trade.turnover;
        if (opens) {
            open_.push_back({contract, isBuy, lots, today_.day, price});
        } else {
            trade.profit = Close(trade, before);
        }
        today_.trades.push_back(trade);
    }

    /// Takes the lots of a closing trade from the oldest positions. Returns what it gained.
    std::int64_t Close(const MadeTrade& trade, const std::vector<int>& before) {
        std::int64_t profit = 0;
        int left = trade.lots;
        for (MadePosition& position : open_) {
            if (position.contract != trade.contract || position.isLong == trade.isBuy || left == 0) continue;
            const int lots = std::min(left, position.lots);
            const int base = position.openDay == today_.day ? position.openPrice : before[trade.contract];
            const std::int64_t gain = Gain(trade.contract, position.isLong, base, trade.price, lots);
            today_.closings.push_back({trade.contract, trade.isBuy, trade.price, position.openDay, position.openPrice,
                                       lots, before[trade.contract], gain});
            position.lots -= lots;
            left -= lots;
            profit += gain;
        }
        std::erase_if(open_, [](const MadePosition& position) { return position.lots == 0; });
        return profit;
    }

    void MakePositions(const std::vector<int>& before) {
        for (MadePosition position : open_) {
            const std::size_t contract = position.contract;
            const int base = position.openDay == today_.day ? position.openPrice : before[contract];
            position.settledBefore = before[contract];
            position.settled = settled_[contract];
            position.profit = Gain(contract, position.isLong, base, position.settled, position.lots);
            position.floating = Gain(contract, position.isLong, position.openPrice, position.settled, position.lots);
            const bool isBoughtOption = IsOption(contract) && position.isLong;
            const std::int64_t value = std::int64_t{100} * position.settled * position.lots * UnitOf(contract);
            position.margin = isBoughtOption ? 0 : value / 10;
            today_.positions.push_back(position);
        }
    }

    /// Options are paid in full, and so gain nothing from day to day.
    [[nodiscard]] std::int64_t Gain(std::size_t contract, bool isLong, int from, int to, int lots) const {
        if (IsOption(contract)) return 0;
        return std::int64_t{100} * (isLong ? to - from : from - to) * lots * UnitOf(contract);
    }
    [[nodiscard]] bool IsOption(std::size_t contract) const { return account_.contracts[contract].isOption; }
    [[nodiscard]] int UnitOf(std::size_t contract) const { return account_.contracts[contract].unit; }
    [[nodiscard]] int HeldOf(std::size_t contract, bool isLong) const {
        int lots = 0;
        for (const MadePosition& position : open_) {
            if (position.contract == contract && position.isLong == isLong) lots += position.lots;
        }
        return lots;
    }

    CDice dice_;
    AccountWishes wishes_;
    MadeAccount account_;
    std::vector<int> settled_;
    std::vector<MadePosition> open_;
    std::int64_t balance_ = 100000000;
    MadeDay today_;
};

/// Open lots by contract and side, long first.
using MadeLots = std::map<std::pair<std::size_t, bool>, int>;

inline MadeLots LotsOf(const MadeDay& day) {
    MadeLots lots;
    for (const MadePosition& position : day.positions) lots[{position.contract, position.isLong}] += position.lots;
    return lots;
}

/// Those that `day` must have behind a day with `lots`.
inline MadeLots LotsBehind(MadeLots lots, const MadeDay& day) {
    for (const MadeTrade& trade : day.trades) {
        lots[{trade.contract, trade.opens ? trade.isBuy : !trade.isBuy}] += trade.opens ? trade.lots : -trade.lots;
    }
    return lots;
}

}  // namespace tradebill
