// A made-up daily workbook of the monitoring centre, in the mark-to-market form.
#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "support/made_cells.h"

namespace tradebill {

using MadeRows = std::vector<std::vector<std::string>>;

/// What a day's workbook holds; each row as its sheet prints it, each figure a text.
struct MadeDayBook {
    std::string account = "90010009";
    std::string day = "2024-01-02";
    std::vector<std::pair<std::string, std::string>> money = {};  ///< label and value
    MadeRows cash = {};
    MadeRows trades = {};
    MadeRows optionTrades = {};
    MadeRows closings = {};
    MadeRows positions = {};
    MadeRows futureSums = {};
    MadeRows optionSums = {};
};

/// A sheet whose table is headed in row 10 and ended by a row of totals.
inline MadeSheet MadeTable(const std::string& name, const std::vector<std::string>& headings, const MadeRows& rows,
                           const std::vector<std::string>& totals = {"合计"}) {
    MadeSheet sheet{.name = name};
    sheet.Put(0, 0, name);
    sheet.PutRow(9, headings);
    std::size_t row = 10;
    for (const auto& cells : rows) sheet.PutRow(row++, cells);
    sheet.PutRow(row, totals);
    return sheet;
}

inline std::size_t PutTable(MadeSheet& sheet, std::size_t row, const std::string& title,
                            const std::vector<std::string>& headings, const MadeRows& rows) {
    sheet.Put(row++, 0, title);
    sheet.PutRow(row++, headings);
    for (const auto& cells : rows) sheet.PutRow(row++, cells);
    sheet.Put(row++, 0, "合计");
    return row + 1;
}

inline MadeWorkbook DayWorkbook(const MadeDayBook& day) {
    MadeSheet sheet{.name = "客户交易结算日报"};
    sheet.Put(0, 0, "客户交易结算日报(逐日盯市)");
    sheet.Put(3, 0, "基本资料");
    sheet.Put(4, 0, "资金账户");
    sheet.Put(4, 2, day.account);
    sheet.Put(4, 5, "交易日期");
    sheet.Put(4, 7, day.day);
    sheet.Put(5, 0, "客户名称");
    sheet.Put(5, 2, "示例客户");
    sheet.Put(5, 5, "期货公司名称");
    sheet.Put(5, 7, "示例期货有限公司");
    sheet.Put(7, 0, "期货期权账户资金状况");
    std::size_t row = 8;
    bool isLeft = true;
    for (const auto& [label, value] : day.money) {
        sheet.Put(row, isLeft ? 0 : 5, label);
        sheet.Put(row, isLeft ? 2 : 7, value);
        if (!isLeft) ++row;
        isLeft = !isLeft;
    }
    row += 2;
    row = PutTable(sheet, row, "期货期权账户出入金明细", {"发生日期", "入金", "出金", "方式", "摘要"}, day.cash);
    if (!day.futureSums.empty()) {
        row =
            PutTable(sheet, row, "期货持仓汇总",
                     {"合约", "买持仓", "买均价", "卖持仓", "卖均价", "昨结算价", "今结算价", "持仓盈亏", "交易保证金"},
                     day.futureSums);
    }
    if (!day.optionSums.empty()) {
        PutTable(sheet, row, "期权持仓汇总",
                 {"品种合约", "标的合约", "期权类型", "执行价", "买持仓", "买均价", "卖持仓", "卖均价", "昨结算价",
                  "今结算价", "交易保证金"},
                 day.optionSums);
    }
    MadeWorkbook workbook{std::move(sheet)};
    workbook.push_back(MadeTable("成交明细",
                                 {"合约", "成交序号", "成交时间", "买/卖", "投机/套保", "成交价", "手数", "成交额",
                                  "开/平", "手续费", "平仓盈亏", "实际成交日期"},
                                 day.trades));
    workbook.push_back(MadeTable(
        "平仓明细", {"合约", "成交序号", "买/卖", "成交价", "开仓价", "手数", "昨结算价", "平仓盈亏", "原成交序号"},
        day.closings));
    workbook.push_back(MadeTable("持仓明细",
                                 {"合约", "成交序号", "买持仓", "买入价", "卖持仓", "卖出价", "昨结算价", "今结算价",
                                  "持仓盈亏", "投机/套保", "交易编码"},
                                 day.positions));
    if (!day.optionTrades.empty()) {
        workbook.push_back(MadeTable("期权成交明细",
                                     {"品种合约", "流水号", "成交时间", "买/卖", "权利金单价", "成交量", "权利金",
                                      "是否备兑", "手续费", "成交日期"},
                                     day.optionTrades));
    }
    workbook.push_back(MadeTable("品种汇总", {"品种", "手数", "成交额", "手续费", "平仓盈亏"}, {}));
    return workbook;
}

// Two days of an account, worked out by hand. Units: lc 1, i 100, SR 10.
//
// Day 1 opens with 100,000.00. Bought 2 lc2402 at 97,000, turnover 194,000.00, fee 15.52; bought 1 at 97,200 in the
// night before, turnover 97,200.00, fee 7.78; sold 5 i2405 at 1,000.0, turnover 500,000.00, fee 50.00; bought 3 options
// SR405C6300 at 75, premium 2,250.00, fee 4.50. Settled: lc 97,100, i 1,002. Position P/L: 2 x 100 + 1 x -100 = 100
// of lc, 5 x 100 x -2 = -1,000 of i. Fees 77.80. Closes with 100,000 - 900 - 2,250 - 77.80 = 96,772.20. Margin: lc
// 26,217.00, i 65,130.00, together 91,347.00; available 5,425.20.
inline MadeDayBook FirstDay() {
    return {
        .money = {{"上日结存", "100,000.00"},
                  {"客户权益", "96772.20"},
                  {"当日存取合计", "0.00"},
                  {"实有货币资金", "96772.20"},
                  {"当日盈亏", "-900.00"},
                  {"保证金占用", "91347.00"},
                  {"当日总权利金", "-2250.00"},
                  {"可用资金", "5425.20"},
                  {"当日手续费", "77.80"},
                  {"风险度", "94.39%"},
                  {"当日结存", "96772.20"},
                  {"追加保证金", "0.00"}},
        .trades = {{"lc2402", "    00071551", "09:01:02", " 买", "投机", "97000", "2", "194000.00", "开", "15.52", "--",
                    "2024-01-02"},
                   {"lc2402", "20240102000000071552", "21:30:00", " 买", "投机", "97,200", "1", "97,200.00", "开",
                    "7.78", "--", "2023-12-29"},
                   {"i2405", "00071553", "10:00:00", "卖", "套保", "1000.0", "5", "500000.00", "开", "50.00", "--",
                    "2024-01-02"}},
        .optionTrades = {{"SR405C6300", "00071554", "10:00:01", "买", "75", "3", "2250.00", "否", "4.50", "20240102"}},
        .positions = {{"lc2402", "    00071551", "2", "97000", "--", "--", "97300", "97100", "200.00", "投机", "01"},
                      {"lc2402", "000000071552", "1", "97200", "0", "0", "97300", "97100", "-100.00", "投机", "01"},
                      {"i2405", "00071553", "--", "--", "5", "1000.0", "1003", "1002", "-1000.00", "套保", "01"}},
        .futureSums = {{"lc2402", "3", "97066.667", "0", "--", "97300", "97100", "100.00", "26217.00"},
                       {"i2405", "0", "--", "5", "1000", "1003", "1002", "-1000.00", "65130.00"}},
        .optionSums = {{"SR405C6300", "SR405", "看涨", "6300", "3", "75", "0", "--", "80", "74", "--"}}};
}

// Day 2: sold 2 lc2402 at 97,500 (trade 71551), P/L against 97,100: 800.00, fee 15.60, turnover 195,000.00; bought 1
// i2405 at 990 and closed (71553), P/L (1,002 - 990) x 100 = 1,200.00, fee 9.90, turnover 99,000.00. Settled: lc
// 97,400, i 1,000. Position P/L: lc 300.00, i 4 x 100 x 2 = 800.00. Closes with 96,772.20 + 2,000 + 1,100 - 25.50 +
// 1,000 (1,500 deposited, 500 withdrawn) = 100,846.70. Margin lc 8,766.00, i 52,000.00, together 60,766.00; available
// 40,080.70.
inline MadeDayBook SecondDay() {
    return {
        .day = "2024-01-03",
        .money = {{"上日结存", "96772.20"},
                  {"客户权益", "100846.70"},
                  {"当日存取合计", "1000.00"},
                  {"实有货币资金", "100846.70"},
                  {"当日盈亏", "3100.00"},
                  {"保证金占用", "60766.00"},
                  {"当日总权利金", "0.00"},
                  {"可用资金", "40080.70"},
                  {"当日手续费", "25.50"},
                  {"风险度", "60.26%"},
                  {"当日结存", "100846.70"},
                  {"追加保证金", "0.00"}},
        .cash = {{"2024-01-03", "1,500.00", "--", "银期转账", "转入"}, {"2024-01-03", "0", "500.00", "银期转账", "--"}},
        .trades = {{"lc2402", "00080001", "09:01:02", "卖", "投机", "97500", "2", "195000.00", "平", "15.60", "800.00",
                    "2024-01-03"},
                   {"i2405", "00080002", "09:02:02", "买", "套保", "990", "1", "99000.00", "平", "9.90", "1200.00",
                    "2024-01-03"}},
        .closings = {{"lc2402", "00080001", "卖", "97500", "97000", "2", "97100", "800.00", "    00071551"},
                     {"i2405", "00080002", "买", "990", "1000", "1", "1002", "1200.00", "00071553"}},
        .positions = {{"lc2402", "000000071552", "1", "97200", "--", "--", "97100", "97400", "300.00", "投机", "01"},
                      {"i2405", "00071553", "--", "--", "4", "1000", "1002", "1000", "800.00", "套保", "01"}},
        .futureSums = {{"lc2402", "1", "97200", "0", "--", "97100", "97400", "300.00", "8766.00"},
                       {"i2405", "0", "--", "4", "1000", "1002", "1000", "800.00", "52000.00"}},
        .optionSums = {{"SR405C6300", "SR405", "看涨", "6300", "3", "75", "0", "--", "74", "76", "--"}}};
}

}  // namespace tradebill
