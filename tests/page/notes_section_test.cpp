#include <gtest/gtest.h>

#include <string>

#include "page/html_builder.h"
#include "page/page_fixture.h"
#include "page/page_sections.h"

namespace tradebill::notes_section_test {
namespace {

class NotesSection : public PageFixture {};

const std::string kNotes =
    "<h5 class=reporteptitle>报告说明：</h5><HR style =  \"#656565\"  SIZE = 1><p class=\"reporteptext\">"
    "1、该分析报告，仅供参考，请以保证金监控中心结算单为准。</p>\r\n"
    "<p "
    "class=\"reporteptext\">"
    "2、【平仓记录】中的平仓盈亏指一个持仓从开仓至平仓所产生的盈亏，【账户统计】中的平仓盈亏只计算"
    "选定报告范围内的部分，两者可以不相等，为正常情况。</p>\r\n";

TEST_F(NotesSection, IsATitleARuleAndTwoNotes) {
    CHtmlBuilder page(path_);
    AddNotesSection(page);
    EXPECT_EQ(Page(), ClosedPage(kNotes));
}

TEST_F(NotesSection, IsTheSameForForeignReports) {
    report.Request.StatementKind = 2;
    CHtmlBuilder page(path_);
    AddNotesSection(page);
    EXPECT_EQ(Page(), ClosedPage(kNotes));
}

TEST_F(NotesSection, MovesTheWrappersOfAnEarlierClosing) {
    CHtmlBuilder page(path_);
    page.AddText("before\r\n");
    page.ClosePage();
    AddNotesSection(page);
    EXPECT_EQ(Page(), ClosedPage("before\r\n" + kNotes));
}

}  // namespace
}  // namespace tradebill::notes_section_test
