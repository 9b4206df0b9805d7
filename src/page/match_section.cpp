// The section of all trades, day by day. Its layouts differ in their columns alone, which stand in tables.
#include <array>
#include <cstdint>
#include <span>
#include <string>

#include "base/gbk.h"
#include "base/number.h"
#include "images/picture_names.h"
#include "page/page_sections.h"
#include "page/table_section.h"
#include "report/report.h"

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

/// What a column shows of a trade; the subtotal shows the sum of lots, turnover, profit and fees.
enum class Content { Exchange, Contract, Date, Side, OpenClose, Lots, Price, Turnover, Profit, Fee, Number, Currency };

struct MatchColumn {
    Heading heading;
    Content content;
};

// clang-format off
constexpr MatchColumn kFundStatusColumns[] = {
    {{"交易所          "_gbk,        "10%"}, Content::Exchange},
    {{"合约            "_gbk,        "10%"}, Content::Contract},
    {{"成交日期        "_gbk,        "10%"}, Content::Date},
    {{"买卖            "_gbk,        "10%"}, Content::Side},
    {{"开平            "_gbk,        "10%"}, Content::OpenClose},
    {{"手数            "_gbk,        "10%"}, Content::Lots},
    {{"成交价                "_gbk,  "12%"}, Content::Price},
    {{"成交额                "_gbk,  "16%"}, Content::Turnover},
    {{"手续费          "_gbk,        "12%"}, Content::Fee},
};

constexpr MatchColumn kFundClassColumns[] = {
    {{"交易所          "_gbk,      "8%"},  Content::Exchange},
    {{"合约            "_gbk,      "10%"}, Content::Contract},
    {{"成交日期        "_gbk,      "10%"}, Content::Date},
    {{"买卖            "_gbk,      "6%"},  Content::Side},
    {{"开平            "_gbk,      "6%"},  Content::OpenClose},
    {{"手数            "_gbk,      "6%"},  Content::Lots},
    {{"成交价              "_gbk,  "14%"}, Content::Price},
    {{"成交额              "_gbk,  "14%"}, Content::Turnover},
    {{"平仓盈亏            "_gbk,  "14%"}, Content::Profit},
    {{"手续费              "_gbk,  "12%"}, Content::Fee},
};

constexpr MatchColumn kFullColumns[] = {
    {{"交易所              "_gbk,  "8%"},  Content::Exchange},
    {{"合约                "_gbk,  "8%"},  Content::Contract},
    {{"成交日期            "_gbk,  "8%"},  Content::Date},
    {{"买卖                "_gbk,  "6%"},  Content::Side},
    {{"开平                "_gbk,  "6%"},  Content::OpenClose},
    {{"手数                "_gbk,  "6%"},  Content::Lots},
    {{"成交价              "_gbk,  "12%"}, Content::Price},
    {{"成交额              "_gbk,  "12%"}, Content::Turnover},
    {{"平仓盈亏            "_gbk,  "12%"}, Content::Profit},
    {{"手续费              "_gbk,  "10%"}, Content::Fee},
    {{"成交编号           "_gbk,   "12%"}, Content::Number},
};

constexpr MatchColumn kForeignColumns[] = {
    {{"交易所              "_gbk,  "12%"}, Content::Exchange},
    {{"合约                "_gbk,  "12%"}, Content::Contract},
    {{"成交日期            "_gbk,  "14%"}, Content::Date},
    {{"买卖                "_gbk,  "12%"}, Content::Side},
    {{"手数                "_gbk,  "10%"}, Content::Lots},
    {{"成交价              "_gbk,  "15%"}, Content::Price},
    {{"手续费              "_gbk,  "15%"}, Content::Fee},
    {{"币种                "_gbk,  "10%"}, Content::Currency},
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

constexpr std::size_t kMostColumns = std::size(kFullColumns);

/// Opening trades have no realised P/L, whatever their column says.
std::string_view ProfitText(const MatchRecord& row) {
    return Contains(FieldText(row.OFFSET), "开"_gbk) ? std::string_view() : FieldText(row.OFFSETPL);
}

std::string_view CellText(Content content, const MatchRecord& row, const CContractText& contract) {
    switch (content) {
        case Content::Exchange:
            return TrimForPage(FieldText(row.EXCH_NAME));
        case Content::Contract:
            return contract.View();
        case Content::Date:
            return FieldText(row.MATCH_DATE);
        case Content::Side:
            return FieldText(row.BID);
        case Content::OpenClose:
            return FieldText(row.OFFSET);
        case Content::Lots:
            return FieldText(row.MATCH_VOL);
        case Content::Price:
            return FieldText(row.MATCH_PRICE);
        case Content::Turnover:
            return FieldText(row.TURNOVER);
        case Content::Profit:
            return ProfitText(row);
        case Content::Fee:
            return FieldText(row.POUNDAGE);
        case Content::Number:
            return FieldText(row.MATCHNO);
        case Content::Currency:
            return FieldText(row.CURRENCY);
    }
    return {};
}

class CMatchLayout {
public:
    explicit CMatchLayout(std::span<const MatchColumn> columns) : columns_(columns) {}

    [[nodiscard]] bool Counts(const MatchRecord& /*row*/) const { return true; }

    void ResetSums() {
        lots_ = 0;
        turnover_ = profit_ = fees_ = 0;
    }

    void WriteRecord(CTableWriter& table, const MatchRecord& row, std::string_view band) {
        const CContractText contract(row.CONTRACT, row.DELIVERY);
        const double profit = ParseAmount(ProfitText(row));
        std::array<Cell, kMostColumns> cells;
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            cells[i] = {CellText(columns_[i].content, row, contract), ClassOf(columns_[i], kSection.classes, profit)};
        }
        table.AddRow(std::span(cells).first(columns_.size()), band);
        table.AddDashRow(band);
        lots_ = WrapAdd(lots_, IntegerIn(row.MATCH_VOL));
        turnover_ += AmountIn(row.TURNOVER);
        profit_ += profit;
        fees_ += AmountIn(row.POUNDAGE);
    }

    void WriteSubtotal(CTableWriter& table, std::string_view band) const {
        const CNumberText lots(lots_);
        const CNumberText turnover(turnover_);
        const CNumberText profit(profit_);
        const CNumberText fees(fees_);
        const auto sumText = [&](Content content) -> std::string_view {
            switch (content) {
                case Content::Exchange:
                    return "小计"_gbk;
                case Content::Lots:
                    return lots;
                case Content::Turnover:
                    return turnover;
                case Content::Profit:
                    return profit;
                case Content::Fee:
                    return fees;
                default:
                    return {};
            }
        };
        std::array<Cell, kMostColumns> cells;
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            cells[i] = {sumText(columns_[i].content), ClassOf(columns_[i], kSection.sums, profit_)};
        }
        table.AddRow(std::span(cells).first(columns_.size()), band);
        table.AddDashRow(band);
    }

private:
    static std::string_view ClassOf(const MatchColumn& column, const CellClasses& classes, double profit) {
        return column.content == Content::Profit ? SignClass(profit, classes) : classes.normal;
    }

    std::span<const MatchColumn> columns_;
    std::int32_t lots_ = 0;
    double turnover_ = 0;
    double profit_ = 0;
    double fees_ = 0;
};

bool AddMatchTable(CHtmlBuilder& page, const CReport& report, std::span<const MatchColumn> columns) {
    std::vector<Heading> headings;
    for (const MatchColumn& column : columns) headings.push_back(column.heading);
    CTableWriter table(page, report, kSection, headings);
    CMatchLayout layout(columns);
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
