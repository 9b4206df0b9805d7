// Workbooks where there is nothing to read them by: told, and everything else is imported.
#include <gtest/gtest.h>

#include <string>

#include "support/gbk_text.h"
#include "support/shell.h"
#include "support/temp_folder.h"

namespace tradebill::windows_workbook_refusal_test {
namespace {

TEST(WorkbookRefusal, EndsTheProgramWithTwoAndImportsTheOthers) {
    const CTempFolder folder;
    folder.Write("in/a.xls", "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1...");
    folder.Write("in/b.txt", Statement({"客户号: 9001 日期: 20240102", "资金状况", "上日结存: 1.00"}));
    const Answer answer = RunProgram(
        folder, "import " + Quoted(folder.Path("in")) + " --root " + Quoted(folder.Path("root")) + " --user demo");
    EXPECT_EQ(answer.exit, 2);
    EXPECT_TRUE(Says(answer.out, "it is a workbook, and the program for Windows reads none")) << answer.out;
    EXPECT_TRUE(Says(answer.out, "2 files: 1 imported, 1 refused")) << answer.out;
}

}  // namespace
}  // namespace tradebill::windows_workbook_refusal_test
