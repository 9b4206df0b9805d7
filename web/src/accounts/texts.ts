// What the index of a batch says in both languages, Chinese first.
import type { Term } from "../text/terms.ts";
import type { Text } from "../text/texts.ts";

export const kIndexTexts = {
    indexTitle: ["账户索引", "Accounts"],
    runOn: ["运行日期 {day}", "Run on {day}"],
    summary: ["汇总", "Summary"],
    list: ["全部账户", "All accounts"],
    accountsCount: ["账户 {n} 个", "{n} accounts"],
    allStatuses: ["全部 {n}", "All {n}"],
    statusOf: ["{status} {n}", "{status} {n}"],
    byStatus: ["按状态筛选", "Filter by status"],
    totals: ["按类别合计", "Totals by kind"],
    kindTotals: ["境内与境外的金额不相加", "Domestic and foreign amounts are never added up"],
    accounts: ["账户数", "Accounts"],
    withEquity: ["有权益的账户", "With equity"],
    riskLimit: ["风险线（最高保证金占用率）", "Risk limit (highest margin use)"],
    aboveLimit: ["▲ 超过 {limit}% 的账户 {n} 个", "▲ {n} accounts above {limit}%"],
    isAboveLimit: ["超过风险线", "Above the risk limit"],
    noLimit: ["请输入百分数，例如 80", "A number of per cent is wanted, such as 80"],
    severalFindings: ["{n} 条：", "{n} findings: "],
    openPage: ["报告", "Report"],
    openExplore: ["探索", "Explore"],
    openJson: ["JSON", "JSON"],
} as const satisfies Record<string, Text>;

export type IndexTextKey = keyof typeof kIndexTexts;

export const kIndexColumns: Record<string, Term> = {
    status: { label: ["状态", "Status"], meaning: ["失败、崩溃、超时的账户没有完整的报告", "Accounts that failed, crashed or timed out have no whole report"] },
    user: { label: ["用户", "User"] },
    account: { label: ["账户", "Account"] },
    kind: { label: ["类别", "Kind"] },
    page: { label: ["报告", "Report"] },
    explore: { label: ["探索", "Explore"] },
    json: { label: ["JSON", "JSON"] },
    errors: { label: ["错误", "Errors"], meaning: ["检查结果中的错误数", "Findings that are errors"] },
    warnings: { label: ["警告", "Warnings"], meaning: ["检查结果中的警告数", "Findings that are warnings"] },
    notes: { label: ["提示", "Notes"], meaning: ["检查结果中的提示数", "Findings that are notes"] },
    margin_use: { label: ["最高占用率", "Margin use"], meaning: ["各日 保证金占用 ÷ 客户权益 的最大值；筛选时输入百分数", "The highest margin / equity of a day; looked for in per cent"] },
    reason: { label: ["原因", "Reason"], meaning: ["报告不完整的原因", "Why there is no whole report"] },
    worst: { label: ["主要问题", "Worst findings"], meaning: ["最严重的检查结果，最多五条", "Findings, the worst first, five at most"] },
    equity: { label: ["期末权益", "Equity"], meaning: ["最后一天的客户权益，基准币种", "Equity of the last day, in base currency"] },
    pl: { label: ["盈亏", "P/L"], meaning: ["每日盈亏之和，基准币种", "Sum of the days' P/L, in base currency"] },
    drawdown: { label: ["最大回撤", "Drawdown"], meaning: ["净值从之前最高点到最低点的最大跌幅；筛选时输入百分数", "Deepest fall of the index below its highest value before; looked for in per cent"] },
    first_day: { label: ["开始日", "First day"] },
    last_day: { label: ["结束日", "Last day"] },
    statements: { label: ["结算单", "Statements"], meaning: ["读取的结算单份数", "Statements read"] },
    trades: { label: ["成交", "Trades"] },
    closed: { label: ["平仓", "Closed"] },
    positions: { label: ["持仓", "Positions"] },
    seconds: { label: ["用时（秒）", "Seconds"] },
    peak_memory: { label: ["内存（MB）", "Memory (MB)"], meaning: ["最高内存占用；筛选时输入 MB", "Memory at most; looked for in MB"] },
};

/** What stands in cells under a code. No text is part of another one: accounts are looked for by them. */
export const kIndexCells: Record<string, Record<string, Text>> = {
    status: {
        failed: ["失败", "Failed"],
        crashed: ["崩溃", "Crashed"],
        timeout: ["超时", "Timed out"],
        findings: ["有问题", "Findings"],
        ok: ["正常", "OK"],
    },
    kind: {
        domestic: ["境内", "Domestic"],
        foreign: ["境外", "Foreign"],
    },
};
