// The trades of days that are there already, for rows that only say the number of the trade that opened them.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace tradebill {

/// What is known of a trade that opened a position.
struct OpeningTrade {
    std::string contract;
    std::string number;  ///< its last 12 digits
    bool isBuy = false;
    std::int64_t price = 0;  ///< in 1/10000

    auto operator<=>(const OpeningTrade&) const = default;
};

/// Whoever knows trades of an account.
class COpeningSource {
public:
    virtual ~COpeningSource() = default;

    /// The latest day before `day` on which the account has such a trade; nothing if there is none. Days are yyyymmdd.
    [[nodiscard]] virtual std::optional<std::string> DayOf(const std::string& account, const OpeningTrade& trade,
                                                           const std::string& day) = 0;
};

/// The trades of one account.
class COpeningTrades {
public:
    /// Takes the trades in a statement's text, GBK, in place of those that the day had: of tables "成交记录" whose
    /// headings name contract, number, side and price. Trades that close something are left out.
    void SetDay(const std::string& day, std::string_view text);

    [[nodiscard]] std::optional<std::string> DayOf(const OpeningTrade& trade, const std::string& before) const;

private:
    std::map<OpeningTrade, std::set<std::string>> days_;
    std::map<std::string, std::vector<OpeningTrade>> trades_;  // by day
};

}  // namespace tradebill
