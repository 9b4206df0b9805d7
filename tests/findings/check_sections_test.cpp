// Sections that a statement should have: money always, tables where figures and the account's other statements say so.
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "base/decimal.h"
#include "findings/account_check.h"
#include "findings/account_checks.h"
#include "findings/finding.h"
#include "findings/lots_book.h"
#include "findings/section_facts.h"
#include "findings/statement_facts.h"
#include "readers/scan_listener.h"
#include "report/printed_money.h"
#include "report/report.h"
#include "report/request_copy.h"
#include "support/gbk_text.h"

namespace tradebill::check_sections_test {
namespace {

using enum PrintedFigure;

class CheckSectionsTest : public testing::Test {
protected:
    /// Eleven clean statements; the last of them is the one that tests take something from.
    CheckSectionsTest() {
        for (int i = 0; i < 11; ++i) {
            StatementFacts statement;
            statement.day = std::to_string(20240101 + i);
            statement.isUsable = statement.isEnded = statement.hasMoney = true;
            statement.layout = "fund-status";
            for (const SectionKind kind : {SectionKind::Money, SectionKind::Trades, SectionKind::Closed,
                                           SectionKind::Open, SectionKind::Summary}) {
                SectionFacts section;
                section.kind = kind;
                section.hasTitle = section.hasEnd = true;
                section.titleRow = 3;
                section.titleWord = Gbk("成交记录");
                section.totalColumns = 4;
                statement.sections.push_back(section);
            }
            statement.firstMoney = report_.PrintedMoney.size();
            statement.moneyCount = 1;
            PrintedMoney money;
            money[Opening] = money[Closing] = 1000 * kDecimalSteps;
            report_.PrintedMoney.push_back(std::move(money));
            statements_.push_back(statement);
        }
    }
    StatementFacts& Last() { return statements_.back(); }
    PrintedMoney& LastMoney() { return report_.PrintedMoney.back(); }
    static void Take(StatementFacts& statement, SectionKind kind) {
        for (SectionFacts& section : statement.sections) {
            if (section.kind == kind) section.hasTitle = section.hasEnd = false;
        }
    }
    FindingKeys Check() {
        findings_.clear();
        CheckSections(report_, statements_, findings_);
        return KeysOf(findings_);
    }

    CReport report_;
    StatementList statements_;
    std::vector<Finding> findings_;
    const FindingKeys missing_{"section-missing@20240111"};
};

TEST_F(CheckSectionsTest, FindsNothingWhereAllAreThere) {
    EXPECT_EQ(Check(), FindingKeys{});
}

TEST_F(CheckSectionsTest, MoneyIsMissedWithoutARecord) {
    Last().hasMoney = false;
    EXPECT_EQ(Check(), missing_);
    EXPECT_EQ(findings_[0].section, SectionKind::Money);
}

TEST_F(CheckSectionsTest, MoneyIsMissedWithoutItsLabels) {
    LastMoney().Figures = {};
    EXPECT_EQ(Check(), missing_);
    LastMoney()[Opening] = 0;
    EXPECT_EQ(Check(), FindingKeys{});
}

TEST_F(CheckSectionsTest, TradesAreMissedIfFeesWerePaid) {
    Take(Last(), SectionKind::Trades);
    EXPECT_EQ(Check(), FindingKeys{});
    LastMoney()[Fees] = 1;
    EXPECT_EQ(Check(), missing_);
    EXPECT_EQ(findings_[0].section, SectionKind::Trades);
    EXPECT_EQ(findings_[0].expected, "成交记录");
    EXPECT_EQ(findings_[0].found, "none");
}

TEST_F(CheckSectionsTest, TradesArentMissedForFeesOfExercisesAndDeliveries) {
    Take(Last(), SectionKind::Trades);
    LastMoney()[Fees] = 5;
    LastMoney()[ExerciseFees] = 5;
    EXPECT_EQ(Check(), FindingKeys{});
    LastMoney()[DeliveryFees] = 2;
    EXPECT_EQ(Check(), FindingKeys{});
    LastMoney()[Fees] = 7;
    EXPECT_EQ(Check(), FindingKeys{});
    LastMoney()[Fees] = 8;
    EXPECT_EQ(Check(), missing_);
}

TEST_F(CheckSectionsTest, TradesAreMissedIfLotsChanged) {
    Take(Last(), SectionKind::Trades);
    Last().lots = {{"rb2405", LotSide::Long, 3, 2, false}};
    EXPECT_EQ(Check(), missing_);
}

TEST_F(CheckSectionsTest, ClosedPositionsAreMissedForTheirProfitOrTheirTrades) {
    Take(Last(), SectionKind::Closed);
    EXPECT_EQ(Check(), FindingKeys{});
    LastMoney()[ClosedPL] = -1;
    EXPECT_EQ(Check(), missing_);
    LastMoney()[ClosedPL] = 0;
    Last().hasClosingTrades = true;
    EXPECT_EQ(Check(), missing_);
}

TEST_F(CheckSectionsTest, PositionsAreMissedForTheirMarginOrTheirLots) {
    for (const SectionKind kind : {SectionKind::Open, SectionKind::Summary}) {
        Take(Last(), kind);
        Last().expectsLots = false;
        LastMoney()[Margin] = 0;
        EXPECT_EQ(Check(), FindingKeys{});
        LastMoney()[Margin] = 1;
        EXPECT_EQ(Check(), missing_);
        LastMoney()[Margin] = 0;
        Last().expectsLots = true;
        EXPECT_EQ(Check(), missing_);
        Last().sections[static_cast<std::size_t>(kind)].hasTitle = true;
        Last().sections[static_cast<std::size_t>(kind)].hasEnd = true;
    }
}

TEST_F(CheckSectionsTest, ATableIsMissedIfNineOfTenOthersHaveIt) {
    Take(Last(), SectionKind::Trades);
    LastMoney()[Fees] = 1;
    Take(statements_[0], SectionKind::Trades);
    EXPECT_EQ(Check(), missing_);
    Take(statements_[1], SectionKind::Trades);
    EXPECT_EQ(Check(), FindingKeys{});
    statements_[1].isUsable = false;
    EXPECT_EQ(Check(), FindingKeys{});  // eight of nine
    statements_[0].isUsable = false;
    EXPECT_EQ(Check(), missing_);
}

TEST_F(CheckSectionsTest, AnEndThatIsMissingWithASectionIsACut) {
    Take(Last(), SectionKind::Summary);
    LastMoney()[Margin] = 1;
    Last().endsInLine = true;
    Last().lastRow = 40;
    EXPECT_EQ(Check(), FindingKeys{"cut-off@20240111"});
    EXPECT_EQ(findings_[0].row, 40);
    statements_[3].endsInLine = true;  // as the account's statements end
    EXPECT_EQ(Check(), missing_);
}

TEST_F(CheckSectionsTest, TotalsThatLackAmountsAtTheEndAreACut) {
    SectionFacts& last = Last().sections.back();
    last.totalRow = Last().lastRow = 40;
    last.totalColumns = 3;
    EXPECT_EQ(Check(), FindingKeys{});
    Last().endsInLine = true;
    EXPECT_EQ(Check(), FindingKeys{"cut-off@20240111"});
    EXPECT_EQ(findings_[0].expected, "4 amounts");
    EXPECT_EQ(findings_[0].found, "3 amounts");
    last.totalColumns = 4;
    EXPECT_EQ(Check(), FindingKeys{});
    last.totalColumns = 3;
    Last().lastRow = 41;
    EXPECT_EQ(Check(), FindingKeys{});
}

TEST_F(CheckSectionsTest, ACurrencyIsMissedThatHadABalanceTheDayBefore) {
    report_.Request.StatementKind = kForeignKind;
    for (PrintedMoney& money : report_.PrintedMoney) money[Equity] = kDecimalSteps;
    report_.PrintedMoney.back().Currency = "USD";
    EXPECT_EQ(Check(), missing_);
    EXPECT_TRUE(findings_[0].text.starts_with("The statement has no figures of ")) << findings_[0].text;
    report_.PrintedMoney[9].Currency = "USD";
    EXPECT_EQ(Check(), FindingKeys{"section-missing@20240110"});
    report_.PrintedMoney[8][Equity] = 0;
    EXPECT_EQ(Check(), FindingKeys{});
    report_.PrintedMoney[8][Equity] = 1;
    statements_[8].isUsable = false;
    EXPECT_EQ(Check(), FindingKeys{});
}

TEST_F(CheckSectionsTest, NothingIsMissedWhereMoreIsWrong) {
    Last().hasMoney = false;
    Last().isCutOff = true;
    EXPECT_EQ(Check(), FindingKeys{});
    Last().isCutOff = false;
    Last().isUsable = false;
    EXPECT_EQ(Check(), FindingKeys{});
    Last().isUsable = true;
    Last().sections[0].faults.emplace_back();
    EXPECT_EQ(Check(), FindingKeys{});
}

TEST_F(CheckSectionsTest, TradesArentMissedForFeesOfDeliveriesAlone) {
    Take(Last(), SectionKind::Trades);
    LastMoney()[Fees] = 2;
    LastMoney()[ExerciseFees] = 5;
    LastMoney()[DeliveryFees] = 2;
    EXPECT_EQ(Check(), FindingKeys{});
}

TEST_F(CheckSectionsTest, OneBalanceIsALabelOfMoney) {
    for (const PrintedFigure figure : {Opening, Closing, Equity}) {
        LastMoney().Figures = {};
        LastMoney()[figure] = 1;
        EXPECT_EQ(Check(), FindingKeys{});
    }
    for (const PrintedFigure figure : {Opening, Closing}) {
        LastMoney().Figures = {};
        LastMoney()[figure] = 0;
        EXPECT_EQ(Check(), FindingKeys{});
    }
    LastMoney().Figures = {};
    LastMoney()[Equity] = 0;
    EXPECT_EQ(Check(), missing_);
}

TEST_F(CheckSectionsTest, MoneyIsMissedWithoutFigures) {
    Last().moneyCount = 0;
    EXPECT_EQ(Check(), missing_);
    EXPECT_EQ(findings_[0].text, "The money section has none of the labels of its layout.");
}

TEST_F(CheckSectionsTest, MoneyIsMissedWhereItsReaderFindsNoLabel) {
    Last().lacksLabels = true;
    EXPECT_EQ(Check(), missing_);
    EXPECT_EQ(findings_[0].text, "The money section has none of the labels of its layout.");
    EXPECT_EQ(findings_[0].found, "others");
    Last().otherOptions = "--format 2";
    EXPECT_EQ(Check(), missing_);
    EXPECT_EQ(findings_[0].text, "The money section has none of the labels of its layout. This looks like --format 2.");
}

TEST_F(CheckSectionsTest, MoneyIsMissedWhereItsReaderFindsNoEquity) {
    Last().lacksEquity = true;
    EXPECT_EQ(Check(), missing_);
    EXPECT_EQ(findings_[0].text, "The money section states an equity that its layout doesn't find.");
}

TEST_F(CheckSectionsTest, ATitleAloneIsToldWithItsLine) {
    LastMoney()[Fees] = 1;
    Last().sections[1].hasEnd = false;
    EXPECT_EQ(Check(), missing_);
    EXPECT_EQ(findings_[0].found, "its title alone");
    EXPECT_EQ(findings_[0].row, 3);
    Last().sections[1].hasTitle = false;
    EXPECT_EQ(Check(), missing_);
    EXPECT_EQ(findings_[0].found, "none");
    EXPECT_EQ(findings_[0].row, std::nullopt);
}

TEST_F(CheckSectionsTest, ASectionThatTheLayoutDoesntLookForIsNeverMissedButForMoney) {
    LastMoney()[Fees] = 1;
    Last().sections.erase(Last().sections.begin() + 1);
    EXPECT_EQ(Check(), FindingKeys{});
    Last().sections.erase(Last().sections.begin());
    Last().hasMoney = false;
    EXPECT_EQ(Check(), missing_);
    EXPECT_EQ(findings_[0].expected, "money");
    EXPECT_EQ(findings_[0].found, "none");
}

TEST_F(CheckSectionsTest, ATableOfTheOnlyStatementIsntMissed) {
    statements_.erase(statements_.begin(), statements_.end() - 1);
    LastMoney()[Fees] = 1;
    Take(Last(), SectionKind::Trades);
    EXPECT_EQ(Check(), FindingKeys{});
}

TEST_F(CheckSectionsTest, AMissingLineEndOfAFileThatCantBeUsedIsNoCustom) {
    Take(Last(), SectionKind::Summary);
    LastMoney()[Margin] = 1;
    Last().endsInLine = statements_[3].endsInLine = true;
    statements_[3].isUsable = false;
    EXPECT_EQ(Check(), FindingKeys{"cut-off@20240111"});
}

TEST_F(CheckSectionsTest, NothingIsMissedInAStatementThatIsPassedOverOrEndsInAnError) {
    Last().hasMoney = false;
    Last().isEnded = false;
    EXPECT_EQ(Check(), FindingKeys{});
    Last().isEnded = true;
    Last().sections.clear();
    EXPECT_EQ(Check(), FindingKeys{});
}

TEST_F(CheckSectionsTest, ACurrencyIsntMissedWhereThereAreNoFiguresAtAll) {
    report_.Request.StatementKind = kForeignKind;
    for (PrintedMoney& money : report_.PrintedMoney) money[Equity] = kDecimalSteps;
    Last().moneyCount = 0;
    EXPECT_EQ(Check(), missing_);
    EXPECT_EQ(findings_.size(), 1U);
}

TEST_F(CheckSectionsTest, ATableThatTheOneOtherStatementHasIsMissed) {
    statements_.erase(statements_.begin(), statements_.end() - 2);
    LastMoney()[Fees] = 1;
    Take(Last(), SectionKind::Trades);
    EXPECT_EQ(Check(), missing_);
}

TEST_F(CheckSectionsTest, MoneyWithoutASectionIsLookedAt) {
    Last().sections.clear();
    EXPECT_EQ(Check(), FindingKeys{});
    LastMoney().Figures = {};
    EXPECT_EQ(Check(), missing_);
}

TEST_F(CheckSectionsTest, OfSeveralBlocksOfAKindTheFirstThatIsFoundCounts) {
    SectionFacts& first = Last().sections[1];
    SectionFacts second = first;
    first.hasTitle = first.hasEnd = false;
    second.titleRow = 9;
    Last().sections.push_back(second);
    EXPECT_EQ(Last().Section(SectionKind::Trades)->titleRow, 9);
    Last().sections.back().hasEnd = false;
    EXPECT_EQ(Last().Section(SectionKind::Trades)->titleRow, 9);
    Last().sections.back().hasTitle = false;
    EXPECT_EQ(Last().Section(SectionKind::Trades), &Last().sections[1]);
    Last().sections[1].hasTitle = Last().sections[1].hasEnd = Last().sections.back().hasTitle = true;
    EXPECT_EQ(Last().Section(SectionKind::Trades), &Last().sections[1]);
}

}  // namespace
}  // namespace tradebill::check_sections_test
