// Made-up accounts with one row that is lost, shifted or changed: what follows from that is found and nothing else.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "findings/account_check.h"
#include "findings/account_maker.h"
#include "findings/account_pages.h"
#include "findings/finding.h"
#include "findings/made_accounts.h"
#include "readers/scan_listener.h"

namespace tradebill::damaged_rows_test {
namespace {

constexpr unsigned kSeeds = 10;

/// Columns of a row of trades, as words.
struct TradeWords {
    std::size_t price;
    std::size_t lots;
    std::size_t turnover;
    std::size_t fee;
};

TradeWords WordsOf(MadeLayout layout) {
    constexpr TradeWords kWords[] = {{6, 7, 8, 9}, {5, 6, 7, 9}, {6, 7, 8, 10}};
    return kWords[static_cast<std::size_t>(layout)];
}

std::size_t AnyOf(CDice& dice, std::size_t count) {
    return static_cast<std::size_t>(dice.Roll(0, static_cast<int>(count) - 1));
}

void EraseLine(MadePage& page, std::size_t line) {
    page.lines.erase(page.lines.begin() + static_cast<std::ptrdiff_t>(line));
}

/// The premium of options that a client bill doesn't print is made of their turnover.
bool IsPremiumOf(const MadeStatements& made, std::size_t day, std::size_t trade) {
    return made.layout == MadeLayout::ClientBill && made.account.days[day].trades[trade].premium != 0;
}

/// The one finding of `code`, by its line of the file.
int RowOf(const std::vector<Finding>& findings, FindingCode code) {
    const auto found = std::ranges::find(findings, code, &Finding::code);
    return found != findings.end() ? found->row.value_or(0) : 0;
}

TEST(DamagedRows, ATradeThatIsGoneIsMissedByTotalsAndLots) {
    DamageAccounts(kSeeds, HasRows<SectionKind::Trades>, [](MadeStatements& made, CDice& dice, std::size_t day) {
        const std::size_t trade = AnyOf(dice, made.account.days[day].trades.size());
        const bool isPremium = IsPremiumOf(made, day, trade);
        EraseLine(made.pages[day], made.pages[day].sections[SectionKind::Trades].rows[trade]);
        auto& trades = made.account.days[day].trades;
        trades.erase(trades.begin() + static_cast<std::ptrdiff_t>(trade));
        FindingKeys expected = made.PairKeys();
        expected.insert(KeyOf("totals", made.Day(day)));
        if (isPremium) expected.insert(KeyOf("identity", made.Day(day)));
        EXPECT_EQ(made.Keys(), expected);
    });
}

TEST(DamagedRows, AClosedPositionThatIsGoneIsMissedByTotals) {
    DamageAccounts(kSeeds, HasRows<SectionKind::Closed>, [](MadeStatements& made, CDice& dice, std::size_t day) {
        const auto& rows = made.pages[day].sections[SectionKind::Closed].rows;
        EraseLine(made.pages[day], rows[AnyOf(dice, rows.size())]);
        FindingKeys expected = made.PairKeys();
        expected.insert(KeyOf("totals", made.Day(day)));
        EXPECT_EQ(made.Keys(), expected);
    });
}

TEST(DamagedRows, AnOpenPositionThatIsGoneIsMissedByTotalsAndTheLotsOfTwoDays) {
    DamageAccounts(kSeeds, HasRows<SectionKind::Open>, [](MadeStatements& made, CDice& dice, std::size_t day) {
        auto& positions = made.account.days[day].positions;
        const auto& rows = made.pages[day].sections[SectionKind::Open].rows;
        const std::size_t row = AnyOf(dice, rows.size());
        EraseLine(made.pages[day], rows[row]);
        if (made.layout == MadeLayout::ClientBill) {  // a row holds all positions of a contract
            std::vector<std::size_t> contracts;
            for (const MadePosition& position : positions) contracts.push_back(position.contract);
            std::ranges::sort(contracts);
            contracts.erase(std::unique(contracts.begin(), contracts.end()), contracts.end());
            std::erase_if(positions, [&](const MadePosition& position) { return position.contract == contracts[row]; });
        } else {
            positions.erase(positions.begin() + static_cast<std::ptrdiff_t>(row));
        }
        FindingKeys expected = made.PairKeys();
        expected.insert(KeyOf("totals", made.Day(day)));
        EXPECT_EQ(made.Keys(), expected);
    });
}

TEST(DamagedRows, AChangedNumberOfLotsIsMissedByTotalsAndLots) {
    DamageAccounts(kSeeds, HasRows<SectionKind::Trades>, [](MadeStatements& made, CDice& dice, std::size_t day) {
        const std::size_t trade = AnyOf(dice, made.account.days[day].trades.size());
        MadePage& page = made.pages[day];
        CRowWords words(page.lines[page.sections[SectionKind::Trades].rows[trade]]);
        made.account.days[day].trades[trade].lots += 3;
        words.Replace(WordsOf(made.layout).lots, std::to_string(made.account.days[day].trades[trade].lots));
        FindingKeys expected = made.PairKeys();
        expected.insert(KeyOf("totals", made.Day(day)));
        EXPECT_EQ(made.Keys(), expected);
    });
}

TEST(DamagedRows, AChangedTotalIsTold) {
    const auto check = [](MadeStatements& made, CDice& dice, std::size_t day) {
        MadePage& page = made.pages[day];
        const std::size_t line = page.sections[SectionKind::Trades].totals;
        // The words of totals: its count, lots, turnover, fees, P/L and more.
        const std::size_t first = made.layout == MadeLayout::FundStatus ? 2 : 1;
        const auto word = first + static_cast<std::size_t>(dice.Roll(0, 3));
        CRowWords words(page.lines[line]);
        const std::string total = words.At(word);
        words.Replace(word, word == first ? total + "1" : MoneyText(123));
        if (words.At(word) == total) return;
        const CCheckedRun run(made.Files(), AskedFor(made.layout));
        FindingKeys expected = made.PairKeys();
        expected.insert(KeyOf("totals", made.Day(day)));
        EXPECT_EQ(KeysOf(run.findings), expected) << page.lines[line];
        EXPECT_EQ(RowOf(run.findings, FindingCode::Totals), static_cast<int>(line) + 1);
    };
    DamageAccounts(kSeeds, HasRows<SectionKind::Trades>, check);
}

TEST(DamagedRows, AChangedCountIsTold) {
    DamageAccounts(kSeeds, IsAnyDay, [](MadeStatements& made, CDice& dice, std::size_t day) {
        if (made.layout == MadeLayout::ClientBill) return;
        MadePage& page = made.pages[day];
        auto section = page.sections.begin();
        std::advance(section, dice.Roll(1, static_cast<int>(page.sections.size()) - 1));
        std::string& row = page.lines[section->second.totals];
        const std::size_t at = row.find_first_of("0123456789");
        row[at] = row[at] == '9' ? '8' : static_cast<char>(row[at] + 1);
        FindingKeys expected = made.PairKeys();
        expected.insert(KeyOf("totals", made.Day(day)));
        EXPECT_EQ(made.Keys(), expected) << row;
    });
}

TEST(DamagedRows, AnEmptyCellShiftsItsRow) {
    DamageAccounts(24, HasRows<SectionKind::Trades>, [](MadeStatements& made, CDice& dice, std::size_t day) {
        MadePage& page = made.pages[day];
        const auto& rows = page.sections[SectionKind::Trades].rows;
        const std::size_t line = rows[AnyOf(dice, rows.size())];
        const auto word = static_cast<std::size_t>(dice.Roll(0, 11));
        CRowWords(page.lines[line]).Replace(word, "");
        const CCheckedRun run(made.Files(), AskedFor(made.layout));
        FindingKeys found = KeysOf(run.findings);
        EXPECT_TRUE(found.contains(KeyOf("shifted", made.Day(day)))) << word << ": " << page.lines[line];
        EXPECT_EQ(RowOf(run.findings, FindingCode::Shifted), static_cast<int>(line) + 1);
        for (const char* const code : {"shifted", "totals", "lots", "identity"})
            found.erase(KeyOf(code, made.Day(day)));
        found.erase(KeyOf("lots", made.Day(day), true));
        EXPECT_EQ(found, made.PairKeys()) << word;
    });
}

TEST(DamagedRows, ATextInAnAmountIsTold) {
    DamageAccounts(kSeeds, HasRows<SectionKind::Trades>, [](MadeStatements& made, CDice& dice, std::size_t day) {
        MadePage& page = made.pages[day];
        const auto& rows = page.sections[SectionKind::Trades].rows;
        const std::size_t line = rows[AnyOf(dice, rows.size())];
        CRowWords(page.lines[line]).Replace(WordsOf(made.layout).price, "abc");
        const CCheckedRun run(made.Files(), AskedFor(made.layout));
        FindingKeys expected = made.PairKeys();
        expected.insert(KeyOf("shifted", made.Day(day)));
        EXPECT_EQ(KeysOf(run.findings), expected) << page.lines[line];
        EXPECT_EQ(RowOf(run.findings, FindingCode::Shifted), static_cast<int>(line) + 1);
    });
}

TEST(DamagedRows, AThousandsCommaIsATextSinceReadersStopAtIt) {
    const auto hasThousands = [](const MadeStatements& made, std::size_t day) {
        return std::ranges::any_of(made.account.days[day].trades,
                                   [](const MadeTrade& trade) { return trade.turnover >= 100000; });
    };
    DamageAccounts(kSeeds, hasThousands, [](MadeStatements& made, CDice& dice, std::size_t day) {
        MadePage& page = made.pages[day];
        const auto& trades = made.account.days[day].trades;
        std::size_t trade = AnyOf(dice, trades.size());
        while (trades[trade].turnover < 100000) trade = (trade + 1) % trades.size();
        CRowWords words(page.lines[page.sections[SectionKind::Trades].rows[trade]]);
        std::string text = words.At(WordsOf(made.layout).turnover);
        text.insert(text.size() - 6, ",");
        words.Replace(WordsOf(made.layout).turnover, text);
        FindingKeys expected = made.PairKeys();
        expected.insert(KeyOf("shifted", made.Day(day)));
        EXPECT_EQ(made.Keys(), expected) << text;
    });
}

TEST(DamagedRows, ALineThatIsNoRowIsSkipped) {
    for (const char* const junk : {"第2页 续上页", "第 2 页", "page 3 of 4"}) {
        DamageAccounts(4, HasRows<SectionKind::Trades>, [&](MadeStatements& made, CDice& dice, std::size_t day) {
            MadePage& page = made.pages[day];
            const auto& rows = page.sections[SectionKind::Trades].rows;
            const std::size_t line = rows[AnyOf(dice, rows.size())] + 1;
            page.lines.insert(page.lines.begin() + static_cast<std::ptrdiff_t>(line), junk);
            const CCheckedRun run(made.Files(), AskedFor(made.layout));
            FindingKeys expected = made.PairKeys();
            expected.insert(KeyOf("row-skipped", made.Day(day)));
            EXPECT_EQ(KeysOf(run.findings), expected) << junk;
            EXPECT_EQ(RowOf(run.findings, FindingCode::RowSkipped), static_cast<int>(line) + 1);
        });
    }
}

TEST(DamagedRows, RulesHeadingsAndBlankLinesBetweenRowsAreNone) {
    for (const char* const line : {"", "   ", "--------------------", "========", "|----|----|", "续上表"}) {
        DamageAccounts(4, HasRows<SectionKind::Trades>, [&](MadeStatements& made, CDice& dice, std::size_t day) {
            MadePage& page = made.pages[day];
            const auto& rows = page.sections[SectionKind::Trades].rows;
            const std::size_t at = rows[AnyOf(dice, rows.size())];
            if (at == rows.front()) return;
            page.lines.insert(page.lines.begin() + static_cast<std::ptrdiff_t>(at), line);
            EXPECT_EQ(made.Keys(), made.PairKeys()) << line;
        });
    }
}

}  // namespace
}  // namespace tradebill::damaged_rows_test
