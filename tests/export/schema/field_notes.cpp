#include "export/schema/field_notes.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>

namespace tradebill {
namespace {

/// A field means the same in all objects that aren't named by another note of it.
struct FieldNote {
    std::string_view object;  ///< empty: any
    std::string_view name;
    std::string_view text;
};

// clang-format off
constexpr FieldNote kNotes[] = {
    // Statement fields.
    {"", "BILL_DATE",            "Day of the statement, yyyymmdd; empty for live figures without one"},
    {"", "MATCH_DATE",           "Date of the trade, as the row prints it"},
    {"closed", "MATCH_DATE",     "Date of the closing trade"},
    {"", "EXCH_NAME",            "Exchange"},
    {"", "CONTRACT",             "Contract; the product alone in layouts that print the delivery month apart"},
    {"", "DELIVERY",             "Delivery month, in layouts that print it apart"},
    {"", "HEDGE",                "Mark of speculation or hedge"},
    {"matches", "BID",           "Side of the trade"},
    {"closed", "BID",            "Side of the position that was closed: 买 or 卖; where the statement prints the side of the closing trade, it is turned. In the foreign family, side of the closing trade"},
    {"positions", "BID",         "Side of the position"},
    {"positionSums", "BID",      "Side: 买 or 卖"},
    {"closed", "side",           "Side of the position that was closed, in both families; null where BID tells none"},
    {"closed", "tradeSide",      "Side of the trade that closed it, the opposite of `side`"},
    {"matches", "MATCH_PRICE",   "Price of the trade"},
    {"closed", "MATCH_PRICE",    "Price of the closing"},
    {"matches", "MATCH_VOL",     "Lots"},
    {"closed", "MATCH_VOL",      "Lots closed"},
    {"", "TURNOVER",             "Turnover"},
    {"", "OFFSET",               "Mark of opening or closing"},
    {"", "POUNDAGE",             "Fee"},
    {"matches", "OFFSETPL",      "Realised P/L of the trade"},
    {"closed", "OFFSETPL",       "Realised P/L, as the statement prints it"},
    {"", "MATCHNO",              "Number of the trade"},
    {"", "ROYALTY",              "Option premium"},
    {"", "CURRENCY",             "Currency, in the foreign family; empty else"},
    {"", "OPEN_DATE",            "Date of opening"},
    {"", "OPEN_PRICE",           "Price of opening"},
    {"", "SETTLE_PRICE",         "Settlement price"},
    {"", "YSETTLE_PRICE",        "Settlement price of the day before"},
    {"positions", "POSITION_VOL", "Lots held"},
    {"positionSums", "POSITION_VOL", "Lots of this side"},
    {"", "BID_POSITION_VOL",     "Lots bought, of a row that shows both sides"},
    {"", "ASK_POSITION_VOL",     "Lots sold, of such a row"},
    {"", "POSITION_PRICE",       "Average price of this side"},
    {"", "FLOATPL",              "Floating P/L"},
    {"", "DSYK",                 "P/L marked to market"},
    {"", "DEPOSIT",              "Margin"},
    {"", "QCQY",                 "Opening balance"},
    {"", "CRJ",                  "Deposits less withdrawals"},
    {"", "QMJC",                 "Closing balance"},
    {"", "KYZJ",                 "Funds available"},
    {"", "PCYK",                 "Realised P/L of the day"},
    {"", "CCDSYK",               "P/L of open positions, marked to market"},
    {"", "HOST_CURRENT",         "P/L of open positions as of now; live figures only"},
    {"", "KHQY",                 "Client equity"},
    {"", "SXF",                  "Fees"},
    {"", "BZJZY",                "Margin occupied"},
    {"", "HOST_FROZEN_A",        "Frozen by pending orders, first addend; live figures only"},
    {"", "HOST_FROZEN_B",        "Frozen by pending orders, second addend; live figures only"},
    {"", "HOST_POSITION_MARGIN", "Margin of open positions; live figures only"},
    {"", "HOST_POSITION_PL",     "P/L of open positions; live figures only"},
    {"", "XQSXF",                "Fees of exercise"},
    {"", "QLJSZ",                "Option premium received less paid"},
    {"", "EXCHANGE_RATE",        "Units of this currency to one of base currency: amounts in base currency are divided by it"},
    // Deposits, exercises and deliveries.
    {"", "CASH_DATE",            "Date, as the row prints it"},
    {"", "CASH_TYPE",            "Kind of the deposit or withdrawal, in the broker's word"},
    {"", "CASH_IN",              "Amount paid in"},
    {"", "CASH_OUT",             "Amount paid out"},
    {"", "NOTE",                 "The broker's remark"},
    {"", "PRODUCT",              "Product, as printed"},
    {"exercises", "BID",         "Side of the position"},
    {"", "EXERCISE_DATE",        "Date, as the row prints it"},
    {"", "EXERCISED",            "Whether it was exercised or abandoned, in the broker's word"},
    {"", "EXERCISE_VOL",         "Lots exercised"},
    {"", "EXERCISE_PRICE",       "Strike price"},
    {"", "EXERCISE_AMOUNT",      "Amount exercised"},
    {"", "EXERCISE_PL",          "P/L of the exercise"},
    {"", "EXERCISE_FEE",         "Fee of the exercise"},
    {"deliveries", "BID",        "Side of the position"},
    {"deliveries", "CONTRACT",   "Contract, or month of delivery where the table prints that"},
    {"", "DELIVERY_DATE",        "Date, as the row prints it"},
    {"", "DELIVERED_VOL",        "Quantity delivered"},
    {"", "RESIDUAL_VOL",         "Quantity left"},
    {"", "DELIVERY_PRICE",       "Price of the delivery"},
    {"", "DELIVERY_AMOUNT",      "Amount of the delivery"},
    {"", "DELIVERY_FEE",         "Fee of the delivery"},
    {"deliveries", "OPEN_PRICE", "Average price of opening"},
    {"", "DELIVERY_PL",          "Realised P/L at the delivery"},
    // The money stores.
    {"money", "LastHostCurrent", "HOST_CURRENT of the latest record"},
    {"money", "OpeningEquity",   "QCQY of the first record"},
    {"money", "ClosingEquity",   "QMJC of the latest record"},
    {"money", "TotalClosedPL",   "Sum of PCYK"},
    {"money", "TotalPositionPL", "Sum of CCDSYK, and of HOST_POSITION_PL of live records"},
    {"money", "TotalCashFlow",   "Sum of CRJ"},
    {"money", "FirstCashFlow",   "CRJ of the first record"},
    {"money", "Available",       "KYZJ of the latest record"},
    {"money", "MinEquity",       "Lowest KHQY"},
    {"money", "MaxEquity",       "Highest KHQY"},
    {"money", "MinDayPL",        "Lowest PCYK"},
    {"money", "MaxDayPL",        "Highest PCYK"},
    {"money", "FrozenB",         "Sum of HOST_FROZEN_B of live records"},
    {"money", "FrozenA",         "Sum of HOST_FROZEN_A of live records"},
    {"money", "HostPositionPL",  "Sum of HOST_POSITION_PL of live records"},
    {"money", "PositionMargin",  "Margin of the latest record: live, HOST_POSITION_MARGIN; from a statement, closing balance less funds available"},
    {"money", "Count",           "Number of records"},
    {"money", "TotalFees",       "Sum of |SXF| + |XQSXF|"},
    {"money", "TotalPremium",    "Sum of QLJSZ; only the first record's is divided by its rate"},
    {"money", "StartDateText",   "First day of the report, yyyy-mm-dd"},
    {"money", "EndDateText",     "Last day of the report, yyyy-mm-dd"},
    {"money", "ChartSizes",      "Width and height, in pixels, of the charts of equity, realised P/L, account yield and trading yield"},
    {"money", "Records",         "One a day, in the order of reading"},
    {"currencies", "name",       "The currency, as printed"},
    {"currencies", "store",      "Its money, as in `money`"},
    // Tallies of closed positions.
    {"", "LONG_VOL",             "Lots of long positions closed"},
    {"", "SHORT_VOL",            "Lots of short positions closed"},
    {"", "LONG_PL",              "P/L of long positions"},
    {"", "SHORT_PL",             "P/L of short positions"},
    {"", "LONG_COUNT",           "Rows of long positions"},
    {"", "SHORT_COUNT",          "Rows of short positions"},
    {"", "LONG_WIN_COUNT",       "Those of them that won"},
    {"", "SHORT_WIN_COUNT",      "Those of them that won"},
    {"", "LONG_WIN_VOL",         "Lots of those"},
    {"", "SHORT_WIN_VOL",        "Lots of those"},
    {"", "LONG_WIN_PL",          "P/L of those"},
    {"", "SHORT_WIN_PL",         "P/L of those"},
    {"", "LONG_LOSE_COUNT",      "Those of them that lost"},
    {"", "SHORT_LOSE_COUNT",     "Those of them that lost"},
    {"", "LONG_LOSE_VOL",        "Lots of those"},
    {"", "SHORT_LOSE_VOL",       "Lots of those"},
    {"", "LONG_LOSE_PL",         "P/L of those"},
    {"", "SHORT_LOSE_PL",        "P/L of those"},
    {"", "LONG_MAX_WIN",         "Largest win of a row"},
    {"", "SHORT_MAX_WIN",        "Largest win of a row"},
    {"", "LONG_MAX_LOSS",        "Largest loss of a row"},
    {"", "SHORT_MAX_LOSS",       "Largest loss of a row"},
    // Chains, days and the use of margin.
    {"chains", "ItemBase",       "The product that heads the chain"},
    {"chains", "Items",          "Products whose opposite positions share its margin"},
    {"days", "Day",              "yyyymmdd"},
    {"days", "ClosedPL",         "Realised P/L"},
    {"days", "PositionPL",       "P/L of open positions"},
    {"days", "CashFlow",         "Deposits less withdrawals"},
    {"days", "Opening",          "Opening balance"},
    {"days", "Closing",          "Equity"},
    {"days", "Yield",            "Gain since the start, as a fraction"},
    {"usage", "Day",             "yyyymmdd"},
    {"usage", "Margin",          "Margin of the day; after the offset, if one was asked for"},
    {"usage", "Equity",          "Equity of the day"},
    {"usage", "Risk",            "Margin / equity"},
    {"usage", "HasFigures",      "1 if the day has money figures"},
    {"usage", "Positions",       "Net open positions by product"},
    {"usage.positions", "Product",    "The contract up to its first digit"},
    {"usage.positions", "Side",       "买 or 卖; empty without lots"},
    {"usage.positions", "Lots",       "Net lots"},
    {"usage.positions", "NetLots",    "Lots after the offset of margins"},
    {"usage.positions", "Day",        "Day of the row that opened the position"},
    {"usage.positions", "Margin",     "Its margin"},
    {"usage.positions", "UnitMargin", "Margin of a lot"},
    // The account's figures. Rates are per cent, as the page shows them.
    {"account", "WinCount",      "Closed positions with P/L above 0"},
    {"account", "LoseCount",     "Those with P/L below 0"},
    {"account", "FlatCount",     "Those with P/L of 0"},
    {"account", "InitialEquity", "Equity of the first day"},
    {"account", "MaxEquity",     "Highest equity"},
    {"account", "MinEquity",     "Lowest equity"},
    {"account", "TotalPL",       "P/L of all closed positions"},
    {"account", "MaxDrawdown",   "Largest fall of equity, in money"},
    {"account", "WinRate",       "Share of closed positions that didn't lose, per cent"},
    {"account", "ProfitRate",    "Total P/L by the initial equity, per cent"},
    {"account", "MaxProfit",     "Largest P/L of a row, at least 0"},
    {"account", "MaxLoss",       "Lowest P/L of a row, at most 0"},
    {"account", "MaxYield",      "Highest yield of a day, per cent"},
    {"account", "MaxRisk",       "Highest risk of a day, per cent"},
};
// clang-format on

std::set<const FieldNote*>& Asked() {
    static std::set<const FieldNote*> asked;
    return asked;
}

}  // namespace

std::string NoteOf(std::string_view object, std::string_view name) {
    const FieldNote* found = nullptr;
    for (const FieldNote& note : kNotes) {
        if (note.name != name || (!note.object.empty() && note.object != object)) continue;
        if (found == nullptr || found->object.empty()) found = &note;
    }
    if (found == nullptr) throw std::runtime_error("no note of " + std::string(object) + "." + std::string(name));
    Asked().insert(found);
    return std::string(found->text);
}

std::string UnusedNote() {
    for (const FieldNote& note : kNotes) {
        if (!Asked().contains(&note)) return std::string(note.name);
    }
    return {};
}

}  // namespace tradebill
