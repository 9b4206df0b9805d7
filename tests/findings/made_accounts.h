// Which made-up accounts tests go through.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "findings/account_check.h"
#include "findings/account_maker.h"
#include "findings/account_pages.h"
#include "readers/scan_listener.h"

namespace tradebill {

inline constexpr MadeLayout kMadeLayouts[] = {MadeLayout::FundStatus, MadeLayout::ClientBill, MadeLayout::Bilingual};

/// What accounts of a layout can have, more or less of it by the seed.
inline AccountWishes WishesFor(MadeLayout layout, unsigned seed) {
    return {.days = 8 + static_cast<int>(seed % 13),
            .hasOptions = layout != MadeLayout::FundStatus && seed % 4 != 0,
            .hasExerciseFees = layout != MadeLayout::ClientBill && seed % 2 == 0,
            .feesHoldExerciseFees = seed % 3 == 0,
            .hasHoliday = seed % 5 != 0,
            .isRounded = seed % 7 == 0,
            .leavesOutEmptyTables = seed / 2 % 3 == 0};
}

/// The words of a row between blanks and bars; a word is replaced in print, so that what stands behind it stays.
class CRowWords {
public:
    explicit CRowWords(std::string& row) : row_(row) {}

    [[nodiscard]] std::string At(std::size_t word) const {
        const auto [begin, end] = PlaceOf(word);
        return row_.substr(begin, end - begin);
    }
    /// Puts `text` where the word ends, over the blanks in front of it.
    void Replace(std::size_t word, const std::string& text) {
        auto [begin, end] = PlaceOf(word);
        const std::size_t before = GbkWidth(row_.substr(begin, end - begin));
        const std::size_t after = GbkWidth(text);
        if (after > before) begin -= after - before;
        row_.replace(begin, end - begin, std::string(after < before ? before - after : 0, ' ') + text);
    }

private:
    [[nodiscard]] std::pair<std::size_t, std::size_t> PlaceOf(std::size_t word) const {
        std::size_t begin = row_.find_first_not_of(" |");
        for (; word > 0; --word) begin = row_.find_first_not_of(" |", row_.find_first_of(" |", begin));
        return {begin, std::min(row_.find_first_of(" |", begin), row_.size())};
    }

    std::string& row_;
};

/// Told beside a failure.
inline std::string TraceOf(const MadeStatements& made, unsigned seed) {
    return std::string(NameOf(made.layout)) + ", seed " + std::to_string(seed);
}

/// Calls `damage(made, dice, day)` for accounts of all layouts, each with a day, not the first and not the last, that
/// `isFit(made, day)` says yes to. At least one account must have such a day in each layout.
template <class IsFit, class Damage>
void DamageAccounts(unsigned seeds, IsFit isFit, Damage damage) {
    for (const MadeLayout layout : kMadeLayouts) {
        bool isTried = false;
        for (unsigned seed = 1; seed <= seeds; ++seed) {
            AccountWishes wishes = WishesFor(layout, seed);
            wishes.leavesOutEmptyTables = false;
            MadeStatements made(seed, layout, wishes);
            CDice dice(seed + 1000);
            std::vector<std::size_t> days;
            for (std::size_t day = 1; day + 1 < made.account.days.size(); ++day) {
                if (isFit(made, day)) days.push_back(day);
            }
            if (days.empty()) continue;
            isTried = true;
            const std::size_t day = days[static_cast<std::size_t>(dice.Roll(0, static_cast<int>(days.size()) - 1))];
            SCOPED_TRACE(TraceOf(made, seed) + ", day " + made.Day(day));
            damage(made, dice, day);
        }
        EXPECT_TRUE(isTried) << NameOf(layout);
    }
}

inline bool IsAnyDay(const MadeStatements& /*made*/, std::size_t /*day*/) {
    return true;
}

template <SectionKind Kind>
bool HasRows(const MadeStatements& made, std::size_t day) {
    const auto section = made.pages[day].sections.find(Kind);
    return section != made.pages[day].sections.end() && !section->second.rows.empty();
}

}  // namespace tradebill
