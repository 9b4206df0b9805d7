// The placeholder page.
#include <gtest/gtest.h>

#include <string>

#include "driver/report_request.h"
#include "support/gbk_text.h"
#include "support/temp_folder.h"

namespace tradebill::reset_page_test {
namespace {

std::string Placeholder(const std::string& words) {
    return "<html>\r\n<head>\r\n<title> 交易及账单报告 </title>\r\n</head>\r\n<body>\r\n<h2>" + words +
           "</h2>\r\n</body>\r\n</html>\r\n";
}

TEST(ResetTradeBillFile, SaysWhetherTheReportIsStillBeingMade) {
    const CTempFolder folder;
    const std::string path = folder.Path("TradeBill.html");
    ResetTradeBillFile(path.c_str(), 0);
    EXPECT_EQ(GbkToUtf8(ReadFile(path)), Placeholder("账单查询中..."));
    for (const std::int32_t finished : {1, -1}) {
        ResetTradeBillFile(path.c_str(), finished);
        EXPECT_EQ(GbkToUtf8(ReadFile(path)), Placeholder("请查询！"));
    }
}

TEST(ResetTradeBillFile, LeavesOnePageHoweverOften) {
    const CTempFolder folder;
    const std::string path = folder.Path("TradeBill.html");
    ResetTradeBillFile(path.c_str(), 1);
    ResetTradeBillFile(path.c_str(), 0);
    EXPECT_EQ(GbkToUtf8(ReadFile(path)), Placeholder("账单查询中..."));
}

TEST(ResetTradeBillFile, PassesOverWhatCannotBeWritten) {
    const CTempFolder folder;
    ResetTradeBillFile(nullptr, 1);
    ResetTradeBillFile("", 1);
    ResetTradeBillFile(folder.Path("missing/TradeBill.html").c_str(), 1);
    ResetTradeBillFile(folder.Path(std::string(5000, 'x')).c_str(), 1);
}

}  // namespace
}  // namespace tradebill::reset_page_test
