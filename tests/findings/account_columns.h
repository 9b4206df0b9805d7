// The layouts that made-up accounts are printed in: the columns of their tables.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace tradebill {

enum class MadeLayout { FundStatus, ClientBill, Bilingual };

inline const char* NameOf(MadeLayout layout) {
    constexpr const char* kNames[] = {"fund-status", "client-bill", "bilingual"};
    return kNames[static_cast<std::size_t>(layout)];
}

enum class ColumnSum { None, Lots, Money };

/// A column of a table: its width in print, in bytes of GBK, and what its total is.
struct MadeColumn {
    std::string heading;
    std::size_t width;
    ColumnSum sum = ColumnSum::None;
};

// clang-format off
inline std::vector<MadeColumn> MoneyColumns() {
    return {{"上日结存", 16}, {"入金", 14}, {"出金", 14}, {"手续费", 12}, {"当日盈亏", 14}, {"当日结存", 16}, {"可用资金", 16},
            {"风险度", 10}, {"保证金占用", 16}};
}

inline std::vector<MadeColumn> TradeColumnsOf(MadeLayout layout) {
    switch (layout) {
        case MadeLayout::FundStatus:
            return {{"成交日期", 9}, {"交易所", 7}, {"品种", 13}, {"交割期", 7}, {"买卖", 5}, {"开平", 5}, {"成交价", 9},
                    {"手数", 6, ColumnSum::Lots}, {"成交额", 16, ColumnSum::Money}, {"手续费", 10, ColumnSum::Money},
                    {"平仓盈亏", 14, ColumnSum::Money}, {"投保", 5}};
        case MadeLayout::ClientBill:
            return {{"成交日期", 9}, {"交易所", 7}, {"合约", 13}, {"成交编号", 9}, {"买卖", 5}, {"成交价", 9},
                    {"手数", 6, ColumnSum::Lots}, {"成交额", 16, ColumnSum::Money}, {"开平", 5},
                    {"手续费", 10, ColumnSum::Money}, {"平仓盈亏", 14, ColumnSum::Money}, {"投保", 5}};
        default:
            return {{"成交日期", 9}, {"交易所", 7}, {"品种", 9}, {"合约", 13}, {"买/卖", 6}, {"投/保", 6}, {"成交价", 9},
                    {"手数", 6, ColumnSum::Lots}, {"成交额", 16, ColumnSum::Money}, {"开平", 5},
                    {"手续费", 10, ColumnSum::Money}, {"平仓盈亏", 14, ColumnSum::Money},
                    {"权利金收支", 14, ColumnSum::Money}, {"成交序号", 9}};
    }
}

inline std::vector<MadeColumn> ClosingColumnsOf(MadeLayout layout) {
    switch (layout) {
        case MadeLayout::FundStatus:
            return {{"平仓日期", 9}, {"交易所", 7}, {"品种", 13}, {"交割期", 7}, {"成交编号", 9}, {"买卖", 5}, {"平仓价", 9},
                    {"开仓日期", 9}, {"开仓价", 9}, {"手数", 6, ColumnSum::Lots}, {"昨结算价", 9},
                    {"平仓盈亏", 14, ColumnSum::Money}};
        case MadeLayout::ClientBill:
            return {{"平仓日期", 9}, {"交易所", 7}, {"合约", 13}, {"成交编号", 9}, {"买卖", 5}, {"平仓价", 9}, {"开仓价", 9},
                    {"手数", 6, ColumnSum::Lots}, {"昨结算价", 9}, {"平仓盈亏", 14, ColumnSum::Money}, {"原成交号", 9},
                    {"开仓日期", 9}};
        default:
            return {{"平仓日期", 9}, {"交易所", 7}, {"品种", 9}, {"合约", 13}, {"开仓日期", 9}, {"买/卖", 6},
                    {"手数", 6, ColumnSum::Lots}, {"开仓价", 9}, {"昨结算", 9}, {"成交价", 9},
                    {"平仓盈亏", 14, ColumnSum::Money}};
    }
}

inline std::vector<MadeColumn> PositionColumns() {
    return {{"交易所", 8}, {"品种", 13}, {"合约", 13}, {"开仓日期", 9}, {"买卖", 5}, {"投保", 5},
            {"持仓量", 7, ColumnSum::Lots}, {"开仓价", 9}, {"昨结算", 9}, {"结算价", 9}, {"浮动盈亏", 14, ColumnSum::Money},
            {"盯市盈亏", 14, ColumnSum::Money}, {"保证金", 14, ColumnSum::Money}};
}

inline std::vector<MadeColumn> SummaryColumnsOf(MadeLayout layout) {
    if (layout == MadeLayout::ClientBill) {
        return {{"交易所", 8}, {"合约", 13}, {"买持", 6, ColumnSum::Lots}, {"买均价", 10}, {"卖持", 6, ColumnSum::Lots},
                {"卖均价", 10}, {"昨结算价", 9}, {"今结算价", 9}, {"持仓盈亏", 14, ColumnSum::Money},
                {"保证金", 14, ColumnSum::Money}, {"投保", 5}};
    }
    return {{"交易所", 8}, {"品种", 13}, {"交割期", 7}, {"买持", 6, ColumnSum::Lots}, {"买均价", 10},
            {"卖持", 6, ColumnSum::Lots}, {"卖均价", 10}, {"昨结算", 9}, {"今结算", 9}, {"浮动盈亏", 14, ColumnSum::Money},
            {"盯市盈亏", 14, ColumnSum::Money}, {"保证金", 14, ColumnSum::Money}, {"投保", 5}};
}
// clang-format on

}  // namespace tradebill
