#include "statement_maker.h"

#include <array>
#include <cstdio>
#include <map>
#include <string_view>
#include <utility>

#include "base/gbk.h"

namespace tradebill {
namespace {

constexpr std::size_t kRuleWidth = 128;
constexpr std::size_t kTitleIndent = 40;

constexpr const char* kBuy = "买"_gbk.data();
constexpr const char* kSell = "卖"_gbk.data();
constexpr const char* kSpeculation = "投机"_gbk.data();

template <class... Values>
void AddLine(std::string& text, const char* format, Values... values) {
    std::array<char, 512> line;
    const int length = std::snprintf(line.data(), line.size(), format, values...);
    text.append(line.data(), static_cast<std::size_t>(length));
    text += "\r\n";
}

void AddRule(std::string& text) {
    text.append(kRuleWidth, '-');
    text += "\r\n";
}

void AddTitle(std::string& text, std::string_view title) {
    text.append(kTitleIndent, ' ');
    text += title;
    text += "\r\n";
    AddRule(text);
}

/// A table with its rows, which `addRows` adds and counts. A table without rows isn't printed.
template <class AddRows>
void AddTable(std::string& text, std::string_view title, std::string_view headings, AddRows addRows) {
    std::string rows;
    const int count = addRows(rows);
    if (count == 0) return;
    AddTitle(text, title);
    text += headings;
    text += "\r\n";
    AddRule(text);
    text += rows;
    AddRule(text);
    AddLine(text, "共%6d条\r\n"_gbk.data(), count);
}

void AddMoney(std::string& text, const MadeDay& day) {
    AddTitle(text, "资金状况"_gbk);
    AddLine(text, "上日结存:     %16.2f    客户权益:     %16.2f"_gbk.data(), day.opening, day.closing);
    AddLine(text, "出入金:       %16.2f    保证金占用:   %16.2f"_gbk.data(), day.cashFlow, day.margin);
    AddLine(text, "平仓盈亏:     %16.2f    可用资金:     %16.2f"_gbk.data(), day.closedPL, day.closing - day.margin);
    AddLine(text, "持仓盯市盈亏: %16.2f    风险度:       %15.2f%%"_gbk.data(), day.positionPL,
            day.margin / day.closing * 100);
    AddLine(text, "手续费:       %16.2f    追加保证金:   %16.2f"_gbk.data(), day.fees, 0.0);
    AddLine(text, "当日结存:     %16.2f"_gbk.data(), day.closing);
    AddRule(text);
    text += "\r\n";
}

int AddTrades(std::string& text, const MadeDay& day) {
    for (const MadeTrade& trade : day.trades) {
        const MadeProduct& product = MadeProducts()[trade.lot.product];
        AddLine(text, "%s  %-10s%-10s%-8s%s  %s  %12.2f %6d %16.2f %10.2f %14.2f %s", day.day.c_str(),
                product.exchange.data(), product.name.data(), trade.lot.delivery.c_str(), trade.Buys() ? kBuy : kSell,
                trade.opens ? "开仓"_gbk.data() : "平仓"_gbk.data(), trade.price, trade.lot.lots,
                trade.price * trade.lot.lots * product.unit, trade.fee, trade.closedPL, kSpeculation);
    }
    return static_cast<int>(day.trades.size());
}

int AddClosed(std::string& text, const MadeDay& day) {
    int count = 0;
    for (const MadeTrade& trade : day.trades) {
        if (trade.opens) continue;
        const MadeLot& lot = trade.lot;
        const MadeProduct& product = MadeProducts()[lot.product];
        AddLine(text, "%s  %-10s%-10s%-8s%s  %s  %12.2f  %s  %12.2f %6d %12.2f %14.2f", day.day.c_str(),
                product.exchange.data(), product.name.data(), lot.delivery.c_str(), kSpeculation,
                trade.Buys() ? kBuy : kSell, trade.price, lot.openDay.c_str(), lot.openPrice, lot.lots,
                day.prices[lot.product], trade.closedPL);
        ++count;
    }
    return count;
}

int AddPositions(std::string& text, const MadeDay& day) {
    for (const MadePosition& position : day.positions) {
        const MadeLot& lot = position.lot;
        const MadeProduct& product = MadeProducts()[lot.product];
        AddLine(text, "%-10s%-10s%-8s%s  %s  %s  %6d %12.2f %12.2f %12.2f %14.2f %14.2f %14.2f",
                product.exchange.data(), product.name.data(), lot.delivery.c_str(), lot.openDay.c_str(),
                lot.isLong ? kBuy : kSell, kSpeculation, lot.lots, lot.openPrice, day.formerPrices[lot.product],
                lot.mark, position.floatingPL, position.dailyPL, position.margin);
    }
    return static_cast<int>(day.positions.size());
}

/// The positions of one contract.
struct ContractSum {
    int longLots = 0;
    double longCost = 0;  ///< lots times price
    int shortLots = 0;
    double shortCost = 0;
    double floatingPL = 0;
    double dailyPL = 0;
    double margin = 0;
};

using ContractSums = std::map<std::pair<std::size_t, std::string>, ContractSum>;

ContractSums SumsOf(const MadeDay& day) {
    ContractSums sums;
    for (const MadePosition& position : day.positions) {
        const MadeLot& lot = position.lot;
        ContractSum& sum = sums[{lot.product, lot.delivery}];
        (lot.isLong ? sum.longLots : sum.shortLots) += lot.lots;
        (lot.isLong ? sum.longCost : sum.shortCost) += lot.lots * lot.openPrice;
        sum.floatingPL += position.floatingPL;
        sum.dailyPL += position.dailyPL;
        sum.margin += position.margin;
    }
    return sums;
}

double AveragePrice(double cost, int lots) {
    return lots == 0 ? 0 : cost / lots;
}

int AddSums(std::string& text, const MadeDay& day) {
    const ContractSums sums = SumsOf(day);
    for (const auto& [contract, sum] : sums) {
        const auto& [index, delivery] = contract;
        const MadeProduct& product = MadeProducts()[index];
        AddLine(text, "%-10s%-10s%-8s%6d %12.2f %6d %12.2f %12.2f %12.2f %14.2f %14.2f %14.2f %s",
                product.exchange.data(), product.name.data(), delivery.c_str(), sum.longLots,
                AveragePrice(sum.longCost, sum.longLots), sum.shortLots, AveragePrice(sum.shortCost, sum.shortLots),
                day.formerPrices[index], day.prices[index], sum.floatingPL, sum.dailyPL, sum.margin, kSpeculation);
    }
    return static_cast<int>(sums.size());
}

}  // namespace

std::string CStatementMaker::Next(const std::string& day) {
    const MadeDay made = trading_.Next(day);
    std::string text;
    text += "                                        结算单\r\n\r\n"_gbk;
    AddLine(text, "客户号:10086001    客户名称:测试    日  期:%s\r\n"_gbk.data(), day.c_str());
    AddMoney(text, made);
    // clang-format off
    AddTable(text, "成交记录"_gbk,
        "成交日期  交易所    品种      交割期  买卖开平        成交价   手数           成交额     手续费       平仓盈亏 投保"_gbk,
        [&](std::string& rows) { return AddTrades(rows, made); });
    AddTable(text, "平仓明细"_gbk,
        "成交日期  交易所    品种      交割期  投保  买卖        成交价  开仓日期        开仓价   手数       结算价       平仓盈亏"_gbk,
        [&](std::string& rows) { return AddClosed(rows, made); });
    AddTable(text, "持仓明细"_gbk,
        "交易所    品种      交割期  开仓日期  买卖投保    手数       开仓价       昨结算       结算价       浮动盈亏       盯市盈亏         保证金"_gbk,
        [&](std::string& rows) { return AddPositions(rows, made); });
    AddTable(text, "持仓汇总"_gbk,
        "交易所    品种      交割期    买持      买均价   卖持      卖均价       昨结算       结算价       浮动盈亏       盯市盈亏         保证金 投保"_gbk,
        [&](std::string& rows) { return AddSums(rows, made); });
    // clang-format on
    return text;
}

}  // namespace tradebill
