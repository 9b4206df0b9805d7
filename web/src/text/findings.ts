// What each code of a finding means, and what to do about it.
import type { Text } from "./texts.ts";

interface FindingText {
    what: Text;
    todo: Text;
}

export const kFindings: Record<string, FindingText> = {
    unreadable: { what: ["结算单打不开或读不完", "A statement can't be read"], todo: ["给予读取权限，或重新复制", "Give the right to read it, or copy it anew"] },
    empty: { what: ["结算单是空的", "A statement holds nothing"], todo: ["向期货公司重新索取", "Fetch it again from the broker"] },
    "not-a-file": { what: ["结算单的名字下不是文件", "What bears a statement's name isn't a file"], todo: ["把结算单放到该处", "Put the statement in its place"] },
    encoding: { what: ["结算单不是 GBK 文本", "A statement isn't GBK text"], todo: ["另存为 GBK（代码页 936），或用 tradebill import 导入", "Save it as GBK (code page 936), or bring it in with tradebill import"] },
    unrecognised: { what: ["认不出结算单的格式", "A statement isn't of its layout"], todo: ["指定合适的格式；tradebill explain 显示文件里读到了什么", "Name the layout that fits; tradebill explain shows what is seen in the file"] },
    "cut-off": { what: ["结算单不完整", "A statement is cut off"], todo: ["重新索取：末尾缺失", "Fetch the statement again: its end is missing"] },
    "section-missing": { what: ["缺少应有的一段", "A section is missing"], todo: ["重新索取，或用 tradebill explain 查看", "Fetch the statement again, or see with tradebill explain what is read of it"] },
    "row-skipped": { what: ["有一行没有读成记录", "A row made no record"], todo: ["查看该行；tradebill explain 显示格式要求", "Look at the row; tradebill explain shows what its layout expects"] },
    shifted: { what: ["一行的列数不对", "A row has too few or too many columns"], todo: ["查看该行，空格子里填 0 或 -", "Look at the row, and put a value such as 0 or - into the empty cell"] },
    totals: { what: ["合计与各行不符", "A row of totals doesn't agree with its rows"], todo: ["重新索取：有行缺失或被改动", "Fetch the statement again: rows are missing or changed"] },
    identity: { what: ["期末结存与各项之和不符", "The closing balance isn't what its parts add up to"], todo: ["与期货公司核对资金数字", "Compare the money figures with the broker's"] },
    available: { what: ["可用资金不等于权益减保证金", "The available funds aren't equity less margin"], todo: ["与期货公司核对资金数字", "Compare the money figures with the broker's"] },
    "money-rows": { what: ["出入金、行权或交割明细与资金数字不符", "Rows of cash, exercises or deliveries don't make the money figure"], todo: ["与期货公司核对：有行缺失或被改动，或资金数字有误", "Compare both with the broker's: rows are missing or changed, or the money figure is"] },
    currency: { what: ["结算单有第二个币种的资金", "A statement has money of a second currency"], todo: ["另一币种的结存请看结算单；成交和持仓都在报告里", "Take the balances of the other currency from the statement; trades and positions of both are here"] },
    continuity: { what: ["期初结存与上日期末不符", "A day doesn't open with the balance that the day before closed with"], todo: ["两天的结算单都与期货公司核对：其中一份有误或属于别的账户", "Compare both statements with the broker's: one of them is wrong or of another account"] },
    gap: { what: ["有工作日没有结算单", "Weekdays have no statement"], todo: ["补齐缺少的结算单；结存未变时多半是假日", "Fetch the missing statements; with an unchanged balance these are mostly holidays"] },
    lots: { what: ["持仓手数与上日和开平不符", "Open lots don't follow from the day before"], todo: ["与期货公司核对成交和持仓；交割和行权可能是原因", "Compare trades and positions with the broker's; deliveries and exercises may explain it"] },
    "wrong-account": { what: ["结算单属于别的账户", "A statement is of another account"], todo: ["换成本账户的结算单", "Put the statement of this account in its place"] },
    "wrong-day": { what: ["结算单是别的日期", "A statement is of another day"], todo: ["换成当日的结算单", "Put the statement of this day in its place"] },
    repeated: { what: ["两天的结算单相同", "Two days have the same statement"], todo: ["索取另一天的结算单", "Fetch the statement of the day that has the other's"] },
    unit: { what: ["合约乘数未知或与成交矛盾", "The unit of a contract isn't known or contradicts its trades"], todo: ["用 --units 给出正确的乘数", "Give the right unit in a file for --units"] },
    template: { what: ["模板缺失或有错", "The template is missing or wrong"], todo: ["修改模板；tradebill template check 指出行号", "Mend the template; tradebill template check tells its lines"] },
    live: { what: ["报告截止今天但没有实时数据", "The report ends today without live figures"], todo: ["用 --live 给出，或截止昨天", "Give the figures with --live, or end the report yesterday"] },
    opening: { what: ["找不到开仓的那笔成交", "The trade that opened a row isn't among the statements"], todo: ["导入那一天，再用 --force 导入本日", "Import the day of that trade, and then this one again with --force"] },
};

/** What findings say they expected and found, as far as it is words. */
const kPhrases: readonly [pattern: RegExp, zh: string][] = [
    [/^none$/, "无"],
    [/^nothing$/, "无"],
    [/^a statement$/, "一份结算单"],
    [/^(\d+) statements$/, "$1 份结算单"],
    [/^a statement of its own$/, "自己的结算单"],
    [/^a statement that can be read$/, "可读的结算单"],
    [/^(-?[\d.,]+) lots?$/, "$1 手"],
    [/^(-?[\d.,]+) rows?$/, "$1 行"],
    [/^(-?[\d.,]+) columns?$/, "$1 列"],
    [/^(-?[\d.,]+) amounts?$/, "$1 个金额"],
    [/^(-?[\d.,]+) bytes?$/, "$1 字节"],
    [/^an amount for (.*)$/, "$1 的金额"],
    [/^the end of the file$/, "文件结束"],
    [/^live figures$/, "实时数据"],
    [/^its unit$/, "合约乘数"],
    [/^its title alone$/, "只有标题"],
    [/^a whole last row, and the sections behind it$/, "完整的最后一行和其后各段"],
    [/^a template that can be read$/, "可读的模板"],
    [/^a template file$/, "模板文件"],
    [/^a heading that names columns$/, "写明各列的表头"],
    [/^a file$/, "文件"],
    [/^a folder, a pipe or a device$/, "文件夹、管道或设备"],
    [/^GBK text$/, "GBK 文本"],
];

/** A phrase of a finding in Chinese; what isn't known stays as it is. */
export function phraseOf(text: string): string {
    const known = kPhrases.find(([pattern]) => pattern.test(text));
    return known === undefined ? text : text.replace(known[0], known[1]);
}
