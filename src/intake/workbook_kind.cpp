#include "intake/workbook_kind.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "base/text.h"
#include "intake/sheet_table.h"
#include "intake/workbook.h"

namespace tradebill {
namespace {

constexpr std::string_view kDaily = "客户交易结算日报";

}  // namespace

const WorkbookSheet* FindSheet(const Workbook& workbook, std::string_view name) {
    const auto found =
        std::ranges::find_if(workbook.sheets, [&](const auto& sheet) { return BareWord(sheet.name) == name; });
    return found != workbook.sheets.end() ? &*found : nullptr;
}

const WorkbookSheet* FindMoneySheet(const Workbook& workbook) {
    if (const WorkbookSheet* const sheet = FindSheet(workbook, kDaily)) return sheet;
    const auto found = std::ranges::find_if(workbook.sheets, [](const WorkbookSheet& sheet) {
        const CSheetLabels labels(sheet);
        return labels.Find("上日结存") != nullptr && labels.Find("客户权益") != nullptr;
    });
    return found != workbook.sheets.end() ? &*found : nullptr;
}

std::string WhyNoDay(const Workbook& workbook) {
    const auto holds = [&](std::string_view word) {
        return std::ranges::any_of(workbook.sheets, [&](const WorkbookSheet& sheet) {
            return Contains(sheet.name, word) || HoldsWord(sheet, word);
        });
    };
    if (holds("结算月报") || holds("交易结算单(月)") || holds("交易核算单(月)") || holds("月度结算")) {
        return "it is a statement of a month: import takes those of single days";
    }
    const WorkbookSheet* const positions = FindSheet(workbook, "持仓明细");
    const bool hasFloating = positions != nullptr && CSheetTable::Find(*positions, {"合约", "浮动盈亏"}, "持仓盈亏");
    if (holds("逐笔对冲") || hasFloating) {
        return "it is in the trade-by-trade form (逐笔对冲): import takes the mark-to-market form (逐日盯市)";
    }
    if (FindMoneySheet(workbook) == nullptr) return "it is a workbook, and not the daily one of the monitoring centre";
    return {};
}

}  // namespace tradebill
