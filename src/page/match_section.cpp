// The section of all trades, day by day. Its layouts differ in their columns alone, which stand in tables.
#include <cstdint>
#include <span>
#include <string_view>

#include "base/gbk.h"
#include "base/number.h"
#include "base/text.h"
#include "images/picture_names.h"
#include "page/page_sections.h"
#include "page/table_columns.h"
#include "page/table_section.h"
#include "report/records.h"
#include "report/report.h"
#include "report/statement_format.h"

namespace tradebill {
namespace {

constexpr TableSection kSection{
    .title = {.title = "成交明细"_gbk,
              .handler = "clickMatch",
              .buttonId = "Matchbtn",
              .picture = kMatchDetails,
              .titleTail = "</div>\r\n",
              .heightTail = "  "},
    .tableId = "tabMatch",
    .classes = {.normal = "matchspannormal", .bid = "matchspanbid", .ask = "matchspanask"},
    .sums = {.normal = "matchsumnormal", .bid = "matchsumbid", .ask = "matchsumask"},
};

/// A trade, and what is worked out of it.
struct MatchRow {
    const MatchRecord& record;
    CContractText contract;
    std::string_view profitText;
    double profit;
};

/// The sums of one day, written out.
struct MatchSums {
    CNumberText lots;
    CNumberText turnover;
    CNumberText profitText;
    CNumberText fees;
    double profit;
};

struct MatchContent {
    CCellContent<MatchRow> trade;
    CCellContent<MatchSums> subtotal = {};
};

using MatchColumn = PageColumn<MatchContent>;

// clang-format off
constexpr MatchContent kExchange{TrimmedFieldOf<&MatchRecord::EXCH_NAME>, "小计"_gbk};
constexpr MatchContent kContract{TextOf<&MatchRow::contract>};
constexpr MatchContent kDate{FieldOf<&MatchRecord::MATCH_DATE>};
constexpr MatchContent kSide{FieldOf<&MatchRecord::BID>};
constexpr MatchContent kOpenClose{FieldOf<&MatchRecord::OFFSET>};
constexpr MatchContent kLots{FieldOf<&MatchRecord::MATCH_VOL>, TextOf<&MatchSums::lots>};
constexpr MatchContent kPrice{FieldOf<&MatchRecord::MATCH_PRICE>};
constexpr MatchContent kTurnover{FieldOf<&MatchRecord::TURNOVER>, TextOf<&MatchSums::turnover>};
constexpr MatchContent kProfit{{TextOf<&MatchRow::profitText>,  BySign<&MatchRow::profit>},
                               {TextOf<&MatchSums::profitText>, BySign<&MatchSums::profit>}};
constexpr MatchContent kFee{FieldOf<&MatchRecord::POUNDAGE>, TextOf<&MatchSums::fees>};
constexpr MatchContent kNumber{FieldOf<&MatchRecord::MATCHNO>};
constexpr MatchContent kCurrency{FieldOf<&MatchRecord::CURRENCY>};

constexpr MatchColumn kFundStatusColumns[] = {
    {{"交易所          "_gbk,        "10%"}, kExchange},
    {{"合约            "_gbk,        "10%"}, kContract},
    {{"成交日期        "_gbk,        "10%"}, kDate},
    {{"买卖            "_gbk,        "10%"}, kSide},
    {{"开平            "_gbk,        "10%"}, kOpenClose},
    {{"手数            "_gbk,        "10%"}, kLots},
    {{"成交价                "_gbk,  "12%"}, kPrice},
    {{"成交额                "_gbk,  "16%"}, kTurnover},
    {{"手续费          "_gbk,        "12%"}, kFee},
};

constexpr MatchColumn kFundClassColumns[] = {
    {{"交易所          "_gbk,      "8%"},  kExchange},
    {{"合约            "_gbk,      "10%"}, kContract},
    {{"成交日期        "_gbk,      "10%"}, kDate},
    {{"买卖            "_gbk,      "6%"},  kSide},
    {{"开平            "_gbk,      "6%"},  kOpenClose},
    {{"手数            "_gbk,      "6%"},  kLots},
    {{"成交价              "_gbk,  "14%"}, kPrice},
    {{"成交额              "_gbk,  "14%"}, kTurnover},
    {{"平仓盈亏            "_gbk,  "14%"}, kProfit},
    {{"手续费              "_gbk,  "12%"}, kFee},
};

constexpr MatchColumn kFullColumns[] = {
    {{"交易所              "_gbk,  "8%"},  kExchange},
    {{"合约                "_gbk,  "8%"},  kContract},
    {{"成交日期            "_gbk,  "8%"},  kDate},
    {{"买卖                "_gbk,  "6%"},  kSide},
    {{"开平                "_gbk,  "6%"},  kOpenClose},
    {{"手数                "_gbk,  "6%"},  kLots},
    {{"成交价              "_gbk,  "12%"}, kPrice},
    {{"成交额              "_gbk,  "12%"}, kTurnover},
    {{"平仓盈亏            "_gbk,  "12%"}, kProfit},
    {{"手续费              "_gbk,  "10%"}, kFee},
    {{"成交编号           "_gbk,   "12%"}, kNumber},
};

constexpr MatchColumn kForeignColumns[] = {
    {{"交易所              "_gbk,  "12%"}, kExchange},
    {{"合约                "_gbk,  "12%"}, kContract},
    {{"成交日期            "_gbk,  "14%"}, kDate},
    {{"买卖                "_gbk,  "12%"}, kSide},
    {{"手数                "_gbk,  "10%"}, kLots},
    {{"成交价              "_gbk,  "15%"}, kPrice},
    {{"手续费              "_gbk,  "15%"}, kFee},
    {{"币种                "_gbk,  "10%"}, kCurrency},
};
// clang-format on

std::span<const MatchColumn> ColumnsOf(TradeColumns columns) {
    switch (columns) {
        case TradeColumns::FundClass:
            return kFundClassColumns;
        case TradeColumns::FundStatus:
            return kFundStatusColumns;
        case TradeColumns::Full:
            break;
    }
    return kFullColumns;
}

/// Opening trades have no realised P/L, whatever their column says.
std::string_view ProfitText(const MatchRecord& match) {
    return Contains(FieldText(match.OFFSET), "开"_gbk) ? std::string_view() : FieldText(match.OFFSETPL);
}

class CMatchLayout {
public:
    [[nodiscard]] bool Counts(const MatchRecord& /*match*/) const { return true; }

    void ResetSums() {
        lots_ = 0;
        turnover_ = profit_ = fees_ = 0;
    }

    void WriteRecord(CColumnTable<MatchContent>& table, const MatchRecord& match, std::string_view band) {
        const std::string_view profitText = ProfitText(match);
        const MatchRow row{.record = match,
                           .contract = CContractText(match.CONTRACT, match.DELIVERY),
                           .profitText = profitText,
                           .profit = ParseAmount(profitText)};
        table.Add(&MatchContent::trade, row, band);
        table.AddDashRow(band);
        lots_ = WrapAdd(lots_, IntegerIn(match.MATCH_VOL));
        turnover_ += AmountIn(match.TURNOVER);
        profit_ += row.profit;
        fees_ += AmountIn(match.POUNDAGE);
    }

    void WriteSubtotal(CColumnTable<MatchContent>& table, std::string_view band) const {
        const MatchSums sums{.lots = CNumberText(lots_),
                             .turnover = CNumberText(turnover_),
                             .profitText = CNumberText(profit_),
                             .fees = CNumberText(fees_),
                             .profit = profit_};
        table.AddSums(&MatchContent::subtotal, sums, band);
        table.AddDashRow(band);
    }

private:
    std::int32_t lots_ = 0;
    double turnover_ = 0;
    double profit_ = 0;
    double fees_ = 0;
};

bool AddMatchTable(CHtmlBuilder& page, const CReport& report, std::span<const MatchColumn> columns) {
    CColumnTable<MatchContent> table(page, report, kSection, columns);
    CMatchLayout layout;
    if (!WriteDayGroups(table, report.MatchStore.Rows, layout)) return false;
    table.Close();
    return true;
}

}  // namespace

bool AddMatchSection(CHtmlBuilder& page, const CReport& report) {
    return AddMatchTable(page, report, ColumnsOf(report.Format().tradeColumns));
}

bool AddForeignMatchSection(CHtmlBuilder& page, const CReport& report) {
    return AddMatchTable(page, report, kForeignColumns);
}

}  // namespace tradebill
