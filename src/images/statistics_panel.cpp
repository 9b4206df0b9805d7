#include "images/statistics_panel.h"

#include <cstdint>
#include <iterator>
#include <string_view>

#include "base/gbk.h"
#include "images/painted_table.h"
#include "paint/canvas.h"
#include "paint/geometry.h"
#include "paint/text_block.h"
#include "report/account_statistics.h"
#include "report/report.h"

namespace tradebill {
namespace {

constexpr Color kNoteColor = 0x656565;
constexpr std::int64_t kNotesBelowTable = 25;  // pixels at every resolution

template <double CAccountStatistics::*Figure>
double Statistic(const CAccountStatistics& statistics) {
    return statistics.*Figure;
}

// clang-format off
constexpr FigureRow<CAccountStatistics> kRows[] = {
    {"胜率："_gbk,       Statistic<&CAccountStatistics::WinRate>,    "%"},
    {"盈利率："_gbk,     Statistic<&CAccountStatistics::ProfitRate>, "%"},
    {"最大回撤："_gbk,   Statistic<&CAccountStatistics::MaxDrawdown>},
    {"最大盈利："_gbk,   Statistic<&CAccountStatistics::MaxProfit>},
    {"最大亏损："_gbk,   Statistic<&CAccountStatistics::MaxLoss>},
    {"最大收益率："_gbk, Statistic<&CAccountStatistics::MaxYield>,   "%"},
    {"最大风险度："_gbk, Statistic<&CAccountStatistics::MaxRisk>,    "%"},
};
// clang-format on

constexpr std::string_view kNotes[] = {
    "胜率：(盈利次数 + 持平次数）/ 交易次数"_gbk,  // a bracket of half width is closed by one of full width
    "盈利率：总平仓盈亏 / 初始权益"_gbk,          "最大回撤：权益达到高点回撤幅度最大的一笔"_gbk,
    "最大盈利：统计期间平仓盈利最大的一笔"_gbk,   "最大亏损：统计期间平仓亏损最大的一笔"_gbk,
    "最大收益率：统计期间收益率的最大值"_gbk,     "最大风险度：单日资金使用率的最大值 "_gbk,
    "账户收益率：总盈利 / 期初权益"_gbk,
};
constexpr std::string_view kWrappedNote = "交易收益率：账户收益率 / 账户资金使用率"_gbk;
constexpr std::int64_t kMostWrappedLines = 2;

/// From the left edge of the table to a little beyond its right one.
void WriteWrappedNote(CCanvas& canvas, const LabelTable& table, std::int64_t top) {
    const std::int64_t height = MeasureTextBlock(canvas, kWrappedNote).height;
    const Box box{.left = ClampCoordinate(table.Left()),
                  .top = ClampCoordinate(top),
                  .right = ClampCoordinate(2 * table.column + kTableLeft),
                  .bottom = ClampCoordinate(top + kMostWrappedLines * height)};
    WriteWrappedText(canvas, box, kWrappedNote);
}

void WriteNotes(CCanvas& canvas, const TableScale& scale) {
    const LabelTable table = MeasureLabelTable(scale.dpi);
    std::int64_t top = std::ssize(kRows) * scale.rowHeight + kNotesBelowTable;
    canvas.SelectTextColor(kNoteColor);
    for (const std::string_view note : kNotes) {
        WriteTableText(canvas, {table.Left(), top}, note);
        top += scale.rowHeight;
    }
    WriteWrappedNote(canvas, table, top);
}

}  // namespace

void PaintStatisticsPanel(CCanvas& canvas, const CReport& report) {
    const CTableTools tools(canvas, report.Request.Dpi);
    const TableScale scale{.rowHeight = report.Scaled(25), .dpi = report.Request.Dpi};
    PaintLabelTable(canvas, LabelledFigures<CAccountStatistics>(kRows, report.AccountStatistics), scale);
    WriteNotes(canvas, scale);
}

}  // namespace tradebill
