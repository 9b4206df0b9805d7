// Workbooks as files that are imported: both forms alike, day by day or at once, and each bad one in a line of its own.
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "intake/bill_import.h"
#include "platform/text_encoding.h"
#include "requests/unit_table.h"
#include "support/day_workbook.h"
#include "support/gbk_text.h"
#include "support/made_workbook.h"
#include "support/shell.h"
#include "support/temp_folder.h"
#include "support/zip_file.h"

namespace tradebill::linux_workbook_import_test {
namespace {

namespace fs = std::filesystem;

constexpr const char* kFirstName = "D90010009.20240102o.txt";
constexpr const char* kSecondName = "D90010009.20240103o.txt";

class WorkbookImport : public testing::Test {
protected:
    [[nodiscard]] Answer Import(const std::string& paths, const std::string& root = "root",
                                const std::string& more = {}) const {
        return RunProgram(folder_,
                          "import " + paths + " --root " + Quoted(folder_.Path(root)) + " --user demo " + more);
    }
    [[nodiscard]] std::string Statement(const std::string& name, const std::string& root = "root") const {
        return ReadFile(folder_.Path(root + "/Users/demo/Data/Bill/" + name));
    }
    [[nodiscard]] ImportedFile ImportBytes(const std::string& name, const std::string& bytes) const {
        CBillImport import({.root = folder_.Path("bytes"), .user = "demo", .units = UnitTableText()});
        return import.Import(folder_.Write(name, bytes));
    }

    CTempFolder folder_;
    std::string first_ = Xlsx(DayWorkbook(FirstDay()));
    std::string second_ = Xlsx(DayWorkbook(SecondDay()));
};

/// Written by office libraries: shared texts, numbers as numbers, merged titles.
TEST_F(WorkbookImport, ReadsTheSamplesAsTheirMadeTwins) {
    const std::string samples = std::string(TRADEBILL_SAMPLES) + "/field/workbook";
    const Answer answer = Import(Quoted(samples), "samples");
    EXPECT_EQ(answer.exit, 0) << answer.out << answer.err;
    EXPECT_NE(answer.out.find("nothing was found"), std::string::npos) << answer.out;
    folder_.Write("in/1.xlsx", first_);
    folder_.Write("in/2.xlsx", second_);
    EXPECT_EQ(Import(Quoted(folder_.Path("in")), "made").exit, 0);
    for (const char* const name : {kFirstName, kSecondName}) {
        EXPECT_FALSE(Statement(name, "samples").empty());
        EXPECT_EQ(Statement(name, "samples"), Statement(name, "made"));
    }
}

TEST_F(WorkbookImport, MakesTheSameStatementOfBothForms) {
    const ImportedFile newer = ImportBytes("a.xls", first_);  // the content counts, not the ending
    EXPECT_EQ(newer.text, "");
    EXPECT_EQ(newer.layout.name, "bilingual");
    EXPECT_EQ(newer.layout.format, 3);
    EXPECT_EQ(newer.encoding, "xlsx");
    EXPECT_EQ(newer.account, "90010009");
    EXPECT_EQ(newer.days, std::vector<std::string>{"20240102"});
    EXPECT_EQ(newer.outcome, ImportOutcome::Imported);
    const ImportedFile older = ImportBytes("b.txt", Xls(DayWorkbook(FirstDay())));
    EXPECT_EQ(older.encoding, "xls");
    EXPECT_EQ(older.outcome, ImportOutcome::Equal);
}

TEST_F(WorkbookImport, MakesStatementsInWhichACheckFindsNothing) {
    folder_.Write("in/z_2024-01-02.xlsx", first_);
    folder_.Write("in/a_2024-01-03.xls", Xls(DayWorkbook(SecondDay())));
    const Answer answer = Import(Quoted(folder_.Path("in")));
    EXPECT_EQ(answer.exit, 0) << answer.err;
    EXPECT_TRUE(Says(answer.out, "2 files: 2 imported\n\nnothing was found\n")) << answer.out;
    EXPECT_TRUE(
        Says(GbkToUtf8(Statement(kSecondName)), "|  20240103|  广期所|          碳酸锂|          lc2402| 20240102|"));
}

TEST_F(WorkbookImport, MakesTheSameTextsOneByOneAsAtOnceWhateverTheNames) {
    const std::string first = Quoted(folder_.Write("in/2.xlsx", first_));
    const std::string second = Quoted(folder_.Write("in/1.xlsx", second_));
    ASSERT_EQ(Import(second + " " + first, "once").exit, 0);
    ASSERT_EQ(Import(first).exit, 0);
    ASSERT_EQ(Import(second).exit, 0);
    EXPECT_FALSE(Statement(kSecondName).empty());
    EXPECT_EQ(Statement(kFirstName, "once"), Statement(kFirstName));
    EXPECT_EQ(Statement(kSecondName, "once"), Statement(kSecondName));
}

TEST_F(WorkbookImport, CompletesALaterDayByOneThatComesLateOnlyWithForce) {
    const std::string first = Quoted(folder_.Write("in/1.xlsx", first_));
    const std::string second = Quoted(folder_.Write("in/2.xlsx", second_));
    const Answer alone = Import(second);
    EXPECT_EQ(alone.exit, 0);
    EXPECT_TRUE(Says(alone.out, "warning opening")) << alone.out;
    EXPECT_TRUE(Says(alone.out, "The trade 00071551 that opened lc2402 stands in no imported statement.")) << alone.out;
    const std::string open = Statement(kSecondName);
    EXPECT_TRUE(Says(open, "|       --|"));
    EXPECT_EQ(Import(first).exit, 0);
    EXPECT_EQ(Import(second).exit, 3);
    EXPECT_EQ(Statement(kSecondName), open);
    EXPECT_EQ(Import(second, "root", "--force").exit, 0);
    EXPECT_NE(Statement(kSecondName), open);
}

/// Whichever of a text and a workbook it is; each finds what the other days opened.
TEST_F(WorkbookImport, TakesTheFirstByNameOfTwoContentsForADay) {
    const std::string text =
        Gbk("客户号 Client ID：  90010009\r\n日期 Date：20240102\r\n资金状况\r\n"
            "客户权益 Client Equity：：  1.00\r\n权利金支出 Premium paid：  0.00\r\n");
    folder_.Write("in/b.xlsx", first_);
    folder_.Write("in/d.xlsx", second_);
    folder_.Write("in/c.txt", text);
    Answer answer = Import(Quoted(folder_.Path("in")), "one");
    EXPECT_EQ(answer.exit, 3) << answer.out;
    EXPECT_NE(answer.out.find("its statement of 20240102 differs from that in"), std::string::npos) << answer.out;
    EXPECT_NE(Statement(kFirstName, "one"), text);
    EXPECT_EQ(answer.out.find("opening"), std::string::npos) << answer.out;
    fs::rename(folder_.Path("in/c.txt"), folder_.Path("in/a.txt"));
    answer = Import(Quoted(folder_.Path("in")), "other");
    EXPECT_EQ(answer.exit, 3) << answer.out;
    EXPECT_EQ(Statement(kFirstName, "other"), text);
    folder_.Write("in/b.xlsx", first_.substr(0, first_.size() / 2));  // which is no content
    fs::rename(folder_.Path("in/a.txt"), folder_.Path("in/c.txt"));
    EXPECT_EQ(Import(Quoted(folder_.Path("in")), "third").exit, 3);
    EXPECT_EQ(Statement(kFirstName, "third"), text);
}

TEST_F(WorkbookImport, TellsInADryRunWhatItWouldMake) {
    folder_.Write("in/1.xlsx", first_);
    folder_.Write("in/2.xlsx", second_);
    const Answer answer = Import(Quoted(folder_.Path("in")), "root", "--dry-run");
    EXPECT_TRUE(Says(answer.out, "2 files: 2 imported; a dry run, nothing was written")) << answer.out;
    EXPECT_FALSE(fs::exists(folder_.Path("root")));
}

TEST_F(WorkbookImport, TakesAccountAndDayFromTheNameWhereTheWorkbookHasNone) {
    MadeWorkbook workbook = DayWorkbook(FirstDay());
    workbook[0].Put(4, 0, "");
    workbook[0].Put(4, 5, "");
    const ImportedFile named = ImportBytes("7001_2024-01-02.xls", Xlsx(workbook));
    EXPECT_EQ(named.text, "");
    EXPECT_EQ(named.account, "7001");
    EXPECT_EQ(named.days, std::vector<std::string>{"20240102"});
    EXPECT_TRUE(Says(ImportBytes("a.xls", Xlsx(workbook)).text, "--account is needed"));
}

TEST_F(WorkbookImport, TellsWhatItLeavesAlone) {
    std::vector<ZipPart> parts = XlsxParts(DayWorkbook(FirstDay()));
    for (ZipPart& part : parts) {
        if (part.name == "xl/_rels/workbook.xml.rels") {
            part.bytes.insert(part.bytes.find("</"), RelationXml(99, "vbaProject", "vbaProject.bin"));
        }
    }
    EXPECT_EQ(ImportBytes("a.xlsm", ZipFile(parts)).text, "its macros are left alone");
    MadeDayBook made = FirstDay();
    made.trades[2][0] = "xy2405";
    made.day = "2024-01-05";
    EXPECT_EQ(ImportBytes("b.xlsx", Xlsx(DayWorkbook(made))).text, "exchange and product of xy2405 aren't known");
}

TEST_F(WorkbookImport, ReplacesACharacterThatGbkLacksInNamesOnly) {
    MadeWorkbook workbook = DayWorkbook(FirstDay());
    workbook[0].Put(5, 2, "\U0002000B示例");
    const ImportedFile named = ImportBytes("a.xlsx", Xlsx(workbook));
    EXPECT_EQ(named.outcome, ImportOutcome::Imported);
    EXPECT_TRUE(Says(named.text, "replaced by ?")) << named.text;
    MadeDayBook made = FirstDay();
    made.trades[0][0] = "lc\U0002000B";
    const ImportedFile figures = ImportBytes("b.xlsx", Xlsx(DayWorkbook(made)));
    EXPECT_EQ(figures.outcome, ImportOutcome::Refused);
    EXPECT_TRUE(Says(figures.text, "which GBK lacks")) << figures.text;
}

TEST_F(WorkbookImport, TellsEachBadFileInALineAndImportsTheOthers) {
    folder_.Write("in/a cut.xlsx", first_.substr(0, first_.size() / 2));
    folder_.Write("in/b cut.xls", Xls(DayWorkbook(FirstDay())).substr(0, 6000));
    folder_.Write("in/c good.xlsx", first_);
    folder_.Write("in/d other.zip", ZipFile({{.name = "a.txt", .bytes = "x"}}));
    fs::resize_file(folder_.Write("in/e large.xls", Xls(DayWorkbook(FirstDay()))), 200u << 20);
    const Answer answer = Import(Quoted(folder_.Path("in")), "root", "--json -");
    EXPECT_EQ(answer.exit, 3);
    std::vector<std::string> texts;
    const auto json = nlohmann::json::parse(answer.out);
    for (const auto& file : json["files"]) texts.push_back(file["text"]);
    EXPECT_EQ(texts, (std::vector<std::string>{
                         "it is a workbook that is damaged or cut off", "it is a workbook that is damaged or cut off",
                         "", "it is a zip file, and neither a text nor a workbook", "it is larger than 64 MB"}));
    EXPECT_FALSE(Statement(kFirstName).empty());
}

}  // namespace
}  // namespace tradebill::linux_workbook_import_test
