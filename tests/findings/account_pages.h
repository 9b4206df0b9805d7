// Statements of made-up accounts (account_maker.h) in three layouts, with the places of what can be damaged.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "findings/account_columns.h"
#include "findings/account_maker.h"
#include "platform/text_encoding.h"
#include "readers/scan_listener.h"
#include "support/gbk_text.h"

namespace tradebill {

inline std::string MoneyText(std::int64_t cents) {
    const std::string digits = std::to_string(std::abs(cents) + 1000);
    const std::string whole = std::to_string(std::abs(cents) / 100);
    return (cents < 0 ? "-" : "") + whole + "." + digits.substr(digits.size() - 2);
}

/// Bytes of `text` in GBK: one of each ASCII character, two of each Chinese one.
inline std::size_t GbkWidth(std::string_view text) {
    std::size_t width = 0;
    for (const char byte : text) {
        const auto value = static_cast<unsigned char>(byte);
        width += value < 0x80 ? 1U : value >= 0xC0 ? 2U : 0U;
    }
    return width;
}

/// Lines of a page, counted from 0.
struct MadeSection {
    std::size_t title = 0;
    std::vector<std::size_t> rows;
    std::size_t totals = 0;
    std::size_t end = 0;  ///< the line behind it
};

struct MadePage {
    std::vector<std::string> lines;  ///< UTF-8
    std::map<SectionKind, MadeSection> sections;

    /// As brokers send it.
    [[nodiscard]] std::string Bytes() const {
        std::string text;
        for (const std::string& line : lines) text += line + "\r\n";
        return Gbk(text);
    }
};

class CPagePrinter {
public:
    CPagePrinter(MadeLayout layout, const MadeAccount& account, bool leavesOutEmptyTables)
        : layout_(layout), account_(account), leavesOutEmptyTables_(leavesOutEmptyTables) {}

    MadePage Print(const MadeDay& day) {
        page_ = {};
        day_ = &day;
        const std::string client =
            layout_ == MadeLayout::Bilingual ? "客户号 Client ID：  90010002" : "客户号: 90010002";
        client_ = client + "   客户名称: 某某";
        if (layout_ != MadeLayout::ClientBill) {
            Lines({"某某期货有限公司", "交易结算单(盯市)", "", client_, DateLine(), ""});
        }
        PrintMoney();
        PrintTrades();
        if (layout_ == MadeLayout::ClientBill) PrintSummary();
        PrintClosings();
        if (layout_ != MadeLayout::ClientBill) PrintPositions();
        if (layout_ == MadeLayout::FundStatus) PrintSummary();
        return page_;
    }

private:
    using Cells = std::vector<std::string>;

    [[nodiscard]] std::string DateLine() const {
        return layout_ == MadeLayout::Bilingual ? "日期 Date：" + day_->day : "日  期:" + day_->day;
    }
    void Lines(const Cells& lines) { page_.lines.insert(page_.lines.end(), lines.begin(), lines.end()); }

    /// `text` with blanks in front of it to `width` bytes of GBK.
    static std::string Right(const std::string& text, std::size_t width) {
        const std::size_t bytes = GbkWidth(text);
        return std::string(bytes < width ? width - bytes : 0, ' ') + text;
    }

    [[nodiscard]] std::string Row(const std::vector<MadeColumn>& columns, const Cells& cells) const {
        const bool hasBars = layout_ == MadeLayout::Bilingual;
        std::string row = hasBars ? "|" : "";
        for (std::size_t i = 0; i < columns.size(); ++i)
            row += Right(cells[i], columns[i].width) + (hasBars ? "|" : " ");
        return row.substr(0, row.find_last_not_of(' ') + 1);
    }

    [[nodiscard]] std::string TotalsRow(const std::vector<MadeColumn>& columns, const std::vector<Cells>& rows) const {
        const std::string count = std::to_string(rows.size()) + "条";
        Cells totals(columns.size());
        for (std::size_t i = 0; i < columns.size(); ++i) {
            if (columns[i].sum == ColumnSum::None) continue;
            std::int64_t sum = 0;
            for (const Cells& row : rows) sum += Hundredths(row[i]);
            totals[i] = columns[i].sum == ColumnSum::Lots ? std::to_string(sum / 100) : MoneyText(sum);
        }
        totals[0] = layout_ == MadeLayout::ClientBill  ? "合计"
                    : layout_ == MadeLayout::Bilingual ? "共" + count
                                                       : "共 " + count;
        return Row(columns, totals);
    }

    static std::int64_t Hundredths(const std::string& text) {
        const std::size_t point = text.find('.');
        const std::int64_t whole = std::strtoll(text.c_str(), nullptr, 10) * 100;
        if (point == std::string::npos) return whole;
        const std::int64_t cents = std::strtoll(text.substr(point + 1, 2).c_str(), nullptr, 10);
        return text.starts_with('-') ? whole - cents : whole + cents;
    }

    void PrintTable(SectionKind kind, const std::string& title, const std::vector<MadeColumn>& columns,
                    const std::vector<Cells>& rows) {
        if (rows.empty() && leavesOutEmptyTables_) return;
        const std::string rule(120, '-');
        MadeSection section;
        if (layout_ == MadeLayout::ClientBill) Lines({"某某期货有限公司"});
        section.title = page_.lines.size();
        if (layout_ == MadeLayout::ClientBill) {
            Lines({"客户帐单_" + title, client_ + "   日期: " + day_->day});
        } else {
            Lines({"          " + title});
        }
        Cells headings;
        for (const MadeColumn& column : columns) headings.push_back(column.heading);
        Lines({rule, Row(columns, headings)});
        if (layout_ == MadeLayout::Bilingual) {
            for (std::string& heading : headings) heading = "Col";
            Lines({Row(columns, headings), rule});
        }
        for (const Cells& row : rows) {
            section.rows.push_back(page_.lines.size());
            Lines({Row(columns, row)});
        }
        Lines({rule});
        section.totals = page_.lines.size();
        Lines({TotalsRow(columns, rows), rule, ""});
        section.end = page_.lines.size();
        page_.sections[kind] = section;
    }

    void PrintMoney() {
        MadeSection section;
        section.title = page_.lines.size();
        switch (layout_) {
            case MadeLayout::FundStatus:
                PrintFunds();
                break;
            case MadeLayout::ClientBill:
                section.title = page_.lines.size() + 1;
                PrintMoneySheet();
                break;
            case MadeLayout::Bilingual:
                PrintBilingualFunds();
                break;
        }
        section.end = page_.lines.size();
        page_.sections[SectionKind::Money] = section;
    }

    void PrintFunds() {
        const MadeDay& day = *day_;
        const auto pair = [](const std::string& left, std::int64_t first, const std::string& right,
                             std::int64_t second) {
            return left + " " + Right(MoneyText(first), 16) + "     " + right + " " + Right(MoneyText(second), 16);
        };
        Lines({"          资金状况", std::string(120, '-'), pair("上日结存:", day.opening, "当日结存:", day.closing),
               pair("出入金:", day.deposits - day.withdrawals, "客户权益:", day.equity),
               pair("平仓盈亏:", day.closedProfit, "保证金占用:", day.margin),
               pair("持仓盯市盈亏:", day.positionProfit, "可用资金:", day.available),
               pair("手续费:", day.fees, "追加保证金:", 0), pair("行权手续费:", day.exerciseFees, "交割手续费:", 0),
               std::string(120, '-'), ""});
    }

    void PrintMoneySheet() {
        const MadeDay& day = *day_;
        const std::vector<MadeColumn> columns = MoneyColumns();
        Cells headings;
        for (const MadeColumn& column : columns) headings.push_back(column.heading);
        Lines({"某某期货有限公司", "客户帐单_资金清单", client_ + "   日期: " + day.day, std::string(120, '-'),
               Row(columns, headings),
               Row(columns, {MoneyText(day.opening), MoneyText(day.deposits), MoneyText(day.withdrawals),
                             MoneyText(day.fees), MoneyText(day.closedProfit + day.positionProfit),
                             MoneyText(day.closing), MoneyText(day.available), "10.00%", MoneyText(day.margin)}),
               std::string(120, '-'), ""});
    }

    void PrintBilingualFunds() {
        const MadeDay& day = *day_;
        const auto pair = [](const std::string& left, std::int64_t first, const std::string& right,
                             std::int64_t second) {
            return left + Right(MoneyText(first), 20) + "        " + right + Right(MoneyText(second), 20);
        };
        Lines({"          资金状况  币种：人民币  Account Summary  Currency：CNY", std::string(120, '-'),
               pair("期初结存 Balance b/f：", day.opening, "基础保证金 Initial Margin：", 0),
               pair("出 入 金 Deposit/Withdrawal：", day.deposits - day.withdrawals, "期末结存 Balance c/f：",
                    day.closing),
               pair("平仓盈亏 Realized P/L：", day.closedProfit, "质 押 金 Pledge Amount：", 0),
               pair("持仓盯市盈亏 MTM P/L：", day.positionProfit, "客户权益 Client Equity：：", day.equity),
               pair("期权执行盈亏 Exercise P/L：", 0, "保证金占用 Margin Occupied：", day.margin),
               pair("手 续 费 Commission：", day.fees, "可用资金 Fund Avail.：", day.available),
               pair("行权手续费 Exercise Fee：", day.exerciseFees, "追加保证金 Margin Call：", 0),
               "权利金收入 Premium received：" + Right(MoneyText(day.premiumReceived), 20),
               "权利金支出 Premium paid：" + Right(MoneyText(day.premiumPaid), 20), std::string(120, '-'), ""});
    }

    void PrintTrades() {
        std::vector<Cells> rows;
        int number = 70000;
        for (const MadeTrade& trade : day_->trades) {
            const MadeContract& contract = account_.contracts[trade.contract];
            const std::string side = trade.isBuy ? "买" : "卖";
            const std::string offset = trade.opens ? "开" : "平";
            const std::string price = std::to_string(trade.price);
            const std::string lots = std::to_string(trade.lots);
            switch (layout_) {
                case MadeLayout::FundStatus:
                    rows.push_back({day_->day, contract.exchange, contract.product, contract.month, side, offset, price,
                                    lots, MoneyText(trade.turnover), MoneyText(trade.fee), MoneyText(trade.profit),
                                    "投"});
                    break;
                case MadeLayout::ClientBill:
                    rows.push_back({day_->day, contract.exchange, contract.Code(), std::to_string(++number), side,
                                    price, lots, MoneyText(trade.turnover), offset + "仓", MoneyText(trade.fee),
                                    MoneyText(trade.profit), "投机"});
                    break;
                case MadeLayout::Bilingual:
                    rows.push_back({day_->day, contract.exchange, "品种", contract.Code(), side, "投", price, lots,
                                    MoneyText(trade.turnover), offset, MoneyText(trade.fee), MoneyText(trade.profit),
                                    MoneyText(trade.premium), std::to_string(++number)});
                    break;
            }
        }
        PrintTable(SectionKind::Trades, layout_ == MadeLayout::ClientBill ? "成交记录单" : "成交记录",
                   TradeColumnsOf(layout_), rows);
    }

    void PrintClosings() {
        std::vector<Cells> rows;
        for (const MadeClosing& closing : day_->closings) {
            const MadeContract& contract = account_.contracts[closing.contract];
            const std::string side = closing.isBuy ? "买" : "卖";
            const std::string price = std::to_string(closing.price);
            const std::string openPrice = std::to_string(closing.openPrice);
            const std::string before = std::to_string(closing.settledBefore);
            const std::string lots = std::to_string(closing.lots);
            const std::string profit = MoneyText(closing.profit);
            switch (layout_) {
                case MadeLayout::FundStatus:
                    rows.push_back({day_->day, contract.exchange, contract.product, contract.month, "00045371", side,
                                    price, closing.openDay, openPrice, lots, before, profit});
                    break;
                case MadeLayout::ClientBill:
                    rows.push_back({day_->day, contract.exchange, contract.Code(), "00045371", side, price, openPrice,
                                    lots, before, profit, "00037651", closing.openDay});
                    break;
                case MadeLayout::Bilingual:
                    rows.push_back({day_->day, contract.exchange, "品种", contract.Code(), closing.openDay, side, lots,
                                    openPrice, before, price, profit});
                    break;
            }
        }
        PrintTable(SectionKind::Closed, layout_ == MadeLayout::ClientBill ? "平仓盈亏单" : "平仓明细",
                   ClosingColumnsOf(layout_), rows);
    }

    void PrintPositions() {
        std::vector<Cells> rows;
        for (const MadePosition& position : day_->positions) {
            const MadeContract& contract = account_.contracts[position.contract];
            const std::string side = position.isLong ? "买" : "卖";
            const std::string lots = std::to_string(position.lots);
            const Cells amounts{std::to_string(position.openPrice), std::to_string(position.settledBefore),
                                std::to_string(position.settled),   MoneyText(position.floating),
                                MoneyText(position.profit),         MoneyText(position.margin)};
            Cells row =
                layout_ == MadeLayout::FundStatus
                    ? Cells{contract.exchange, contract.product, contract.month, position.openDay, side, "投", lots}
                    : Cells{contract.exchange, "品种", contract.Code(), position.openDay, "投", side, lots};
            row.insert(row.end(), amounts.begin(), amounts.end());
            rows.push_back(row);
        }
        std::vector<MadeColumn> columns{{"交易所", 8},
                                        {"品种", 13},
                                        {"交割期", 13},
                                        {"开仓日期", 9},
                                        {"买卖", 5},
                                        {"投保", 5},
                                        {"持仓量", 7, ColumnSum::Lots},
                                        {"开仓价", 9},
                                        {"昨结算", 9},
                                        {"结算价", 9},
                                        {"浮动盈亏", 14, ColumnSum::Money},
                                        {"盯市盈亏", 14, ColumnSum::Money},
                                        {"保证金", 14, ColumnSum::Money}};
        PrintTable(SectionKind::Open, "持仓明细", columns, rows);
    }

    /// A contract's positions of both sides in one row.
    void PrintSummary() {
        std::map<std::size_t, std::vector<MadePosition>> byContract;
        for (const MadePosition& position : day_->positions) byContract[position.contract].push_back(position);
        std::vector<Cells> rows;
        for (const auto& [index, positions] : byContract) rows.push_back(SummaryRow(index, positions));
        const bool isBill = layout_ == MadeLayout::ClientBill;
        // The bill's sheet holds what other layouts print as open positions.
        PrintTable(SectionKind::Summary, isBill ? "持仓盈亏单" : "持仓汇总", SummaryColumnsOf(layout_), rows);
        if (isBill && page_.sections.contains(SectionKind::Summary)) {
            page_.sections[SectionKind::Open] = page_.sections[SectionKind::Summary];
            page_.sections.erase(SectionKind::Summary);
        }
    }

    [[nodiscard]] Cells SummaryRow(std::size_t index, const std::vector<MadePosition>& positions) const {
        const MadeContract& contract = account_.contracts[index];
        MadePosition sum{};
        int lots[2] = {};
        std::int64_t cost[2] = {};
        for (const MadePosition& position : positions) {
            lots[position.isLong ? 0 : 1] += position.lots;
            cost[position.isLong ? 0 : 1] += std::int64_t{1} * position.openPrice * position.lots;
            sum.floating += position.floating;
            sum.profit += position.profit;
            sum.margin += position.margin;
        }
        const auto average = [&](int side) {
            return MoneyText(lots[side] == 0 ? 0 : cost[side] * 100 / lots[side]) + "0";
        };
        const bool isBill = layout_ == MadeLayout::ClientBill;
        Cells row = isBill ? Cells{contract.exchange, contract.Code()}
                           : Cells{contract.exchange, contract.product, contract.month};
        for (const std::string& text :
             {std::to_string(lots[0]), average(0), std::to_string(lots[1]), average(1),
              std::to_string(positions[0].settledBefore), std::to_string(positions[0].settled)}) {
            row.push_back(text);
        }
        if (!isBill) row.push_back(MoneyText(sum.floating));
        for (const std::string& text :
             {MoneyText(sum.profit), MoneyText(sum.margin), std::string(isBill ? "投机" : "投")})
            row.push_back(text);
        return row;
    }

    MadeLayout layout_;
    const MadeAccount& account_;
    bool leavesOutEmptyTables_;
    const MadeDay* day_ = nullptr;
    std::string client_;
    MadePage page_;
};

}  // namespace tradebill
