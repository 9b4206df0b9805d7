#include "images/account_table.h"

#include "base/gbk.h"
#include "images/money_figures.h"
#include "images/painted_table.h"
#include "paint/canvas.h"
#include "report/money_store.h"
#include "report/report.h"

namespace tradebill {
namespace {

// clang-format off
constexpr MoneyRow kRows[] = {
    {"期初账户净值"_gbk,     MoneyFigure<&CMoneyStore::OpeningEquity>},
    {"- 手续费"_gbk,         MoneyFigure<&CMoneyStore::TotalFees>},
    {"+ 盯市平仓盈亏"_gbk,   MoneyFigure<&CMoneyStore::TotalClosedPL>},
    {"+ 出入金"_gbk,         MoneyFigure<&CMoneyStore::TotalCashFlow>},
    {"+ 持仓盈亏"_gbk,       MoneyFigure<&CMoneyStore::TotalPositionPL>},
    {"+ 权利金"_gbk,         MoneyFigure<&CMoneyStore::TotalPremium>},
    {"= 期末账户净值"_gbk,   MoneyFigure<&CMoneyStore::ClosingEquity>},
    {"- 持仓占用保证金"_gbk, MoneyFigure<&CMoneyStore::PositionMargin>},
    {"- 挂单冻结"_gbk,       FrozenByOrders},
    {"= 可用资金"_gbk,       MoneyFigure<&CMoneyStore::Available>},
};
// clang-format on

}  // namespace

void PaintAccountTable(CCanvas& canvas, const CReport& report) {
    const CTableTools tools(canvas, report.Request.Dpi);
    PaintLabelTable(canvas, LabelledFigures<CMoneyStore>(kRows, report.MoneyStore),
                    {.rowHeight = report.Scaled(22), .dpi = report.Request.Dpi});
}

}  // namespace tradebill
