#include "made_trading.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "base/gbk.h"

namespace tradebill {
namespace {

// clang-format off
constexpr MadeProduct kProducts[] = {
    {"上期所"_gbk, "沪铜"_gbk,    5, 10.0, 52000.0, 12.5, 0.10},
    {"上期所"_gbk, "沪铝"_gbk,    5,  5.0, 14500.0,  3.0, 0.08},
    {"上期所"_gbk, "螺纹钢"_gbk, 10,  1.0,  3800.0,  4.2, 0.09},
    {"上期所"_gbk, "橡胶"_gbk,   10,  5.0, 21000.0,  8.4, 0.12},
    {"大商所"_gbk, "豆粕"_gbk,   10,  1.0,  3300.0,  1.5, 0.07},
    {"大商所"_gbk, "棕榈油"_gbk, 10,  2.0,  6200.0,  2.5, 0.08},
    {"郑商所"_gbk, "白糖"_gbk,   10,  1.0,  5400.0,  3.0, 0.07},
    {"郑商所"_gbk, "棉花"_gbk,    5,  5.0, 19000.0,  4.3, 0.08},
};
// clang-format on

constexpr int kMonthsToDelivery = 3;

/// yymm of the contract that is traded on `day`.
std::string DeliveryOn(const std::string& day) {
    const int month = std::stoi(day.substr(4, 2)) - 1 + kMonthsToDelivery;
    const int year = std::stoi(day.substr(2, 2)) + month / 12;
    char text[16];
    std::snprintf(text, sizeof text, "%02d%02d", year % 100, month % 12 + 1);
    return text;
}

double OnTick(double price, double tick) {
    return std::round(price / tick) * tick;
}

/// What `lot` gains if its price goes from `from` to `to`.
double GainOf(const MadeLot& lot, double from, double to) {
    return (to - from) * (lot.isLong ? 1 : -1) * lot.lots * kProducts[lot.product].unit;
}

}  // namespace

std::span<const MadeProduct> MadeProducts() {
    return kProducts;
}

CMadeTrading::CMadeTrading(TradingShape shape) : shape_(shape) {
    for (const MadeProduct& product : kProducts) prices_.push_back(product.price);
}

double CMadeTrading::Random() {
    state_ = state_ * 6364136223846793005u + 1442695040888963407u;
    return static_cast<double>(state_ >> 33) / 2147483648.0;
}

/// Up to a hundredth up or down, and a hundredth of the way back.
void CMadeTrading::MovePrices() {
    for (std::size_t i = 0; i < prices_.size(); ++i) {
        const MadeProduct& product = kProducts[i];
        const double move = 1 + (Random() - 0.5) * 0.02 + (product.price - prices_[i]) / product.price * 0.01;
        prices_[i] = OnTick(prices_[i] * move, product.tick);
    }
}

double CMadeTrading::PriceNear(std::size_t product, double former) {
    return OnTick(former * (0.992 + Random() * 0.016), kProducts[product].tick);
}

MadeTrade CMadeTrading::Open(const MadeDay& day) {
    const auto product = static_cast<std::size_t>(Random() * static_cast<double>(std::size(kProducts)));
    const bool isLong = Random() < 0.52;
    const int lots = 1 + static_cast<int>(Random() * 5);
    const double price = PriceNear(product, day.formerPrices[product]);
    const MadeLot& lot = lots_.emplace_back(MadeLot{product, DeliveryOn(day.day), isLong, lots, price, price, day.day});
    return {lot, true, price, kProducts[product].fee * lots, 0};
}

MadeTrade CMadeTrading::CloseOldest(const MadeDay& day) {
    const MadeLot lot = lots_.front();
    lots_.pop_front();
    const double price = PriceNear(lot.product, day.formerPrices[lot.product]);
    return {lot, false, price, kProducts[lot.product].fee * lot.lots, GainOf(lot, lot.mark, price)};
}

void CMadeTrading::Trade(MadeDay& day) {
    const int held = static_cast<int>(lots_.size());
    const int wanted = (shape_.trades + shape_.positions - held + (Random() < 0.5 ? 1 : 0)) / 2;
    int opens = std::clamp(wanted, 0, shape_.trades);
    for (int left = shape_.trades; left > 0; --left) {
        const bool closes = !lots_.empty() && Random() * left >= opens;
        if (!closes) --opens;
        day.trades.push_back(closes ? CloseOldest(day) : Open(day));
        day.fees += day.trades.back().fee;
        day.closedPL += day.trades.back().closedPL;
    }
}

void CMadeTrading::Settle(MadeDay& day) {
    for (MadeLot& lot : lots_) {
        const double price = prices_[lot.product];
        const MadeProduct& product = kProducts[lot.product];
        const double dailyPL = GainOf(lot, lot.mark, price);
        const double margin = price * lot.lots * product.unit * product.marginRate;
        lot.mark = price;
        day.positions.push_back({lot, GainOf(lot, lot.openPrice, price), dailyPL, margin});
        day.positionPL += dailyPL;
        day.margin += margin;
    }
}

MadeDay CMadeTrading::Next(const std::string& day) {
    MadeDay made;
    made.day = day;
    made.formerPrices = prices_;
    MovePrices();
    made.prices = prices_;
    Trade(made);
    Settle(made);
    made.cashFlow = Random() < 0.02 ? std::round((Random() - 0.4) * 20'000'000.0) / 100.0 : 0;
    made.opening = balance_;
    balance_ += made.cashFlow + made.closedPL + made.positionPL - made.fees;
    made.closing = balance_;
    return made;
}

}  // namespace tradebill
