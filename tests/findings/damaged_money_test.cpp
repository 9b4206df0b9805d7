// Made-up accounts with one money figure that is false, positions that vanish, or a section that is gone: what follows
// from that is found and nothing else.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "findings/account_check.h"
#include "findings/account_maker.h"
#include "findings/account_pages.h"
#include "findings/finding.h"
#include "findings/made_accounts.h"
#include "readers/scan_listener.h"
#include "support/gbk_text.h"

namespace tradebill::damaged_money_test {
namespace {

constexpr unsigned kSeeds = 10;

using Codes = std::vector<const char*>;

/// Each account's day with `damage(MadeDay&, cents)` done to what it prints: `codes` are found there, and what days
/// then contradict each other in.
template <class Damage>
void ExpectOf(const Codes& codes, Damage damage) {
    DamageAccounts(kSeeds, IsAnyDay, [&](MadeStatements& made, CDice& dice, std::size_t day) {
        const std::int64_t cents = dice.Roll(6, 99999) * (dice.OneIn(2) ? 1 : -1);
        damage(made.account.days[day], cents);
        made.Reprint(day);
        FindingKeys expected = made.PairKeys();
        for (const char* const code : codes) expected.insert(KeyOf(code, made.Day(day)));
        EXPECT_EQ(made.Keys(), expected) << cents << " cents";
    });
}

TEST(DamagedMoney, AClosingBalanceBreaksItsDayAndTheNext) {
    DamageAccounts(kSeeds, IsAnyDay, [&](MadeStatements& made, CDice& dice, std::size_t day) {
        made.account.days[day].closing += dice.Roll(6, 99999);
        made.Reprint(day);
        FindingKeys expected = made.PairKeys();
        expected.insert(KeyOf("identity", made.Day(day)));
        // A bill prints no equity: the balance stands for it.
        if (made.layout == MadeLayout::ClientBill) expected.insert(KeyOf("available", made.Day(day)));
        EXPECT_EQ(made.Keys(), expected);
    });
}

TEST(DamagedMoney, AnOpeningBalanceBreaksItsDay) {
    ExpectOf({"identity"}, [](MadeDay& day, std::int64_t cents) { day.opening += cents; });
}

TEST(DamagedMoney, AFigureOfTheDayBreaksItsBalance) {
    ExpectOf({"identity"}, [](MadeDay& day, std::int64_t cents) { day.fees += cents; });
    ExpectOf({"identity"}, [](MadeDay& day, std::int64_t cents) { day.deposits += cents; });
    ExpectOf({"identity"}, [](MadeDay& day, std::int64_t cents) { day.closedProfit += cents; });
    ExpectOf({"identity"}, [](MadeDay& day, std::int64_t cents) { day.positionProfit += cents; });
}

TEST(DamagedMoney, PremiumThatIsPrintedBreaksTheBalance) {
    DamageAccounts(30, IsAnyDay, [&](MadeStatements& made, CDice&, std::size_t day) {
        if (made.layout != MadeLayout::Bilingual || !made.wishes.hasOptions) return;
        made.account.days[day].premiumPaid += 100;
        made.Reprint(day);
        FindingKeys expected = made.PairKeys();
        // An account without a single premium keeps every form: then one figure alone shows none.
        const bool hasPremium = std::ranges::any_of(
            made.account.days, [](const MadeDay& one) { return one.premiumReceived + one.premiumPaid > 100; });
        if (hasPremium) expected.insert(KeyOf("identity", made.Day(day)));
        EXPECT_EQ(made.Keys(), expected);
    });
}

TEST(DamagedMoney, MarginEquityAndAvailableFundsHangTogether) {
    ExpectOf({"available"}, [](MadeDay& day, std::int64_t cents) { day.margin += cents; });
    ExpectOf({"available"}, [](MadeDay& day, std::int64_t cents) { day.available += cents; });
}

TEST(DamagedMoney, IsNotFoundWithinTheRoundingOfTheFigures) {
    DamageAccounts(kSeeds, IsAnyDay, [&](MadeStatements& made, CDice& dice, std::size_t day) {
        if (made.wishes.isRounded) return;
        made.account.days[day].rounding = dice.OneIn(2) ? 1 : -1;
        AddUpMoney(made.account, made.wishes);
        for (std::size_t i = 0; i < made.pages.size(); ++i) made.Reprint(i);
        EXPECT_EQ(made.Keys(), made.PairKeys());
    });
}

TEST(DamagedMoney, IsANoteWhereFourStatementsAreAll) {
    for (const MadeLayout layout : kMadeLayouts) {
        for (const int days : {4, 5}) {
            MadeStatements made(11, layout, {.days = days, .hasHoliday = false});
            made.account.days[1].fees += 12345;
            made.Reprint(1);
            SCOPED_TRACE(TraceOf(made, 11) + ", days " + std::to_string(days));
            EXPECT_EQ(made.Keys(), FindingKeys{KeyOf("identity", made.Day(1), days < 5)});
            made.account.days[1].fees -= 12345;
            made.account.days[1].margin += 500;
            made.Reprint(1);
            EXPECT_EQ(made.Keys(), FindingKeys{KeyOf("available", made.Day(1), days < 5)});
        }
    }
}

TEST(DamagedMoney, IsANoteOfTheRunWhereNoFormHoldsOnFourOfFiveDays) {
    for (const MadeLayout layout : kMadeLayouts) {
        MadeStatements made(4, layout, {.days = 10, .hasHoliday = false});
        std::int64_t cents = 0;
        for (const std::size_t day : {1U, 4U, 7U}) {
            made.account.days[day].fees += cents += 700;
            made.Reprint(day);
        }
        EXPECT_EQ(made.Keys(), FindingKeys{"identity(note)@"});
    }
}

TEST(DamagedMoney, IsFoundWhereTheFormHoldsOnFourOfFiveDays) {
    for (const MadeLayout layout : kMadeLayouts) {
        MadeStatements made(4, layout, {.days = 10, .hasHoliday = false});
        made.account.days[1].fees += 700;
        made.account.days[7].fees += 1900;
        made.Reprint(1);
        made.Reprint(7);
        EXPECT_EQ(made.Keys(), (FindingKeys{KeyOf("identity", made.Day(1)), KeyOf("identity", made.Day(7))}));
    }
}

/// A contract that was held the day before, isn't traded on `day` and is held on: its index, or nothing.
std::optional<std::size_t> HeldContract(const MadeStatements& made, std::size_t day, bool isOption) {
    const MadeDay& today = made.account.days[day];
    for (std::size_t contract = 0; contract < made.account.contracts.size(); ++contract) {
        const auto isOf = [&](const auto& row) { return row.contract == contract; };
        if (made.account.contracts[contract].isOption == isOption && std::ranges::any_of(today.positions, isOf) &&
            std::ranges::none_of(today.trades, isOf)) {
            return contract;
        }
    }
    return std::nullopt;
}

void Vanish(MadeStatements& made, std::size_t day, std::size_t contract) {
    std::erase_if(made.account.days[day].positions, [&](const MadePosition& row) { return row.contract == contract; });
    AddUpMoney(made.account, made.wishes);
    for (std::size_t i = 0; i < made.pages.size(); ++i) made.Reprint(i);
}

TEST(DamagedMoney, FuturesThatVanishAreToldByTheirLots) {
    const auto isHeld = [](const MadeStatements& made, std::size_t day) {
        return HeldContract(made, day, false).has_value();
    };
    DamageAccounts(kSeeds, isHeld, [](MadeStatements& made, CDice&, std::size_t day) {
        Vanish(made, day, HeldContract(made, day, false).value_or(0));
        const FindingKeys expected = made.PairKeys();
        EXPECT_TRUE(expected.contains(KeyOf("lots", made.Day(day))));
        EXPECT_EQ(made.Keys(), expected);
    });
}

TEST(DamagedMoney, OptionsThatVanishAreANote) {
    bool isTried = false;
    for (const MadeLayout layout : {MadeLayout::ClientBill, MadeLayout::Bilingual}) {
        for (unsigned seed = 1; seed <= 10; ++seed) {
            MadeStatements made(seed, layout, {.hasOptions = true});
            const std::size_t day = made.account.days.size() - 1;
            const auto contract = HeldContract(made, day, true);
            if (!contract) continue;
            SCOPED_TRACE(TraceOf(made, seed));
            isTried = true;
            Vanish(made, day, *contract);
            const FindingKeys expected = made.PairKeys();
            EXPECT_TRUE(expected.contains(KeyOf("lots", made.Day(day), true)));
            EXPECT_EQ(made.Keys(), expected);
        }
    }
    EXPECT_TRUE(isTried);
}

/// Takes a section out of a page, from its title to its last line.
void EraseSection(MadePage& page, SectionKind kind) {
    const MadeSection section = page.sections.at(kind);
    page.lines.erase(page.lines.begin() + static_cast<std::ptrdiff_t>(section.title),
                     page.lines.begin() + static_cast<std::ptrdiff_t>(section.end));
}

TEST(DamagedSections, MoneyIsMissedAlways) {
    DamageAccounts(kSeeds, IsAnyDay, [](MadeStatements& made, CDice&, std::size_t day) {
        EraseSection(made.pages[day], SectionKind::Money);
        FindingKeys found = made.Keys();
        EXPECT_EQ(found.erase(KeyOf("section-missing", made.Day(day))), 1U);
        FindingKeys expected = made.PairKeys();
        // Where no balance stands between two others, a gap over a holiday can't be told to be one of balances.
        EXPECT_EQ(found, expected);
    });
}

TEST(DamagedSections, TradesAreMissedForTheirFees) {
    DamageAccounts(kSeeds, HasRows<SectionKind::Trades>, [](MadeStatements& made, CDice&, std::size_t day) {
        EraseSection(made.pages[day], SectionKind::Trades);
        const bool isPremium = made.layout == MadeLayout::ClientBill &&
                               made.account.days[day].premiumReceived != made.account.days[day].premiumPaid;
        made.account.days[day].trades.clear();
        FindingKeys expected = made.PairKeys();
        expected.insert(KeyOf("section-missing", made.Day(day)));
        if (isPremium) expected.insert(KeyOf("identity", made.Day(day)));
        EXPECT_EQ(made.Keys(), expected);
    });
}

TEST(DamagedSections, ClosedPositionsAreMissedForTheirTradesOrProfit) {
    DamageAccounts(kSeeds, HasRows<SectionKind::Closed>, [](MadeStatements& made, CDice&, std::size_t day) {
        EraseSection(made.pages[day], SectionKind::Closed);
        FindingKeys expected = made.PairKeys();
        expected.insert(KeyOf("section-missing", made.Day(day)));
        EXPECT_EQ(made.Keys(), expected);
    });
}

TEST(DamagedSections, OpenPositionsAreMissedForTheirMargin) {
    DamageAccounts(kSeeds, HasRows<SectionKind::Open>, [](MadeStatements& made, CDice&, std::size_t day) {
        EraseSection(made.pages[day], SectionKind::Open);
        FindingKeys expected = made.PairKeys(day);
        if (made.layout == MadeLayout::FundStatus) expected = made.PairKeys();
        FindingKeys found = made.Keys();
        EXPECT_EQ(found.erase(KeyOf("section-missing", made.Day(day))), 1U);
        EXPECT_EQ(found, expected);
    });
}

TEST(DamagedSections, EmptyOnesArentMissed) {
    for (const SectionKind kind : {SectionKind::Trades, SectionKind::Closed, SectionKind::Open}) {
        unsigned tried = 0;
        for (const MadeLayout layout : kMadeLayouts) {
            for (unsigned seed = 1; seed <= 8; ++seed) {
                MadeStatements made(seed, layout, {.days = 20});
                for (std::size_t day = 1; day < made.pages.size(); ++day) {
                    MadePage& page = made.pages[day];
                    if (!page.sections.contains(kind) || !page.sections.at(kind).rows.empty()) continue;
                    SCOPED_TRACE(TraceOf(made, seed) + ", day " + made.Day(day));
                    EraseSection(page, kind);
                    EXPECT_EQ(made.Keys(), made.PairKeys());
                    ++tried;
                    break;
                }
            }
        }
        EXPECT_TRUE(tried > 0 || kind == SectionKind::Open);
    }
}

TEST(DamagedMoney, ATextForAnAmountIsToldWithItsLine) {
    const MadeStatements made(3, MadeLayout::FundStatus, {.days = 6});
    std::vector<DayFile> files = made.Files();
    std::string& bytes = files[3].bytes;
    const std::size_t point = bytes.find('.', bytes.find(Gbk("保证金占用")));
    ASSERT_NE(point, std::string::npos);
    bytes[point] = 'x';
    const CCheckedRun run(files, AskedFor(made.layout));
    const auto found = std::ranges::find(run.findings, FindingCode::Shifted, &Finding::code);
    ASSERT_NE(found, run.findings.end());
    EXPECT_EQ(found->day, made.Day(3));
    EXPECT_EQ(found->section, SectionKind::Money);
    EXPECT_EQ(found->row, 1 + std::count(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(point), '\n'));
    EXPECT_NE(found->found.find('x'), std::string::npos) << found->found;
}

}  // namespace
}  // namespace tradebill::damaged_money_test
