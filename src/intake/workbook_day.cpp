#include "intake/workbook_day.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/day_number.h"
#include "base/decimal.h"
#include "base/number.h"
#include "base/text.h"
#include "intake/name_facts.h"
#include "intake/sheet_table.h"
#include "intake/workbook.h"
#include "intake/workbook_kind.h"

namespace tradebill {
namespace {

struct MoneyWord {
    std::string_view label;
    std::int64_t DayMoney::*figure;
    bool isNeeded = false;
};

// clang-format off
constexpr MoneyWord kMoney[] = {
    {"上日结存",     &DayMoney::opening,   true},
    {"当日存取合计", &DayMoney::cashFlow},
    {"当日手续费",   &DayMoney::fees},
    {"当日结存",     &DayMoney::closing,   true},
    {"客户权益",     &DayMoney::equity,    true},
    {"保证金占用",   &DayMoney::margin},
    {"可用资金",     &DayMoney::available},
    {"冻结资金",     &DayMoney::frozen},
    {"追加保证金",   &DayMoney::call},
};
constexpr std::string_view kAccountLabels[] = {"资金账户", "资金账号", "资金帐号", "客户期货期权内部资金账户", "客户内部资金账户"};
constexpr std::string_view kDayLabels[]     = {"交易日期", "结算日期", "日期"};
constexpr std::string_view kClientLabels[]  = {"客户名称", "客户姓名"};
constexpr std::string_view kCompanyLabels[] = {"期货公司名称", "期货公司", "公司名称"};
// clang-format on

/// The last 12 digits of a trade's number: some sites put the day in front of it.
std::string NumberKey(std::string_view text) {
    constexpr std::size_t kMost = 12;
    return std::string(text.size() > kMost ? text.substr(text.size() - kMost) : text);
}

class CDayReader {
public:
    explicit CDayReader(const Workbook& workbook) : workbook_(workbook) {}

    WorkbookDay Read() {
        day_.refusal = WhyNoDay(workbook_);
        if (day_.refusal.empty()) ReadSheets();
        return std::move(day_);
    }

private:
    void ReadSheets() {
        const WorkbookSheet& sheet = *FindMoneySheet(workbook_);
        const CSheetLabels labels(sheet);
        sheet_ = &sheet;
        ReadHead(labels);
        ReadMoney(labels);
        ReadCash();
        ReadTrades();
        ReadOptionTrades();
        ReadClosings();
        ReadPositions();
        ReadSummaries();
    }

    void Refuse(std::string why) {
        if (day_.refusal.empty()) day_.refusal = std::move(why);
    }

    static const WorkbookCell* FirstLabelled(const CSheetLabels& labels, std::span<const std::string_view> words) {
        for (const std::string_view word : words) {
            const WorkbookCell* const cell = labels.Find(word);
            if (cell != nullptr && !ValueOf(*cell).empty()) return cell;
        }
        return nullptr;
    }

    void ReadHead(const CSheetLabels& labels) {
        const auto textOf = [&](std::span<const std::string_view> words) {
            const WorkbookCell* const cell = FirstLabelled(labels, words);
            return cell != nullptr ? Short(*cell) : std::string();
        };
        if (auto account = textOf(kAccountLabels); !account.empty()) day_.account = std::move(account);
        if (const WorkbookCell* const cell = FirstLabelled(labels, kDayLabels)) {
            day_.day = DayIn(*cell);
            if (!day_.day)
                Refuse("the day that it states, " + std::string(ValueOf(*cell)) + ", is none of the calendar");
        }
        day_.client = textOf(kClientLabels);
        day_.company = textOf(kCompanyLabels);
    }

    /// A day as a text or as a number: of its digits, or of the days since that of 0.
    [[nodiscard]] std::optional<std::string> DayIn(const WorkbookCell& cell) const {
        const std::string_view text = ValueOf(cell);
        const std::string_view date = text.substr(0, text.find_first_of(" T"));  // a time may stand behind it
        std::optional<std::int64_t> number = DayNumberOf(date);
        if (!number && cell.isNumber) {
            if (const auto days = WholeNumber(text.substr(0, text.find('.')))) number = workbook_.dayOfZero + *days;
        }
        constexpr std::int64_t kMost = 400'000;  // beyond the year 3000
        if (!number || *number < 0 || *number > kMost) return std::nullopt;
        std::string day = NumberedDay(*number);
        return IsCalendarDay(day) ? std::optional(std::move(day)) : std::nullopt;
    }

    /// The amount in a cell of the money sheet; nothing if there is none.
    std::optional<std::int64_t> LabelledAmount(const CSheetLabels& labels, std::string_view label) {
        const WorkbookCell* const cell = labels.Find(label);
        if (cell == nullptr || ValueOf(*cell).empty()) return std::nullopt;
        const auto amount = ParseDecimal(ValueOf(*cell));
        if (!amount) Refuse(Place(*cell) + " has no amount for " + std::string(label));
        return amount ? std::optional(amount->steps) : std::nullopt;
    }

    [[nodiscard]] std::string Place(const WorkbookCell& cell) const {
        return CellName(cell.place) + " of " + sheet_->name;
    }

    /// A text that stands in one column; a longer one refuses the workbook.
    std::string Short(const WorkbookCell& cell) {
        constexpr std::size_t kLongest = 200;
        const std::string_view text = ValueOf(cell);
        if (text.size() > kLongest)
            Refuse(Place(cell) + " has a text of more than " + std::to_string(kLongest) + " bytes");
        return std::string(text.substr(0, kLongest));
    }

    std::string Word(const CTableRow& row, std::string_view heading) {
        const WorkbookCell* const cell = row.Cell(heading);
        return cell != nullptr ? Short(*cell) : std::string();
    }

    /// The rows of a table, which are many but not without end.
    std::vector<CTableRow> RowsOf(const CSheetTable& table) {
        constexpr std::size_t kMost = 100'000;
        std::vector<CTableRow> rows = table.Rows();
        if (rows.size() > kMost) {
            Refuse("its sheet " + sheet_->name + " has more than " + std::to_string(kMost) + " rows");
            rows.clear();
        }
        return rows;
    }

    void ReadMoney(const CSheetLabels& labels) {
        for (const MoneyWord& word : kMoney) {
            if (word.isNeeded && labels.Find(word.label) == nullptr) {
                return Refuse("it is a workbook without " + std::string(word.label) + " in " + sheet_->name);
            }
            day_.money.*word.figure = LabelledAmount(labels, word.label).value_or(0);
        }
        day_.money.profit = LabelledAmount(labels, "当日盈亏");
        day_.money.premium = LabelledAmount(labels, "当日总权利金");
        const WorkbookCell* const risk = labels.Find("风险度");
        if (risk != nullptr) day_.money.risk = Short(*risk);
    }

    /// Below the figures, in the same sheet. A note may stand where the row of totals would.
    void ReadCash() {
        const auto table = CSheetTable::Find(*sheet_, {"发生日期", "入金", "出金"});
        if (!table) return;
        for (const CTableRow& row : RowsOf(*table)) {
            auto day = DayIn(*row.Cell("发生日期"));
            if (!day) break;
            day_.cash.push_back({.day = *std::move(day),
                                 .kind = Word(row, "方式"),
                                 .in = Amount(row, "入金"),
                                 .out = Amount(row, "出金"),
                                 .note = Word(row, "摘要")});
        }
    }

    /// The table of a sheet, if the workbook has the sheet. One without its headings refuses the workbook.
    std::optional<CSheetTable> TableOf(std::string_view name, std::initializer_list<std::string_view> headings) {
        sheet_ = FindSheet(workbook_, name);
        if (sheet_ == nullptr) return std::nullopt;
        auto table = CSheetTable::Find(*sheet_, headings);
        if (!table) {
            std::string words;
            for (const std::string_view heading : headings) words.append(words.empty() ? "" : ", ").append(heading);
            Refuse("its sheet " + sheet_->name + " has no table with the headings " + words);
        }
        return table;
    }

    std::int64_t Amount(const CTableRow& row, std::string_view heading) {
        const WorkbookCell* const cell = row.Cell(heading);
        if (cell == nullptr) return 0;
        const auto amount = ParseDecimal(ValueOf(*cell));
        if (!amount) Refuse(Place(*cell) + " has no number for " + std::string(heading));
        return amount ? amount->steps : 0;
    }

    /// An amount that a row can't do without.
    std::int64_t Needed(const CTableRow& row, std::string_view heading) {
        if (row.Cell(heading) == nullptr) Refuse(RowName(row) + " has no " + std::string(heading));
        return Amount(row, heading);
    }

    std::int64_t Lots(const CTableRow& row, std::string_view heading) {
        constexpr std::int64_t kMost = 100'000'000;
        const std::int64_t steps = Amount(row, heading);
        const std::int64_t lots = steps / kDecimalSteps;
        if (steps % kDecimalSteps != 0 || lots < 0 || lots > kMost) {
            Refuse(RowName(row) + " has no number of lots for " + std::string(heading));
        }
        return lots;
    }

    std::string RowName(const CTableRow& row) const {
        return "row " + std::to_string(row.Number()) + " of " + sheet_->name;
    }

    bool IsBuy(const CTableRow& row) {
        const bool isBuy = Contains(row.Text("买/卖"), "买");
        if (isBuy == Contains(row.Text("买/卖"), "卖")) Refuse(RowName(row) + " is neither 买 nor 卖");
        return isBuy;
    }

    /// Adds what the row of totals says, or else what the rows add up to.
    void AddTotal(std::int64_t& total, const CSheetTable& table, std::string_view heading) {
        const auto totals = table.Totals();
        std::int64_t more = 0;
        if (totals && totals->Cell(heading) != nullptr) {
            more = Amount(*totals, heading);
        } else {
            for (const CTableRow& row : RowsOf(table)) more = WrappingSum(more, Amount(row, heading));
        }
        total = WrappingSum(total, more);
    }

    void ReadTrades() {
        const auto table = TableOf("成交明细", {"合约", "成交序号", "买/卖", "成交价", "手数", "成交额", "开/平"});
        if (!table) return;
        for (const CTableRow& row : RowsOf(*table)) {
            day_.trades.push_back({.contract = Word(row, "合约"),
                                   .number = NumberKey(Word(row, "成交序号")),
                                   .isBuy = IsBuy(row),
                                   .hedge = Word(row, "投机/套保"),
                                   .price = Needed(row, "成交价"),
                                   .lots = Lots(row, "手数"),
                                   .turnover = Needed(row, "成交额"),
                                   .offset = Word(row, "开/平"),
                                   .fee = Amount(row, "手续费"),
                                   .profit = Amount(row, "平仓盈亏")});
        }
        AddTotal(day_.totals.tradeLots, *table, "手数");
        AddTotal(day_.totals.tradeFees, *table, "手续费");
    }

    void ReadOptionTrades() {
        const auto table = TableOf("期权成交明细", {"品种合约", "流水号", "买/卖", "权利金单价", "成交量", "权利金"});
        if (!table) return;
        for (const CTableRow& row : RowsOf(*table)) {
            day_.trades.push_back({.contract = Word(row, "品种合约"),
                                   .number = NumberKey(Word(row, "流水号")),
                                   .isBuy = IsBuy(row),
                                   .isOption = true,
                                   .hedge = Word(row, "投机/套保"),
                                   .price = Needed(row, "权利金单价"),
                                   .lots = Lots(row, "成交量"),
                                   .turnover = std::abs(Needed(row, "权利金")),
                                   .offset = Word(row, "开/平"),
                                   .fee = Amount(row, "手续费")});
        }
        AddTotal(day_.totals.tradeLots, *table, "成交量");
        AddTotal(day_.totals.tradeFees, *table, "手续费");
    }

    void ReadClosings() {
        const auto table = TableOf("平仓明细", {"合约", "买/卖", "成交价", "开仓价", "手数", "昨结算价", "平仓盈亏"});
        if (!table) return;
        for (const CTableRow& row : RowsOf(*table)) {
            DayClosing closing{.contract = Word(row, "合约"),
                               .openNumber = NumberKey(Word(row, "原成交序号")),
                               .isBuy = IsBuy(row),
                               .price = Needed(row, "成交价"),
                               .openPrice = Needed(row, "开仓价"),
                               .lots = Lots(row, "手数"),
                               .settledBefore = Amount(row, "昨结算价"),
                               .profit = Amount(row, "平仓盈亏")};
            if (const WorkbookCell* const cell = row.Cell("开仓日期")) closing.openDay = DayIn(*cell);
            day_.closings.push_back(std::move(closing));
        }
        AddTotal(day_.totals.closedLots, *table, "手数");
        AddTotal(day_.totals.closedProfit, *table, "平仓盈亏");
    }

    void ReadPositions() {
        const auto table =
            TableOf("持仓明细", {"合约", "成交序号", "买持仓", "买入价", "卖持仓", "卖出价", "今结算价", "持仓盈亏"});
        if (!table) return;
        for (const CTableRow& row : RowsOf(*table)) {
            const std::int64_t bought = Lots(row, "买持仓");
            const std::int64_t sold = Lots(row, "卖持仓");
            if ((bought > 0) == (sold > 0)) Refuse(RowName(row) + " has lots on both sides or on none");
            DayPosition position{.contract = Word(row, "合约"),
                                 .number = NumberKey(Word(row, "成交序号")),
                                 .isLong = bought > 0,
                                 .hedge = Word(row, "投机/套保"),
                                 .lots = bought + sold,
                                 .openPrice = Needed(row, bought > 0 ? "买入价" : "卖出价"),
                                 .settledBefore = Amount(row, "昨结算价"),
                                 .settled = Needed(row, "今结算价"),
                                 .profit = Amount(row, "持仓盈亏")};
            if (row.Cell("交易保证金") != nullptr) position.margin = Amount(row, "交易保证金");
            const WorkbookCell* day = row.Cell("开仓日期");
            if (day == nullptr) day = row.Cell("实际成交日期");
            if (day != nullptr) position.tradeDay = DayIn(*day);
            day_.positions.push_back(std::move(position));
        }
        AddTotal(day_.totals.positionProfit, *table, "持仓盈亏");
    }

    /// The summaries of positions, which stand in the sheet of the figures or in sheets of their own.
    void ReadSummaries() {
        for (const WorkbookSheet& sheet : workbook_.sheets) {
            sheet_ = &sheet;
            for (const std::string_view contract : {"品种合约", "合约"}) {
                if (const auto table =
                        CSheetTable::Find(sheet, {contract, "期权类型", "买持仓", "买均价", "卖持仓", "卖均价"})) {
                    for (const CTableRow& row : RowsOf(*table)) AddOptionPositions(row, contract);
                }
                const auto table = CSheetTable::Find(
                    sheet, {contract, "买持仓", "买均价", "卖持仓", "卖均价", "交易保证金"}, "期权类型");
                if (!table || day_.margins) continue;
                day_.margins.emplace();
                for (const CTableRow& row : RowsOf(*table)) {
                    day_.margins->push_back({Word(row, contract), Amount(row, "交易保证金")});
                }
            }
        }
    }

    /// A row for each side that has lots, in place of those of single trades. The margin is that of the side that sold,
    /// if there is one.
    void AddOptionPositions(const CTableRow& row, std::string_view contract) {
        const std::int64_t bought = Lots(row, "买持仓");
        const std::int64_t sold = Lots(row, "卖持仓");
        const std::int64_t margin = Amount(row, "交易保证金");
        const std::string name = Word(row, contract);
        std::erase_if(day_.positions,
                      [&](const auto& position) { return !position.isOption && position.contract == name; });
        const auto add = [&](bool isLong, std::int64_t lots) {
            if (lots == 0) return;
            day_.positions.push_back({.contract = name,
                                      .number = {},
                                      .isLong = isLong,
                                      .isOption = true,
                                      .lots = lots,
                                      .openPrice = Needed(row, isLong ? "买均价" : "卖均价"),
                                      .settledBefore = Amount(row, "昨结算价"),
                                      .settled = Amount(row, "今结算价"),
                                      .margin = isLong && sold > 0 ? 0 : margin});
        };
        add(true, bought);
        add(false, sold);
    }

    const Workbook& workbook_;
    const WorkbookSheet* sheet_ = nullptr;
    WorkbookDay day_;
};

}  // namespace

WorkbookDay ReadWorkbookDay(const Workbook& workbook) {
    return CDayReader(workbook).Read();
}

}  // namespace tradebill
