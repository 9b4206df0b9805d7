#include "base/gbk.h"
#include "page/html_builder.h"
#include "page/page_sections.h"

namespace tradebill {

void AddNotesSection(CHtmlBuilder& page) {
    page.AddHeading(5, "reporteptitle", "报告说明："_gbk);
    page.AddRule(" \"#656565\" ");
    page.AddNote("1、该分析报告，仅供参考，请以保证金监控中心结算单为准。"_gbk);
    page.AddNote(
        "2、【平仓记录】中的平仓盈亏指一个持仓从开仓至平仓所产生的盈亏，【账户统计】中的平仓盈亏只计算选定报告范围内的部分，两者可以不相等，为正常情况。"_gbk);
    page.ClosePage();
}

}  // namespace tradebill
