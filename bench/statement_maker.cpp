#include "statement_maker.h"

#include <array>
#include <cstdio>

#include "base/gbk.h"

namespace tradebill {
namespace {

struct Product {
    const char* exchange;
    const char* code;
    const char* delivery;
    int price;
};

constexpr Product kProducts[] = {
    {"大商所"_gbk.data(), "i", "2405", 960},    {"大商所"_gbk.data(), "p", "2405", 7030},
    {"上期所"_gbk.data(), "hc", "2405", 4005},  {"上期所"_gbk.data(), "rb", "2405", 3800},
    {"郑商所"_gbk.data(), "SR", "405", 6116},   {"郑商所"_gbk.data(), "TA", "405", 5920},
    {"上期所"_gbk.data(), "cu", "2403", 69090}, {"大商所"_gbk.data(), "m", "2405", 2940},
};

constexpr const char* kRule =
    "------------------------------------------------------------------------------------------------------------------"
    "----"
    "\r\n";

template <class... Values>
void AddLine(std::string& text, const char* format, Values... values) {
    if constexpr (sizeof...(values) == 0) {
        text += format;
    } else {
        std::array<char, 256> line;
        std::snprintf(line.data(), line.size(), format, values...);
        text += line.data();
    }
    text += "\r\n";
}

void AddTitle(std::string& text, std::string_view title, std::string_view headings) {
    text += "\r\n";
    text.append(55, ' ');
    text += title;
    text += "\r\n";
    text += kRule;
    text += headings;
    text += "\r\n";
    text += kRule;
}

void AddTotal(std::string& text, int count) {
    text += kRule;
    AddLine(text,
            "共 %d条                                     %d        1964100.00      162.99       1920.00"_gbk.data(),
            count, count * 3);
    text += kRule;
}

constexpr const char* kBuy = "买"_gbk.data();
constexpr const char* kSell = "卖"_gbk.data();

}  // namespace

int CStatementMaker::Random(int bound) {
    state_ = state_ * 1664525u + 1013904223u;
    return static_cast<int>((state_ >> 8) % static_cast<std::uint32_t>(bound));
}

std::string CStatementMaker::Next(const std::string& day) {
    std::string text =
        "                                              示例期货有限公司\r\n\r\n客户号: 90019999\r\n"_gbk.data();
    text += "日  期:"_gbk;
    text += day + "\r\n";
    AddMoney(text);
    AddTrades(text, day);
    AddClosed(text, day);
    AddPositions(text, day);
    AddSummary(text);
    return text;
}

void CStatementMaker::AddMoney(std::string& text) {
    const double closing = equity_ + Random(40'001) - 19'900;
    text += "\r\n                                                       资金状况\r\n"_gbk;
    text += kRule;
    AddLine(text, "上日结存:               %10.2f          当日结存:               %10.2f"_gbk.data(), equity_,
            closing);
    AddLine(text, "出入金:                        0.00          客户权益:               %10.2f"_gbk.data(), closing);
    AddLine(text, "平仓盈亏:                   1920.00          保证金占用:               126981.50"_gbk.data());
    AddLine(text, "持仓盯市盈亏:               -290.00          可用资金:               %10.2f"_gbk.data(),
            closing / 2);
    AddLine(text, "手续费:                      162.99          风险度:                      25.32%"_gbk.data());
    text += kRule;
    equity_ = closing;
}

void CStatementMaker::AddTrades(std::string& text, const std::string& day) {
    AddTitle(
        text, "成交记录"_gbk,
        "成交日期  交易所    品种   交割期      买卖  开平       成交价   手数            成交额      手续费      平仓盈亏 投保"_gbk);
    for (int i = 0; i < shape_.trades; ++i) {
        const Product& product = kProducts[Random(8)];
        const int lots = 1 + Random(9);
        const bool opens = i % 5 < 3;
        AddLine(
            text,
            "%s  %s    %-4s   %-6s       %s    %s        %6d      %d     %14.2f       %6.2f       %7.2f  投"_gbk.data(),
            day.c_str(), product.exchange, product.code, product.delivery, Random(2) != 0 ? kBuy : kSell,
            opens ? "开"_gbk.data() : "平"_gbk.data(), product.price + Random(50), lots, product.price * 10.0 * lots,
            3.0 * lots, opens ? 0.0 : Random(2000) - 900.0);
    }
    AddTotal(text, shape_.trades);
}

void CStatementMaker::AddClosed(std::string& text, const std::string& day) {
    AddTitle(
        text, "平仓明细"_gbk,
        "平仓日期  交易所    品种   交割期      成交编号   买卖       平仓价  开仓日期      开仓价   手数    昨结算价      平仓盈亏"_gbk);
    for (int i = 0; i < shape_.closed; ++i) {
        const Product& product = kProducts[Random(8)];
        AddLine(text,
                "%s  %s    %-4s   %-6s      %08d   %s        %6d  %s      %6d      %d      %6d       %8.2f"_gbk.data(),
                day.c_str(), product.exchange, product.code, product.delivery, Random(100'000'000),
                Random(2) != 0 ? kBuy : kSell, product.price + Random(50), day.c_str(), product.price + Random(50),
                1 + Random(9), product.price, Random(2000) - 900.0);
    }
    AddTotal(text, shape_.closed);
}

void CStatementMaker::AddPositions(std::string& text, const std::string& day) {
    AddTitle(
        text, "持仓明细"_gbk,
        "交易所    品种   交割期      开仓日期  买卖  投保  持仓量      开仓价      昨结算      结算价      浮动盈亏      盯市盈亏        保证金"_gbk);
    for (int i = 0; i < shape_.positions; ++i) {
        const Product& product = kProducts[Random(8)];
        AddLine(
            text,
            "%s    %-4s   %-6s      %s   %s    投        %d      %6d      %6d      %6d    %10.2f    %10.2f    %10.2f"_gbk
                .data(),
            product.exchange, product.code, product.delivery, day.c_str(), Random(2) != 0 ? kBuy : kSell, 1 + Random(9),
            product.price + Random(50), product.price, product.price + Random(20), Random(2000) - 900.0,
            Random(2000) - 900.0, product.price * 1.2);
    }
    AddTotal(text, shape_.positions);
}

void CStatementMaker::AddSummary(std::string& text) {
    AddTitle(
        text, "持仓汇总"_gbk,
        "交易所    品种   交割期        买持      买均价   卖持      卖均价      昨结算      今结算     浮动盈亏     盯市盈亏       保证金 投保"_gbk);
    for (const Product& product : kProducts) {
        AddLine(
            text,
            "%s    %-4s   %-6s        %d    %9.3f      %d    %9.3f      %6d      %6d   %10.2f   %10.2f   %10.2f  投"_gbk
                .data(),
            product.exchange, product.code, product.delivery, Random(3), product.price + 0.5, Random(3),
            product.price + 1.5, product.price, product.price + 3, Random(2000) - 900.0, Random(2000) - 900.0,
            product.price * 1.2);
    }
    AddTotal(text, 8);
}

}  // namespace tradebill
