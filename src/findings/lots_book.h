// Open lots from one statement to the next: those of the day before, what was opened and closed, those of the day.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/text_hash.h"
#include "report/records.h"

namespace tradebill {

enum class LotSide : std::size_t { Long, Short };

/// Lots of one contract and side that don't agree.
struct LotsFault {
    std::string contract;  ///< GBK
    LotSide side;
    int expected;
    int found;
    bool isVanishedOption;  ///< gone without a trade, as options are that expire
};

class CLotsBook {
public:
    /// `namesDeliveryApart`: contract and delivery month together name a contract.
    void Begin(bool namesDeliveryApart) { namesDeliveryApart_ = namesDeliveryApart; }

    /// Begins with a statement; what it holds of an open day that wasn't ended is dropped.
    void BeginDay();

    /// Returns whether it is a trade of an option.
    bool AddTrade(const MatchRecord& row);
    void AddOpen(const OpiDetail& row);
    void AddOpen(const OpiSum& row);

    // The foreign family doesn't say whether a trade opens or closes: rows of closed positions take it back.
    void AddForeignTrade(const MatchRecord& row);
    void AddForeignClosed(const PingDetail& row);

    /// Ends the day: what doesn't agree with the day before, which must have been ended too; nothing without one.
    [[nodiscard]] std::vector<LotsFault> EndDay();

    /// The next day has none to be compared with.
    void Break();

    /// Whether trades or the day before say that there are open lots.
    [[nodiscard]] bool ExpectsLots() const;

private:
    using Lots = std::array<std::int32_t, 2>;  // by LotSide
    struct Contract {
        std::string name;
        bool isOption = false;
        bool isUnclear = false;  ///< a trade of the day neither opens nor closes, as its row has it
        bool isTraded = false;
        Lots before{};
        Lots change{};
        Lots now{};
    };

    Contract& Find(std::string_view contract, std::string_view delivery);
    void AddLots(std::string_view contract, std::string_view delivery, std::string_view bid, int lots);

    std::vector<Contract> contracts_;
    TextMap<std::size_t> byKey_;
    std::string key_;
    bool namesDeliveryApart_ = false;
    bool hasBefore_ = false;
};

}  // namespace tradebill
