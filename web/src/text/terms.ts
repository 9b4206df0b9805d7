// What figures and columns are called, and what they mean, in both languages. The definitions are those of the analysis.
import type { Text } from "./texts.ts";

export interface Term {
    label: Text;
    meaning?: Text;
}

/** Figures of the head and of the small tables. */
export const kFigures = {
    openingEquity: {
        label: ["期初权益", "Opening equity"],
        meaning: ["区间第一天之前的客户权益；报告第一天取期初结存", "Equity before the first day of the range; before the report's first day its opening balance"],
    },
    closingEquity: { label: ["期末权益", "Closing equity"], meaning: ["区间最后一天的客户权益", "Equity of the last day of the range"] },
    pl: {
        label: ["盈亏", "P/L"],
        meaning: ["每日盈亏之和；每日盈亏 = 当日权益 − 上日权益 − 当日出入金，已扣手续费", "Sum of the days' P/L: equity less that of the day before less cash flow, after fees"],
    },
    return: {
        label: ["收益率", "Return"],
        meaning: [
            "区间最后一天的净值 ÷ 区间之前的净值 − 1；每日收益率 = 盈亏 ÷（上日权益 + 当日入金），不受出入金影响",
            "Index of the last day / index before the range, less 1. A day's return is its P/L / (equity before + deposits), so that cash flows make none",
        ],
    },
    drawdown: {
        label: ["最大回撤", "Maximum drawdown"],
        meaning: ["净值从之前最高点到最低点的最大跌幅", "Deepest fall of the index below its highest value before, as a share of that"],
    },
    highestMarginUse: {
        label: ["最高保证金占用率", "Highest margin use"],
        meaning: ["各日 保证金占用 ÷ 客户权益 的最大值", "The highest margin / equity of a day"],
    },
    cashFlow: { label: ["净出入金", "Net cash flow"], meaning: ["入金减出金之和", "Deposits less withdrawals"] },
    fees: { label: ["手续费", "Fees"], meaning: ["手续费与行权手续费之和", "Fees of trades and of exercises"] },
    winDays: { label: ["盈利天数 / 亏损天数", "Winning / losing days"], meaning: ["盈亏大于 0 的天数 / 小于 0 的天数", "Days with P/L above 0 / below 0"] },
    annualReturn: {
        label: ["年化收益率", "Annual return"],
        meaning: ["期末净值 ^（一年交易日数 ÷ 有收益率的天数）− 1", "Last index ^ (trading days of a year / days that have a return), less 1"],
    },
    volatility: { label: ["年化波动率", "Volatility"], meaning: ["每日收益率的标准差 × √一年交易日数", "Standard deviation of the days' returns x √trading days of a year"] },
    sharpe: { label: ["夏普比率", "Sharpe ratio"], meaning: ["每日收益率的均值 ÷ 标准差 × √一年交易日数，无风险利率取 0", "Mean / standard deviation of the days' returns x √trading days of a year; riskless rate 0"] },
    sortino: { label: ["索提诺比率", "Sortino ratio"], meaning: ["均值 ÷ 下行偏差 × √一年交易日数", "Mean / downside deviation x √trading days of a year"] },
    calmar: { label: ["卡玛比率", "Calmar ratio"], meaning: ["年化收益率 ÷ 最大回撤", "Annual return / maximum drawdown"] },
    moneyWeightedReturn: {
        label: ["资金加权收益率", "Money-weighted return"],
        meaning: ["使全部出入金现值为零的年利率（XIRR）", "The yearly rate at which all payments are worth nothing together (XIRR)"],
    },
    peak: { label: ["最高点", "Peak"], meaning: ["回撤前净值最高的最后一天", "Last day at the highest index before"] },
    valley: { label: ["最低点", "Valley"], meaning: ["净值最低的第一天", "First day of the lowest index"] },
    recovery: { label: ["恢复", "Recovery"], meaning: ["净值重回最高点的第一天", "First day at the peak's index again"] },
    depth: { label: ["幅度", "Depth"], meaning: ["1 − 最低净值 ÷ 最高净值", "1 less index of the valley / index of the peak"] },
    money: { label: ["金额", "Money"], meaning: ["最高点到最低点减少的权益，不计出入金", "Equity lost from peak to valley, without cash flows"] },
    daysDown: { label: ["下跌天数", "Days down"], meaning: ["从最高点到最低点的交易日数", "Trading days from peak to valley"] },
    daysUp: { label: ["恢复天数", "Days up"], meaning: ["从最低点到恢复的交易日数", "Trading days from valley to recovery"] },
    calendarDays: { label: ["自然日", "Calendar days"], meaning: ["从最高点到恢复（或最后一天）的自然日数", "Calendar days from peak to recovery, or to the last day"] },
} as const satisfies Record<string, Term>;

const kDay: Term = { label: ["日期", "Day"], meaning: ["结算单的日期", "Day of the statement"] };
const kContract: Term = { label: ["合约", "Contract"] };
const kExchange: Term = { label: ["交易所", "Exchange"] };
const kDelivery: Term = { label: ["交割月", "Delivery"] };
const kHedge: Term = { label: ["投保", "Hedge"], meaning: ["投机或套保", "Speculation or hedge"] };
const kBid: Term = { label: ["买卖", "Buy/sell"] };
const kCurrency: Term = { label: ["币种", "Currency"] };
const kSettle: Term = { label: ["结算价", "Settlement"] };
const kProduct: Term = { label: ["品种", "Product"], meaning: ["合约去掉月份；期权归入其标的期货", "The contract up to its first digit; an option's is that of its future"] };

/** Columns of tables, by their names. */
export const kColumns: Record<string, Term> = {
    BILL_DATE: kDay,
    day: kDay,
    account: { label: ["账户", "Account"] },
    MATCH_DATE: { label: ["成交日", "Trade day"] },
    OPEN_DATE: { label: ["开仓日", "Opened"] },
    openDay: { label: ["开仓日", "Opened"] },
    EXCH_NAME: kExchange,
    CONTRACT: kContract,
    contract: kContract,
    fullContract: kContract,
    PRODUCT: kProduct,
    product: kProduct,
    productName: { label: ["品种名", "Product name"] },
    key: { label: ["名称", "Name"] },
    name: { label: ["名称", "Name"] },
    DELIVERY: kDelivery,
    HEDGE: kHedge,
    BID: kBid,
    side: { label: ["多空", "Side"], meaning: ["所平持仓的方向", "Side of the position"] },
    tradeSide: { label: ["平仓买卖", "Closing trade"], meaning: ["平仓成交的买卖方向", "Side of the closing trade"] },
    MATCH_PRICE: { label: ["成交价", "Price"] },
    MATCH_VOL: { label: ["手数", "Lots"] },
    lots: { label: ["手数", "Lots"] },
    TURNOVER: { label: ["成交额", "Turnover"] },
    turnover: { label: ["成交额", "Turnover"] },
    OFFSET: { label: ["开平", "Open/close"] },
    POUNDAGE: { label: ["手续费", "Fee"] },
    OFFSETPL: { label: ["平仓盈亏（盯市）", "Stated P/L"], meaning: ["结算单上的平仓盈亏，逐日盯市时以昨结算价计", "Closed P/L as the statement prints it; marked to market it starts from the settlement of the day before"] },
    MATCHNO: { label: ["成交号", "Number"] },
    ROYALTY: { label: ["权利金", "Premium"] },
    CURRENCY: kCurrency,
    currency: kCurrency,
    OPEN_PRICE: { label: ["开仓价", "Opening price"] },
    SETTLE_PRICE: kSettle,
    YSETTLE_PRICE: { label: ["昨结算", "Settlement before"] },
    POSITION_VOL: { label: ["手数", "Lots"] },
    BID_POSITION_VOL: { label: ["买持", "Long lots"] },
    ASK_POSITION_VOL: { label: ["卖持", "Short lots"] },
    POSITION_PRICE: { label: ["持仓均价", "Average price"] },
    FLOATPL: { label: ["浮动盈亏", "Floating P/L"], meaning: ["自开仓价计算的持仓盈亏", "P/L of the open position from its opening price"] },
    floatPl: { label: ["浮动盈亏", "Floating P/L"], meaning: ["自开仓价计算的持仓盈亏", "P/L of the open position from its opening price"] },
    DSYK: { label: ["盯市盈亏", "P/L of the day"] },
    DEPOSIT: { label: ["保证金", "Margin"] },
    margin: { label: ["保证金", "Margin"] },
    marginUse: { label: ["占用率", "Margin use"], meaning: ["保证金 ÷ 权益", "Margin / equity"] },
    daysHeld: { label: ["持有天数", "Days held"], meaning: ["开仓至报告最后一天的自然日数", "Calendar days from the opening to the last statement"] },
    pl: { label: ["盈亏", "P/L"], meaning: ["手数 ×（平仓价 − 开仓价，空头相反）× 合约乘数；未扣手续费", "Lots x (closing less opening price, of short ones the other way round) x unit, before fees"] },
    holdingDays: { label: ["持有天数", "Holding days"], meaning: ["开仓到平仓的自然日数", "Calendar days from opening to closing"] },
    count: { label: ["笔数", "Rows"], meaning: ["平仓记录数", "Closed positions, by rows"] },
    wins: { label: ["盈", "Won"] },
    losses: { label: ["亏", "Lost"] },
    winRate: { label: ["胜率", "Win rate"], meaning: ["盈利笔数 ÷ 笔数", "Won rows / rows"] },
    profitFactor: { label: ["盈亏比", "Profit factor"], meaning: ["盈利之和 ÷ 亏损之和", "Sum of wins / sum of losses"] },
    averageWin: { label: ["平均盈利", "Average win"] },
    averageLoss: { label: ["平均亏损", "Average loss"] },
    expectancy: { label: ["每笔期望", "Expectancy"], meaning: ["盈亏 ÷ 笔数", "P/L / rows"] },
    medianHoldingDays: { label: ["持有天数中位", "Median holding days"], meaning: ["按笔数的中位数，自然日", "Calendar days, the median by rows"] },
    fees: { label: ["手续费", "Fees"], meaning: ["按品种当日每手手续费摊到平仓的开、平两端", "Fees of both trades of each closed lot, by the product's fee per lot of the day"] },
    longPl: { label: ["多头盈亏", "Long P/L"] },
    shortPl: { label: ["空头盈亏", "Short P/L"] },
    equity: { label: ["权益", "Equity"] },
    cashFlow: { label: ["出入金", "Cash flow"] },
    return: { label: ["收益率", "Return"] },
    index: { label: ["净值", "Index"] },
    CASH_DATE: { label: ["发生日", "Date"] },
    CASH_TYPE: { label: ["类型", "Kind"] },
    CASH_IN: { label: ["入金", "Deposit"] },
    CASH_OUT: { label: ["出金", "Withdrawal"] },
    NOTE: { label: ["说明", "Note"] },
    EXERCISE_DATE: { label: ["行权日", "Exercised on"] },
    EXERCISED: { label: ["行权方式", "Way"] },
    EXERCISE_VOL: { label: ["行权手数", "Lots"] },
    EXERCISE_PRICE: { label: ["行权价", "Strike"] },
    EXERCISE_AMOUNT: { label: ["行权金额", "Amount"] },
    EXERCISE_PL: { label: ["行权盈亏", "P/L"] },
    EXERCISE_FEE: { label: ["行权手续费", "Fee"] },
    DELIVERY_DATE: { label: ["交割日", "Delivered on"] },
    DELIVERED_VOL: { label: ["交割手数", "Lots"] },
    RESIDUAL_VOL: { label: ["剩余手数", "Lots left"] },
    DELIVERY_PRICE: { label: ["交割价", "Price"] },
    DELIVERY_AMOUNT: { label: ["交割金额", "Amount"] },
    DELIVERY_FEE: { label: ["交割手续费", "Fee"] },
    DELIVERY_PL: { label: ["交割盈亏", "P/L"] },
    EXCHANGE_RATE: { label: ["汇率", "Rate"], meaning: ["金额 ÷ 汇率 = 基准币种金额", "Amount / rate is the amount in base currency"] },
    QCQY: { label: ["期初结存", "Opening balance"] },
    CRJ: { label: ["出入金", "Cash flow"] },
    QMJC: { label: ["期末结存", "Closing balance"] },
    KYZJ: { label: ["可用资金", "Available"] },
    PCYK: { label: ["平仓盈亏", "Closed P/L"] },
    CCDSYK: { label: ["持仓盈亏", "Position P/L"] },
    KHQY: { label: ["客户权益", "Equity"] },
    SXF: { label: ["手续费", "Fees"] },
    BZJZY: { label: ["保证金占用", "Margin"] },
    QLJSZ: { label: ["期权市值", "Option value"] },
};

/** What is written in a table's cells under a code. */
export const kCellTexts: Record<string, Text> = {
    long: ["多", "long"],
    short: ["空", "short"],
    buy: ["买", "buy"],
    sell: ["卖", "sell"],
};
