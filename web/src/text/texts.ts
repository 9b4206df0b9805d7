// All texts of the page in both languages, Chinese first. A text that lacks one of them doesn't compile.

export type Language = "zh" | "en";
type Text = readonly [zh: string, en: string];

const kTexts = {
    title: ["账户探索", "Account explorer"],
    account: ["账户", "Account"],
    allAccounts: ["全部账户合计", "All accounts together"],
    days: ["交易日", "trading days"],
    to: ["至", "to"],
    settings: ["显示", "Display"],
    language: ["English", "中文"],
    colours: ["红涨绿跌", "Red is gain"],
    coloursSwapped: ["绿涨红跌", "Green is gain"],
    hideAmounts: ["隐藏金额", "Hide amounts"],
    showAmounts: ["显示金额", "Show amounts"],
    print: ["打印", "Print"],
    skip: ["跳到内容", "Skip to content"],
    sections: ["章节", "Sections"],
    wholeRange: ["全部", "All"],
    lastMonth: ["近 1 月", "Last month"],
    lastMonths: ["近 {n} 月", "Last {n} months"],
    thisYear: ["本年", "Last year shown"],
    range: ["区间", "Range"],
    rangeFrom: ["开始日", "First day"],
    rangeTo: ["结束日", "Last day"],
    rangeKeys: [
        "在图上拖动选择区间；键盘：← → 移动，+ − 缩放，0 或 Esc 还原",
        "Drag on the chart to choose a range. Keys: ← → move it, + − narrow and widen it, 0 or Esc shows all",
    ],
    overview: ["概览", "Overview"],
    findings: ["检查结果", "Findings"],
    noFindings: ["未发现问题", "Nothing is wrong"],
    findingsCount: ["{e} 个错误，{w} 个警告，{n} 个提示", "{e} errors, {w} warnings, {n} notes"],
    error: ["错误", "Error"],
    warning: ["警告", "Warning"],
    note: ["提示", "Note"],
    whatToDo: ["怎么办", "What to do"],
    expected: ["应为", "Expected"],
    found: ["实为", "Found"],
    showAll: ["全部显示", "Show all"],
    course: ["走势", "Course"],
    equity: ["权益", "Equity"],
    index: ["净值", "Index"],
    cumulativePl: ["累计盈亏", "Cumulative P/L"],
    drawdown: ["回撤", "Drawdown"],
    marginUse: ["保证金占用率", "Margin use"],
    cashFlow: ["出入金", "Cash flow"],
    deposit: ["入金", "Deposit"],
    withdrawal: ["出金", "Withdrawal"],
    periods: ["月度收益", "Months"],
    year: ["年份", "Year"],
    wholeYear: ["全年", "Year"],
    month: ["{n}月", "{n}"],
    returnOf: ["收益率", "Return"],
    plOf: ["盈亏", "P/L"],
    calendar: ["每日盈亏", "Daily P/L"],
    drawdowns: ["回撤区间", "Drawdowns"],
    drawdownsHint: ["点击一行，查看该区间", "Choose a row to see its range"],
    lasting: ["未恢复", "lasting"],
    openingBalance: ["期初", "opening"],
    products: ["品种与合约", "Products and contracts"],
    byProduct: ["按品种", "By product"],
    byContract: ["按合约", "By contract"],
    bySide: ["按多空", "By side"],
    productsHint: ["点击一行或一条，只看它的成交和平仓", "Choose a row or bar to see its trades and closed positions alone"],
    margin: ["品种保证金", "Margin by product"],
    open: ["期末持仓", "Open positions"],
    currencies: ["币种", "Currencies"],
    baseCurrency: ["基准币种", "Base currency"],
    tables: ["明细", "Rows"],
    trades: ["成交", "Trades"],
    closed: ["平仓", "Closed positions"],
    positions: ["每日持仓", "Positions by day"],
    position_sums: ["每日持仓汇总", "Position sums by day"],
    cash: ["出入金明细", "Cash flows"],
    exercises: ["行权", "Exercises"],
    deliveries: ["交割", "Deliveries"],
    daysTable: ["每日", "Days"],
    filteredBy: ["只看 {what}", "Only {what}"],
    clearFilter: ["取消筛选", "Clear filter"],
    groupBy: ["分组", "Group by"],
    noGroup: ["不分组", "no group"],
    copy: ["复制", "Copy"],
    copied: ["已复制 {n} 行", "{n} rows copied"],
    notCopied: ["浏览器不允许复制，请另存为 CSV", "This browser lets nothing be copied: save as CSV"],
    saveCsv: ["另存为 CSV", "Save as CSV"],
    resetTable: ["清除条件", "Reset"],
    rowsShown: ["{n} / {all} 行", "{n} of {all} rows"],
    rowsInGroup: ["{n} 行", "{n} rows"],
    filterHint: ["筛选", "Filter"],
    filterColumn: ["按“{name}”筛选", "Filter by {name}"],
    numberFilterHint: ["如 >100", "e.g. >100"],
    loading: ["正在读取…", "Reading…"],
    noRows: ["没有记录", "No rows"],
    noDays: ["区间内没有结算单", "No statements"],
    hidden: ["•••", "•••"],
    madeBy: ["由 {program} 生成，不联网，数据都在本文件内", "Made by {program}. Nothing is loaded from elsewhere: all data is in this file"],
    licences: ["所用程序库的许可", "Licences of the libraries used"],
    damaged: ["本文件的数据已损坏：{why}", "The data of this file is damaged: {why}"],
    long: ["多", "Long"],
    short: ["空", "Short"],
    shownRange: ["所选区间", "chosen range"],
    wholeReport: ["整个报告", "whole report"],
    currencyPick: ["币种", "Currency"],
    amountsAreShares: ["金额以期初权益的百分比表示", "Amounts are per cent of the opening equity"],
    chartOf: ["{what}图", "Chart: {what}"],
} as const satisfies Record<string, Text>;

export type TextKey = keyof typeof kTexts;

/** A text of the page; "{name}" in it stands for a value. */
export function textOf(language: Language, key: TextKey, values: Record<string, string | number> = {}): string {
    return filledIn(pick(language, kTexts[key]), values);
}

/** `text` with its values in the place of their names. */
export function filledIn(text: string, values: Record<string, string | number>): string {
    return text.replace(/\{(\w+)\}/g, (_, name: string) => String(values[name] ?? ""));
}

export function pick(language: Language, [zh, en]: Text): string {
    return language === "zh" ? zh : en;
}

export type { Text };
