#include "intake/workbook_text.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/decimal.h"
#include "findings/finding.h"
#include "findings/finding_table.h"
#include "intake/opening_trades.h"
#include "intake/product_names.h"
#include "intake/text_table.h"
#include "intake/workbook_day.h"
#include "intake/workbook_figures.h"
#include "readers/scan_listener.h"

namespace tradebill {
namespace {

using Row = std::vector<std::string>;

// clang-format off
constexpr TextColumn kCashColumns[] = {
    {"发生日期", "Date",       8}, {"出入金类型", "Type", 22}, {"入金", "Deposit", 15}, {"出金", "Withdrawal", 15},
    {"说明", "Note",          30},
};
constexpr TextColumn kTradeColumns[] = {
    {"成交日期", "Date",      8}, {"交易所",   "Exchange",      8}, {"品种",       "Product",        16},
    {"合约", "Instrument",   16}, {"买/卖",    "B/S",           5}, {"投/保",      "S/H",             6},
    {"成交价",   "Price",    12}, {"手数",     "Lots",          6}, {"成交额",     "Turnover",       18},
    {"开平",     "O/C",       6}, {"手续费",   "Fee",          12}, {"平仓盈亏",   "Realized P/L",   15},
    {"权利金收支", "Premium Rcvd/Pd", 15}, {"成交序号", "Trans.No.", 12},
};
constexpr TextColumn kClosedColumns[] = {
    {"平仓日期", "Close Date", 10}, {"交易所",   "Exchange",        8}, {"品种",       "Product",    16},
    {"合约", "Instrument",     16}, {"开仓日期", "Open Date",       9}, {"买/卖",      "B/S",         5},
    {"手数",     "Lots",        6}, {"开仓价",   "Pos. Open Price", 15}, {"昨结算",    "Prev. Sttl", 12},
    {"成交价",   "Trans. Price", 12}, {"平仓盈亏", "Realized P/L",  15}, {"原成交序号", "Open No.",  12},
};
constexpr TextColumn kOpenColumns[] = {
    {"交易所",   "Exchange",    8}, {"品种",     "Product",         16}, {"合约",      "Instrument", 16},
    {"开仓日期", "Open Date",   9}, {"投/保",    "S/H",              6}, {"买/卖",     "B/S",         5},
    {"持仓量",   "Lots",        6}, {"开仓价",   "Open Price",      15}, {"昨结算",    "Prev. Sttl", 12},
    {"结算价",   "Sttl Price", 12}, {"浮动盈亏", "Accum. P/L",      15}, {"盯市盈亏",  "MTM P/L",    15},
    {"保证金",   "Margin",     15},
};
// clang-format on

constexpr std::string_view kNone = "--";

std::string OrNone(std::string_view text) {
    std::string cell = CellText(text);
    return cell.empty() ? std::string(kNone) : cell;
}

std::string Side(bool isBuy) {
    return isBuy ? "买" : "卖";
}

/// 共9条
std::string Count(std::size_t rows) {
    return "共" + std::to_string(rows) + "条";
}

template <class Records, class Amount>
std::int64_t SumOf(const Records& records, Amount amount) {
    std::int64_t sum = 0;
    for (const auto& record : records) sum = WrappingSum(sum, record.*amount);
    return sum;
}

class CDayPrinter {
public:
    CDayPrinter(const WorkbookDay& day, const WorkbookTextSettings& settings)
        : day_(day), settings_(settings), units_(day, settings.units) {}

    WorkbookText Print() {
        PrintHead();
        PrintMoney();
        CheckProfit();
        CheckPremium();
        PrintCash();
        PrintTrades();
        PrintClosings();
        PrintPositions();
        return std::move(result_);
    }

private:
    void Line(const std::string& line = {}) { result_.text += line + "\n"; }

    void PrintHead() {
        if (!day_.company.empty()) Line("                    " + CellText(day_.company));
        Line("                    交易结算单(盯市) Settlement Statement(MTM)");
        Line();
        const std::string client =
            day_.client.empty() ? "" : "          客户名称 Client Name：  " + CellText(day_.client);
        Line("客户号 Client ID：  " + settings_.account + client);
        Line("日期 Date：" + settings_.day);
        Line();
    }

    void Pair(std::string_view left, const std::string& value, std::string_view right, const std::string& other) {
        constexpr std::size_t kValue = 22;
        Line(std::string(left) + AlignedRight(value, kValue) + "          " + std::string(right) +
             AlignedRight(other, kValue));
    }

    void PrintMoney() {
        const DayMoney& money = day_.money;
        const std::string rule(120, '-');
        const std::string zero = DecimalText(0);
        Line("                    资金状况  币种：人民币  Account Summary  Currency：CNY");
        Line(rule);
        Pair("期初结存 Balance b/f：", DecimalText(money.opening), "期末结存 Balance c/f：",
             DecimalText(money.closing));
        Pair("出 入 金 Deposit/Withdrawal：", DecimalText(money.cashFlow), "客户权益 Client Equity：：",
             DecimalText(money.equity));
        Pair("平仓盈亏 Realized P/L：", DecimalText(ClosedProfit()), "保证金占用 Margin Occupied：",
             DecimalText(money.margin));
        Pair("持仓盯市盈亏 MTM P/L：", DecimalText(PositionProfit()), "可用资金 Fund Avail.：",
             DecimalText(money.available));
        Pair("手 续 费 Commission：", DecimalText(money.fees), "风 险 度 Risk Degree：", OrNone(money.risk));
        Pair("行权手续费 Exercise Fee：", zero, "追加保证金 Margin Call：", DecimalText(money.call));
        if (money.frozen != 0) Line("冻结资金 Frozen Fund：" + AlignedRight(DecimalText(money.frozen), 22));
        // What is paid would go unread: its row ends the section for the layout's reader.
        Line("权利金收入 Premium received：" + AlignedRight(DecimalText(Premium()), 22));
        Line("权利金支出 Premium paid：" + AlignedRight(zero, 22));
        Line(rule);
        Line();
    }

    [[nodiscard]] std::int64_t ClosedProfit() const { return SumOf(day_.closings, &DayClosing::profit); }
    static std::int64_t PremiumOf(const DayTrade& trade) {
        return !trade.isOption ? 0 : trade.isBuy ? -trade.turnover : trade.turnover;
    }
    /// Received less paid.
    [[nodiscard]] std::int64_t Premium() const {
        std::int64_t sum = 0;
        for (const DayTrade& trade : day_.trades) sum = WrappingSum(sum, PremiumOf(trade));
        return sum;
    }
    [[nodiscard]] std::int64_t PositionProfit() const { return SumOf(day_.positions, &DayPosition::profit); }

    Finding& Tell(FindingCode code, std::string text) {
        result_.findings.push_back(
            {.code = code, .severity = KindOf(code).severity, .day = settings_.day, .text = std::move(text)});
        return result_.findings.back();
    }

    /// What the workbook states against what its rows make.
    void Check(const std::optional<std::int64_t>& stated, std::int64_t found, std::string text) {
        if (!stated || *stated == found) return;
        Finding& finding = Tell(FindingCode::Identity, std::move(text));
        finding.section = SectionKind::Money;
        finding.expected = DecimalText(*stated);
        finding.found = DecimalText(found);
    }

    void CheckProfit() {
        Check(day_.money.profit, WrappingSum(ClosedProfit(), PositionProfit()),
              "The closed rows and positions of the workbook don't add up to its 当日盈亏.");
    }

    void CheckPremium() {
        Check(day_.money.premium, Premium(), "The option trades of the workbook don't add up to its 当日总权利金.");
    }

    void PrintCash() {
        std::vector<Row> rows;
        rows.reserve(day_.cash.size() + 1);
        for (const DayCash& cash : day_.cash) {
            rows.push_back(
                {cash.day, OrNone(cash.kind), DecimalText(cash.in), DecimalText(cash.out), CellText(cash.note)});
        }
        if (rows.empty()) return;
        rows.push_back({Count(rows.size()), "", DecimalText(SumOf(day_.cash, &DayCash::in)),
                        DecimalText(SumOf(day_.cash, &DayCash::out)), ""});
        result_.text += TextTable("出入金明细 Deposit/Withdrawal", kCashColumns, rows);
    }

    /// Exchange and name of a contract's product.
    std::pair<std::string, std::string> ProductOf(const std::string& contract) {
        const ProductName* const product = FindProduct(contract);
        if (product != nullptr) return {std::string(product->exchange), std::string(product->name)};
        if (std::ranges::find(result_.unknown, contract) == result_.unknown.end()) result_.unknown.push_back(contract);
        return {};
    }

    void PrintTrades() {
        std::vector<Row> rows;
        for (const DayTrade& trade : day_.trades) {
            const auto [exchange, product] = ProductOf(trade.contract);
            rows.push_back({settings_.day, exchange, product, CellText(trade.contract), Side(trade.isBuy),
                            OrNone(trade.hedge), DecimalText(trade.price), std::to_string(trade.lots),
                            DecimalText(trade.turnover), OrNone(trade.offset), DecimalText(trade.fee),
                            DecimalText(trade.profit), DecimalText(PremiumOf(trade)), OrNone(trade.number)});
        }
        if (rows.empty()) return;
        rows.push_back({Count(rows.size()), "", "", "", "", "", "",
                        std::to_string(day_.totals.tradeLots / kDecimalSteps),
                        DecimalText(SumOf(day_.trades, &DayTrade::turnover)), "", DecimalText(day_.totals.tradeFees),
                        DecimalText(SumOf(day_.trades, &DayTrade::profit)), DecimalText(Premium()), ""});
        result_.text += TextTable("成交记录 Transaction Record", kTradeColumns, rows);
    }

    /// The day on which a trade opened what is closed or still open; nothing if none is known.
    [[nodiscard]] std::optional<std::string> OpenDayOf(const OpeningTrade& wanted) const {
        const auto isIt = [&](const DayTrade& trade) {
            return trade.contract == wanted.contract && trade.number == wanted.number && trade.isBuy == wanted.isBuy &&
                   trade.price == wanted.price && trade.offset.find("平") == std::string::npos;
        };
        if (wanted.number.empty()) return std::nullopt;
        if (std::ranges::any_of(day_.trades, isIt)) return settings_.day;
        if (settings_.openings == nullptr) return std::nullopt;
        return settings_.openings->DayOf(settings_.account, wanted, settings_.day);
    }

    void TellNoOpening(SectionKind section, const std::string& contract, const std::string& number) {
        Tell(FindingCode::Opening, "The trade " + (number.empty() ? "" : CellText(number) + " ") + "that opened " +
                                       CellText(contract) + " stands in no imported statement.")
            .section = section;
    }

    void PrintClosings() {
        std::vector<Row> rows;
        for (const DayClosing& closing : day_.closings) {
            const auto [exchange, product] = ProductOf(closing.contract);
            auto openDay = closing.openDay;
            if (!openDay)
                openDay = OpenDayOf({closing.contract, closing.openNumber, !closing.isBuy, closing.openPrice});
            if (!openDay) TellNoOpening(SectionKind::Closed, closing.contract, closing.openNumber);
            rows.push_back({settings_.day, exchange, product, CellText(closing.contract),
                            openDay.value_or(std::string(kNone)), Side(closing.isBuy), std::to_string(closing.lots),
                            DecimalText(closing.openPrice), DecimalText(closing.settledBefore),
                            DecimalText(closing.price), DecimalText(closing.profit), OrNone(closing.openNumber)});
        }
        if (rows.empty()) return;
        rows.push_back({Count(rows.size()), "", "", "", "", "", std::to_string(day_.totals.closedLots / kDecimalSteps),
                        "", "", "", DecimalText(day_.totals.closedProfit), ""});
        result_.text += TextTable("平仓明细 Position Closed", kClosedColumns, rows);
    }

    void PrintPositions() {
        std::vector<Row> rows;
        const std::vector<std::int64_t> margins = MarginsOf(day_, units_);
        std::int64_t floatingSum = 0;
        std::int64_t marginSum = 0;
        for (std::size_t i = 0; i < day_.positions.size(); ++i) {
            const DayPosition& position = day_.positions[i];
            const auto [exchange, product] = ProductOf(position.contract);
            const auto floating = FloatingOf(position, units_);
            if (!floating) TellNoUnit(position.contract);
            floatingSum = WrappingSum(floatingSum, floating.value_or(0));
            marginSum = WrappingSum(marginSum, margins[i]);
            rows.push_back({exchange, product, CellText(position.contract), PositionDayOf(position),
                            OrNone(position.hedge), Side(position.isLong), std::to_string(position.lots),
                            DecimalText(position.openPrice), DecimalText(position.settledBefore),
                            DecimalText(position.settled), DecimalText(floating.value_or(0)),
                            DecimalText(position.profit), DecimalText(margins[i])});
        }
        if (rows.empty()) return;
        rows.push_back({Count(rows.size()), "", "", "", "", "",
                        std::to_string(SumOf(day_.positions, &DayPosition::lots)), "", "", "", DecimalText(floatingSum),
                        DecimalText(day_.totals.positionProfit), DecimalText(marginSum)});
        result_.text += TextTable("持仓明细 Positions Detail", kOpenColumns, rows);
    }

    /// An option's position is that of many trades, so it has no day; the workbook's own day for a future is that of
    /// the clock, which a night trade doesn't share.
    std::string PositionDayOf(const DayPosition& position) {
        if (position.isOption) return std::string(kNone);
        auto day = OpenDayOf({position.contract, position.number, position.isLong, position.openPrice});
        if (!day) day = position.tradeDay;
        if (!day) TellNoOpening(SectionKind::Open, position.contract, position.number);
        return day.value_or(std::string(kNone));
    }

    void TellNoUnit(const std::string& contract) {
        if (std::ranges::find(withoutUnit_, contract) != withoutUnit_.end()) return;
        withoutUnit_.push_back(contract);
        Tell(FindingCode::Unit,
             "The unit of " + CellText(contract) + " isn't known: the floating P/L of its positions is left at 0.00.")
            .section = SectionKind::Open;
    }

    const WorkbookDay& day_;
    const WorkbookTextSettings& settings_;
    CDayUnits units_;
    std::vector<std::string> withoutUnit_;
    WorkbookText result_;
};

}  // namespace

WorkbookText PrintWorkbookDay(const WorkbookDay& day, const WorkbookTextSettings& settings) {
    return CDayPrinter(day, settings).Print();
}

}  // namespace tradebill
