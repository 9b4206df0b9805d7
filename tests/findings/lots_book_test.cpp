#include "findings/lots_book.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "platform/text_encoding.h"
#include "report/records.h"
#include "support/gbk_text.h"

namespace tradebill::lots_book_test {
namespace {

class LotsBook : public testing::Test {
protected:
    void Trade(std::string_view contract, std::string_view bid, std::string_view offset, std::string_view lots,
               std::string_view delivery = {}) {
        book_.AddTrade(TradeOf(contract, bid, offset, lots, delivery));
    }
    static MatchRecord TradeOf(std::string_view contract, std::string_view bid, std::string_view offset,
                               std::string_view lots, std::string_view delivery = {}) {
        MatchRecord row{};
        CopyField(row.CONTRACT, Gbk(contract));
        CopyField(row.DELIVERY, delivery);
        CopyField(row.BID, Gbk(bid));
        CopyField(row.OFFSET, Gbk(offset));
        CopyField(row.MATCH_VOL, lots);
        return row;
    }
    void Open(std::string_view contract, std::string_view bid, std::string_view lots, std::string_view delivery = {}) {
        OpiDetail row{};
        CopyField(row.CONTRACT, Gbk(contract));
        CopyField(row.DELIVERY, delivery);
        CopyField(row.BID, Gbk(bid));
        CopyField(row.POSITION_VOL, lots);
        book_.AddOpen(row);
    }
    /// "rb2405 long 3/2" for three expected and two found, "?" behind those of options that vanished.
    std::vector<std::string> EndDay() {
        std::vector<std::string> faults;
        for (const LotsFault& fault : book_.EndDay()) {
            faults.push_back(GbkToUtf8(fault.contract) + (fault.side == LotSide::Long ? " long " : " short ") +
                             std::to_string(fault.expected) + "/" + std::to_string(fault.found) +
                             (fault.isVanishedOption ? "?" : ""));
        }
        book_.BeginDay();
        return faults;
    }

    CLotsBook book_;
};

using Faults = std::vector<std::string>;

TEST_F(LotsBook, SaysNothingOfTheFirstDay) {
    Trade("rb2405", "买", "开", "5");
    Open("rb2405", "买", "3");
    EXPECT_EQ(EndDay(), Faults{});
}

TEST_F(LotsBook, AddsWhatIsOpenedAndTakesWhatIsClosed) {
    Open("rb2405", "买", "3");
    Open("rb2405", "卖", "4");
    EXPECT_EQ(EndDay(), Faults{});
    Trade("rb2405", "买", "开仓", "5");
    Trade("rb2405", "卖", "平昨", "2");
    Trade("rb2405", "买", "平今", "1");
    Open("rb2405", "买", "4");
    Open("rb2405", "买", "2");
    Open("rb2405", "卖", "3");
    EXPECT_EQ(EndDay(), Faults{});
    Trade("rb2405", "卖", "强平", "6");
    Open("rb2405", "卖", "3");
    EXPECT_EQ(EndDay(), Faults{});
}

TEST_F(LotsBook, TellsBothSides) {
    Open("rb2405", "买", "3");
    static_cast<void>(EndDay());
    Trade("rb2405", "卖", "开", "2");
    EXPECT_EQ(EndDay(), (Faults{"rb2405 long 3/0", "rb2405 short 2/0"}));
}

TEST_F(LotsBook, GoesOnFromWhatWasFound) {
    Open("rb2405", "买", "3");
    static_cast<void>(EndDay());
    Open("rb2405", "买", "7");
    EXPECT_EQ(EndDay(), Faults{"rb2405 long 3/7"});
    Open("rb2405", "买", "7");
    EXPECT_EQ(EndDay(), Faults{});
}

TEST_F(LotsBook, KnowsOptionsThatVanish) {
    for (const char* const option : {"m2405-C-3000", "cu2402P67000", "SR405C6300", "豆粕P3000"}) {
        Open(option, "买", "3");
    }
    static_cast<void>(EndDay());
    EXPECT_EQ(EndDay(), (Faults{"m2405-C-3000 long 3/0?", "cu2402P67000 long 3/0?", "SR405C6300 long 3/0?",
                                "豆粕P3000 long 3/0?"}));
    Open("m2405-C-3000", "卖", "3");
    static_cast<void>(EndDay());
    Open("m2405-C-3000", "卖", "1");
    EXPECT_EQ(EndDay(), Faults{"m2405-C-3000 short 3/1"});
    Trade("m2405-C-3000", "卖", "开", "1");
    EXPECT_EQ(EndDay(), Faults{"m2405-C-3000 short 2/0"});
}

TEST_F(LotsBook, SaysNothingOfATradeThatNeitherOpensNorCloses) {
    static_cast<void>(EndDay());
    Trade("rb2405", "买", "移仓", "2");
    EXPECT_EQ(EndDay(), Faults{});
}

TEST_F(LotsBook, NamesDeliveryMonthsApartWhereTheLayoutDoes) {
    book_.Begin(true);
    Open("rb", "买", "3", "2405");
    Open("rb", "买", "2", "2410");
    static_cast<void>(EndDay());
    Open("rb", "买", "2", "2405");
    Open("rb", "买", "3", "2410");
    EXPECT_EQ(EndDay(), (Faults{"rb-2405 long 3/2", "rb-2410 long 2/3"}));
}

TEST_F(LotsBook, ComparesNothingBehindABreak) {
    Open("rb2405", "买", "3");
    static_cast<void>(EndDay());
    book_.Break();
    Open("rb2405", "买", "9");
    EXPECT_EQ(EndDay(), Faults{});
    Open("rb2405", "买", "8");
    EXPECT_EQ(EndDay(), Faults{"rb2405 long 9/8"});
}

TEST_F(LotsBook, DropsADayThatBeginsAgain) {
    Open("rb2405", "买", "3");
    book_.BeginDay();
    Open("rb2405", "买", "2");
    static_cast<void>(EndDay());
    Open("rb2405", "买", "2");
    EXPECT_EQ(EndDay(), Faults{});
}

TEST_F(LotsBook, TakesClosedPositionsBackWhereTradesDontSayWhatTheyDo) {
    const auto open = [&] { Open("S2403", "买", "2"); };
    open();
    static_cast<void>(EndDay());
    book_.AddForeignTrade(TradeOf("S2403", "卖", "", "1"));
    PingDetail closed{};
    CopyField(closed.CONTRACT, "S2403");
    CopyField(closed.BID, Gbk("卖"));
    CopyField(closed.MATCH_VOL, "1");
    book_.AddForeignClosed(closed);
    Open("S2403", "买", "1");
    EXPECT_EQ(EndDay(), Faults{});
    book_.AddForeignTrade(TradeOf("S2403", "卖", "", "1"));
    Open("S2403", "买", "1");
    EXPECT_EQ(EndDay(), Faults{"S2403 short 1/0"});
}

TEST_F(LotsBook, ExpectsLotsThatNoTradeClosed) {
    EXPECT_FALSE(book_.ExpectsLots());
    Trade("rb2405", "买", "开", "2");
    EXPECT_TRUE(book_.ExpectsLots());
    Open("rb2405", "买", "2");
    static_cast<void>(EndDay());
    EXPECT_TRUE(book_.ExpectsLots());
    Trade("rb2405", "卖", "平", "2");
    EXPECT_FALSE(book_.ExpectsLots());
    book_.BeginDay();
    book_.Break();
    EXPECT_FALSE(book_.ExpectsLots());
}

TEST_F(LotsBook, KnowsLongPositionsByEitherWord) {
    Open("rb2405", "多", "3");
    Open("rb2405", "空", "1");
    static_cast<void>(EndDay());
    Open("rb2405", "买", "3");
    Open("rb2405", "卖", "1");
    EXPECT_EQ(EndDay(), Faults{});
}

TEST_F(LotsBook, SaysNothingOfAForeignRowWithoutASide) {
    Open("S2403", "买", "2");
    static_cast<void>(EndDay());
    book_.AddForeignTrade(TradeOf("S2403", "", "", "1"));
    EXPECT_EQ(EndDay(), Faults{});
    Open("S2403", "买", "2");
    static_cast<void>(EndDay());
    PingDetail closed{};
    CopyField(closed.CONTRACT, "S2403");
    CopyField(closed.MATCH_VOL, "1");
    book_.AddForeignClosed(closed);
    EXPECT_EQ(EndDay(), Faults{});
}

}  // namespace
}  // namespace tradebill::lots_book_test
