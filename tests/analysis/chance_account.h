// Accounts made by chance, by what makes trouble for figures more often than accounts do: days without an amount, with
// nothing left, without trades, deposits at any time, options, rows without a day of opening.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "report/product_source.h"
#include "report/product_unit.h"
#include "report/report.h"

namespace tradebill {

class ChanceAccount {
public:
    /// The same seed makes the same account, on every system.
    explicit ChanceAccount(unsigned seed);

    [[nodiscard]] const CReport& Report() const { return report_; }
    [[nodiscard]] std::int64_t TradingDays() const { return tradingDays_; }

private:
    class Products final : public CProductSource {
    public:
        [[nodiscard]] std::int32_t UnitOf(std::string_view contract, std::string_view delivery) const override;
        [[nodiscard]] std::optional<std::string> CodeOf(std::string_view /*name*/) const override {
            return std::nullopt;
        }
        [[nodiscard]] std::vector<ProductUnit> UsedUnits() const override;
    };

    [[nodiscard]] int Draw(int below) { return static_cast<int>(random_() % static_cast<unsigned>(below)); }
    [[nodiscard]] bool Happens(int inHundred) { return Draw(100) < inHundred; }
    template <class Choice, std::size_t N>
    [[nodiscard]] Choice OneOf(const Choice (&choices)[N]) {
        return choices[static_cast<std::size_t>(Draw(static_cast<int>(N)))];
    }
    /// Cents between both, as text.
    [[nodiscard]] std::string DrawAmount(int leastCents, int mostCents);
    [[nodiscard]] std::string DrawContract();

    void AddMoney(const std::string& day);
    void AddTrades(const std::string& day);
    void AddClosed(const std::string& day, std::int64_t number);
    void AddPositions(const std::string& day, std::int64_t number);

    std::mt19937 random_;  // its numbers are the standard's; distributions would be the library's
    bool isForeign_;
    bool isTrouble_;  // amounts may be missing, and all may be lost
    std::int64_t tradingDays_;
    std::int64_t equityCents_ = 0;
    Products products_;
    CReport report_;
};

}  // namespace tradebill
