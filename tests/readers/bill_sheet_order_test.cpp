// Which sheets the four bill sheet readers find, by the order in which the sheets stand in the file.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <string_view>

#include "readers/bill_sheet_fixture.h"
#include "readers/fixed_readers.h"

namespace tradebill::bill_sheet_order_test {
namespace {

/// Sheets by letter; a small letter is the same sheet without its end.
using Sheets = std::map<char, BillLines>;

Sheets WithOpenEnds(Sheets sheets) {
    for (const auto& [letter, lines] : Sheets(sheets)) {
        const char small = static_cast<char>(letter - 'A' + 'a');
        sheets[small] = lines;
        sheets[small].pop_back();
    }
    return sheets;
}

/// M money, T trades, O open, C closed positions. The dashed row stands below the figures.
const Sheets kClientBill = WithOpenEnds({
    {'M', {"客户帐单_资金清单", "h", "h", "h", Ones(10), "h", "---------"}},
    {'T', {"客户帐单_成交记录单", "h", "h", "h", Ones(14), "合计"}},
    {'O', {"客户帐单_持仓盈亏单", "h", "h", "h", "1 1 0 1 2 1 0 1 1 1 1", "合计"}},  // one record, by either reader
    {'C', {"客户帐单_平仓盈亏单", "h", "h", "h", Ones(12), "合计"}},
});

/// T trades, C closed, D open positions, S their summary, M money.
const Sheets kSpacedTitle = WithOpenEnds({
    {'T', {"成 交 记 录 单", "h", "h", Ones(10), "合计"}},
    {'C', {"平 仓 盈 亏 单", "h", "h", Ones(10), "合计"}},
    {'D', {"持仓明细", "h", "h", Ones(13), "合计"}},
    {'S', {"持 仓 盈 亏 汇 总", "h", "h", Ones(8), "合计"}},
    {'M', {"资 金 清 单", "h", "h", Ones(6), "h", "h", "1 1 1"}},
});

struct Order {
    const char* file;  ///< the sheets from top to bottom
    const char* read;  ///< those that are read, each letter once per record, money first
};

class BillSheetOrder : public BillSheetFixture {
protected:
    /// The records that `read` makes of a file.
    std::string RecordsOf(Reader* read, const Sheets& sheets, std::string_view file, int format) {
        MakeReport(format);
        BillLines lines;
        for (const char letter : file) {
            const BillLines& sheet = sheets.at(letter);
            lines.insert(lines.end(), sheet.begin(), sheet.end());
        }
        Read(read, kBillDay, BillOf(lines));
        const char open = format == 6 ? 'S' : 'O';
        const auto times = [](int count, char letter) { return std::string(static_cast<std::size_t>(count), letter); };
        return times(report.MoneyStore.Count(), 'M') + times(report.MatchStore.Count(), 'T') +
               times(report.PingDetailStore.Count(), 'C') + times(report.OpiDetailStore.Count(), 'D') +
               times(report.OpiSumStore.Count(), open);
    }
};

TEST_F(BillSheetOrder, OfTheClientBillIsMoneyTradesOpenClosed) {
    // clang-format off
    const Order orders[] = {
        {"MTOC", "MTCO"},
        {"TOC", "TCO"},
        {"MOC", "MCO"},
        {"MTC", "MTC"},
        {"TMOC", "MCO"},    // trades above the money
        {"OTMC", "MC"},     // trades and open above it
        {"CTMO", "MO"},
        {"TOCM", "M"},      // all above it
        {"MOTC", "MTC"},    // open above the trades
        {"MTCO", "MTO"},    // closed above the open
        {"MCOT", "MT"},
        {"MCTO", "MTO"},
        {"MTTOC", "MTCO"},  // only the first of two
    };
    // clang-format on
    for (const Order& order : orders) {
        EXPECT_EQ(RecordsOf(ReadClientBillStatement, kClientBill, order.file, 201), order.read) << order.file;
    }
}

TEST_F(BillSheetOrder, OfTheClientBillIsSoughtFromATitleWithoutEnd) {
    // clang-format off
    const Order orders[] = {
        {"MOCt", "MC"},   // the open sheet is sought from the trades' title on, the closed one from the money's end
        {"OCt", "C"},     // or from the top
        {"MTCo", "MT"},   // the closed sheet from the open one's title on
        {"MtOC", "MTC"},  // open ends the trades: its totals are theirs
        {"TOCm", "CO"},   // trades from the money's title on, the rest from the top
        {"mTOC", "TCO"},  // no money without its dashed row
        {"MTOc", "MTO"},
    };
    // clang-format on
    for (const Order& order : orders) {
        EXPECT_EQ(RecordsOf(ReadClientBillStatement, kClientBill, order.file, 201), order.read) << order.file;
    }
}

TEST_F(BillSheetOrder, OfTheClientBillGoesOnFromTheRowAboveTheDashedOne) {
    const BillLines trades = {"客户帐单_成交记录单", "---------", "h", "h", Ones(12), "合计"};
    const BillLines open = {"客户帐单_持仓盈亏单", "---------", "h", "h", "1 1 2 1 0 1 1 1 1 1 1", "合计"};
    const auto read = [this](const BillLines& lines) {
        MakeReport(201);
        Read(ReadClientBillStatement, kBillDay, BillOf(lines));
        EXPECT_EQ(report.MoneyStore.Count(), 1);
    };
    const BillLines money = {"客户帐单_资金清单", "h", "h", "h", Ones(9)};
    read(Joined({money, trades}));
    EXPECT_EQ(report.MatchStore.Count(), 1);
    read(Joined({money, open}));  // although the trades are missing
    EXPECT_EQ(report.OpiSumStore.Count(), 1);

    BillLines oneRowFurther = trades;
    oneRowFurther[1] = "h";
    oneRowFurther[2] = "---------";
    read(Joined({money, oneRowFurther}));
    EXPECT_EQ(report.MatchStore.Count(), 0);
}

TEST_F(BillSheetOrder, OfTheClientBillSkipsAllAboveALateDashedRow) {
    BillLines lines = {"客户帐单_资金清单", "h", "h", "h", Ones(9)};
    for (const char letter : std::string_view("TOC")) {
        const BillLines& sheet = kClientBill.at(letter);
        lines.insert(lines.end(), sheet.begin(), sheet.end());
    }
    lines.push_back("---------");
    Read(ReadClientBillStatement, kBillDay, BillOf(lines));
    EXPECT_EQ(report.MoneyStore.Count(), 1);
    EXPECT_EQ(report.MatchStore.Count() + report.OpiSumStore.Count() + report.PingDetailStore.Count(), 0);
}

TEST_F(BillSheetOrder, OfThePremiumClientBillIsFree) {
    // clang-format off
    const Order orders[] = {
        {"MTOC", "MTCO"},
        {"COTM", "MTCO"},
        {"TMOC", "MTCO"},
        {"OCMT", "MTCO"},
        {"CTMO", "MTCO"},
        {"MTTOC", "MTCO"},
        {"mTOC", "MTCO"},   // the money sheet's end isn't looked for
        {"MOCt", "MCO"},
        {"cTOM", "MTCCO"},  // the closed rows end at the trades' totals: one more row is theirs
        {"MTCo", "MTC"},
    };
    // clang-format on
    for (const Order& order : orders) {
        EXPECT_EQ(RecordsOf(ReadClientBillPremiumStatement, kClientBill, order.file, 201), order.read) << order.file;
    }
}

TEST_F(BillSheetOrder, OfSpacedTitlesIsTradesClosedOpenSummaryWithMoneyAnywhere) {
    // clang-format off
    const Order orders[] = {
        {"TCDSM", "MTCDS"},
        {"MTCDS", "MTCDS"},
        {"TCMDS", "MTCDS"},
        {"CDS", "CDS"},
        {"MSDCT", "MT"},     // all others above the trades
        {"CTDS", "TDS"},     // closed above the trades
        {"TDCS", "TCS"},     // open above the closed
        {"TCSDM", "MTCD"},   // summary above the open
        {"STCD", "TCD"},
        {"CDSt", "DS"},      // closed sought from the trades' title on, the rest from the top
        {"TDSc", "TS"},      // open sought from the closed sheet's title on, the rest from the trades' end
        {"TCSd", "TC"},      // summary sought from the open sheet's title on
        {"TdS", "TD"},       // the open rows end at the summary's totals
        {"MTCDs", "MTCD"},
    };
    // clang-format on
    for (Reader* const read : {&ReadSpacedTitleStatement, &ReadSpacedTitlePremiumStatement}) {
        for (const Order& order : orders) {
            EXPECT_EQ(RecordsOf(read, kSpacedTitle, order.file, 6), order.read)
                << order.file << (read == &ReadSpacedTitleStatement ? ", plain" : ", premium");
        }
    }
}

}  // namespace
}  // namespace tradebill::bill_sheet_order_test
