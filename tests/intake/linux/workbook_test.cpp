// Workbooks as cells: both forms alike, and what no program should have written.
#include "intake/workbook.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "base/day_number.h"
#include "support/made_workbook.h"
#include "support/zip_file.h"

namespace tradebill::linux_workbook_test {
namespace {

constexpr std::string_view kDamaged = "it is a workbook that is damaged or cut off";

/// "A1=text", and "A1:number" of numbers.
std::vector<std::string> CellsOf(const WorkbookSheet& sheet) {
    std::vector<std::string> cells;
    for (const WorkbookCell& cell : sheet.cells) {
        cells.push_back(CellName(cell.place) + (cell.isNumber ? ":" : "=") + std::string(cell.text));
    }
    return cells;
}

MadeWorkbook Simple() {
    MadeWorkbook workbook{{.name = "成交明细"}, {.name = "b<&>"}};
    MadeSheet& first = workbook.front();
    first.Put(10, 1, "最后", MadeKind::Text);
    first.Put(0, 0, "合约");
    first.Put(0, 27, " 0012 ");
    first.Put(2, 1, "1.5", MadeKind::Number);
    first.Put(1, 2, "45293", MadeKind::Number);
    first.Put(1, 1, "-0.07", MadeKind::Number);
    first.Put(3, 0, "3214.25", MadeKind::Formula);
    workbook.back().Put(0, 0, "x");
    return workbook;
}

const std::vector<std::string> kSimpleCells = {"A1=合约", "AB1= 0012 ", "B2:-0.07", "C2:45293",
                                               "B3:1.5",  "A4:3214.25", "B11=最后"};

class BothForms : public testing::TestWithParam<std::string> {
protected:
    [[nodiscard]] static std::string Made(const MadeWorkbook& workbook) {
        return GetParam() == "xls" ? Xls(workbook) : Xlsx(workbook);
    }
};

TEST_P(BothForms, GiveTheirCellsInOrderWhateverTheOrderInTheFile) {
    const std::string bytes = Made(Simple());
    ASSERT_TRUE(BeginsLikeWorkbook(bytes));
    const Workbook workbook = ReadWorkbook(bytes);
    EXPECT_EQ(workbook.refusal, "");
    EXPECT_EQ(workbook.form, GetParam());
    EXPECT_FALSE(workbook.hasMacros);
    ASSERT_EQ(workbook.sheets.size(), 2u);
    EXPECT_EQ(workbook.sheets[0].name, "成交明细");
    EXPECT_EQ(CellsOf(workbook.sheets[0]), kSimpleCells);
    EXPECT_EQ(workbook.sheets[1].name, "b<&>");
    EXPECT_EQ(NumberedDay(workbook.dayOfZero + 45293), "20240102");
}

TEST_P(BothForms, AreRefusedForAFormulaWithoutItsValue) {
    MadeWorkbook made = Simple();
    made[1].Put(4, 2, "0", MadeKind::OpenFormula);
    const Workbook workbook = ReadWorkbook(Made(made));
    EXPECT_EQ(workbook.refusal,
              "the formula in C5 of b<&> has no value beside it: open it in an office program and save it anew");
    EXPECT_TRUE(workbook.sheets.empty());
}

TEST_P(BothForms, AreRefusedWhereTheyAreCutAnywhere) {
    const std::string whole = Made(Simple());
    for (const std::size_t parts : {2u, 3u, 7u, 10u}) {
        const std::string cut = whole.substr(0, whole.size() * (parts - 1) / parts);
        EXPECT_EQ(ReadWorkbook(cut).refusal, kDamaged) << parts;
    }
    EXPECT_EQ(ReadWorkbook(whole.substr(0, 8)).refusal, kDamaged);
}

TEST_P(BothForms, HaveAtMostAMillionCellsAndAreReadToThere) {
    MadeWorkbook wide{{.name = "wide"}};
    for (std::size_t column = 0; column < 200; ++column) wide[0].Put(column, column, "x");
    EXPECT_EQ(ReadWorkbook(Made(wide)).sheets.at(0).cells.size(), 200u);
}

INSTANTIATE_TEST_SUITE_P(Workbook, BothForms, testing::Values("xls", "xlsx"));

TEST(Cells, AreNamedAsOfficeProgramsNameThem) {
    EXPECT_EQ(CellName({0, 0}), "A1");
    EXPECT_EQ(CellName({6, 25}), "Z7");
    EXPECT_EQ(CellName({9, 26}), "AA10");
    EXPECT_EQ(CellName({0, 16383}), "XFD1");
}

TEST(WorkbookFiller, TakesAMillionCellsAndNoMore) {
    Workbook workbook;
    CWorkbookFiller filler(workbook);
    filler.BeginSheet("a");
    for (std::size_t i = 0; i < CWorkbookFiller::kMostCells; ++i)
        filler.AddText({static_cast<std::uint32_t>(i), 0}, "x");
    EXPECT_FALSE(filler.IsTooLarge());
    filler.AddText({0, 1}, "x");
    EXPECT_TRUE(filler.IsTooLarge());
    EXPECT_EQ(workbook.refusal, "it has more than 1000000 cells");
}

TEST(WorkbookFiller, CutsTextsThatNoColumnHas) {
    Workbook workbook;
    CWorkbookFiller filler(workbook);
    filler.BeginSheet("a");
    const std::string text(CWorkbookFiller::kLongestText + 1, 'x');
    filler.AddText({0, 0}, std::string_view(text).substr(1));
    filler.AddText({0, 1}, text);
    filler.AddText({0, 2}, " \t ");
    ASSERT_EQ(workbook.sheets[0].cells.size(), 2u);
    EXPECT_EQ(workbook.sheets[0].cells[0].text.size(), CWorkbookFiller::kLongestText);
    EXPECT_EQ(workbook.sheets[0].cells[1].text.size(), CWorkbookFiller::kLongestText);
}

TEST(WorkbookFiller, HasAtMost256Sheets) {
    Workbook workbook;
    CWorkbookFiller filler(workbook);
    for (std::size_t i = 0; i < CWorkbookFiller::kMostSheets; ++i) filler.BeginSheet("a");
    EXPECT_FALSE(filler.IsTooLarge());
    filler.BeginSheet("a");
    EXPECT_EQ(workbook.refusal, "it has more than 256 sheets");
}

TEST(WorkbookFiller, TakesTheLaterOfTwoCellsInOnePlace) {
    Workbook workbook;
    CWorkbookFiller filler(workbook);
    filler.BeginSheet("a");
    filler.AddText({0, 0}, "first");
    filler.AddText({0, 1}, "other");
    filler.AddNumber({0, 0}, 2);
    filler.End();
    EXPECT_EQ(CellsOf(workbook.sheets[0]), (std::vector<std::string>{"A1:2", "B1=other"}));
}

class XlsxWorkbook : public testing::Test {
protected:
    std::vector<ZipPart> parts_ = XlsxParts(Simple());

    ZipPart& Part(const std::string& name) { return *std::ranges::find(parts_, name, &ZipPart::name); }
    void SetSheet(const std::string& rows) {
        Part("xl/worksheets/sheet1.xml").bytes = "<worksheet><sheetData>" + rows + "</sheetData></worksheet>";
    }
    [[nodiscard]] Workbook Read() const { return ReadWorkbook(ZipFile(parts_)); }
};

TEST_F(XlsxWorkbook, ReadsTextsThatCellsShareInAllTheirPieces) {
    parts_.push_back({.name = "xl/sharedStrings.xml",
                      .bytes = "<sst><si><t>买</t></si><si><r><t>开</t></r><r><rPr/><t xml:space=\"preserve\"> 仓 "
                               "</t></r><rPh><t>no</t></rPh></si></sst>"});
    std::string& relations = Part("xl/_rels/workbook.xml.rels").bytes;
    relations.insert(relations.find("</"), RelationXml(9, "sharedStrings", "/xl/sharedStrings.xml"));
    SetSheet(
        "<row><c t=\"s\"><v>1</v></c><c t=\"s\"><v> 0 </v></c><c/><c t=\"str\"><f>x</f><v>f</v></c>"
        "<c t=\"b\"><v>1</v></c></row><row><c><v>7</v></c></row>");
    EXPECT_EQ(CellsOf(Read().sheets.at(0)), (std::vector<std::string>{"A1=开 仓 ", "B1=买", "D1=f", "E1:1", "A2:7"}));
    SetSheet("<row><c t=\"s\"><v>2</v></c></row>");
    EXPECT_EQ(Read().refusal, kDamaged);
}

TEST_F(XlsxWorkbook, ReadsElementsWithAPrefix) {
    Part("xl/worksheets/sheet1.xml").bytes =
        "<x:worksheet><x:sheetData><x:row r=\"3\"><x:c r=\"B3\" t=\"inlineStr\"><x:is><x:t>a&amp;b</x:t></x:is></x:c>"
        "</x:row></x:sheetData></x:worksheet>";
    EXPECT_EQ(CellsOf(Read().sheets.at(0)), std::vector<std::string>{"B3=a&b"});
}

TEST_F(XlsxWorkbook, ReadsHiddenAndMergedCells) {
    std::string& book = Part("xl/workbook.xml").bytes;
    book.replace(book.find("<sheet "), 7, "<sheet state=\"veryHidden\" ");
    Part("xl/worksheets/sheet1.xml").bytes =
        "<worksheet><cols><col min=\"1\" max=\"1\" hidden=\"1\"/></cols><sheetData><row r=\"2\" hidden=\"1\">"
        "<c r=\"A2\"><v>1</v></c><c r=\"B2\"/></row></sheetData><mergeCells><mergeCell ref=\"A2:B2\"/></mergeCells>"
        "</worksheet>";
    EXPECT_EQ(CellsOf(Read().sheets.at(0)), std::vector<std::string>{"A2:1"});
}

TEST_F(XlsxWorkbook, CountsDaysFrom1904WhereItSaysSo) {
    std::string& book = Part("xl/workbook.xml").bytes;
    book.replace(book.find("<workbookPr/>"), 13, "<workbookPr date1904=\"1\"/>");
    EXPECT_EQ(NumberedDay(Read().dayOfZero + 43831), "20240102");  // 1462 days less than from 1900
}

TEST_F(XlsxWorkbook, TellsMacrosAndLeavesThemAlone) {
    std::string& relations = Part("xl/_rels/workbook.xml.rels").bytes;
    relations.insert(relations.find("</"), RelationXml(9, "vbaProject", "vbaProject.bin"));
    const Workbook workbook = Read();
    EXPECT_EQ(workbook.refusal, "");
    EXPECT_TRUE(workbook.hasMacros);
}

TEST_F(XlsxWorkbook, IsRefusedIfItIsEncrypted) {
    parts_[0].flags = 1;
    EXPECT_EQ(Read().refusal, "it is encrypted: save it without a password");
}

TEST_F(XlsxWorkbook, IsRefusedIfItIsNoWorkbook) {
    EXPECT_EQ(ReadWorkbook(ZipFile({{.name = "a.txt", .bytes = "x"}})).refusal,
              "it is a zip file, and neither a text nor a workbook");
}

TEST_F(XlsxWorkbook, IsRefusedForABombThatSaysItIsOne) {
    parts_.push_back({.name = "bomb", .bytes = "x", .toldSize = (256u << 20) + 1});
    EXPECT_EQ(Read().refusal, "it unpacks to more than 256 MB");
}

TEST_F(XlsxWorkbook, IsRefusedForABombThatHidesItsSize) {
    ZipPart& sheet = Part("xl/worksheets/sheet1.xml");
    sheet.bytes = "<worksheet>" + std::string((256u << 20) + 1, ' ');
    sheet.toldSize = 1000;
    EXPECT_FALSE(Read().refusal.empty());
}

TEST_F(XlsxWorkbook, IsRefusedForXmlThatIsNone) {
    for (const char* const rows : {"<row><c", "<row><c r=\"7\"><v>1</v></c></row>", "<row r=\"1\"><c></row>",
                                   "<row><c r=\"XFE1\"><v>1</v></c></row>", "<row><c r=\"A1048577\"><v>1</v></c></row>",
                                   "<row><c><v>x</v></c></row>"}) {
        SetSheet(rows);
        EXPECT_EQ(Read().refusal, kDamaged) << rows;
    }
    Part("xl/workbook.xml").bytes = "<workbook";
    EXPECT_EQ(Read().refusal, kDamaged);
}

TEST(XlsWorkbook, SpansAtMostFourMillionCells) {
    MadeWorkbook made{{.name = "a"}, {.name = "b"}};
    made[0].Put(49'999, 39, "x");
    made[1].Put(49'999, 39, "x");
    EXPECT_EQ(ReadWorkbook(Xls(made)).sheets.size(), 2u);
    made[1].Put(50'000, 0, "x");
    EXPECT_EQ(ReadWorkbook(Xls(made)).refusal, "its sheets span more than 4000000 cells");
}

std::string Replaced(std::string text, std::string_view from, std::string_view to) {
    const std::size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos);
    return text.replace(at, from.size(), to);
}

TEST(XlsWorkbook, IsRefusedForAPasswordAndForAnOlderVersion) {
    using namespace std::string_view_literals;
    const std::string made = Xls(Simple());
    // The record that says who wrote it, as one that says how it is encrypted.
    EXPECT_EQ(ReadWorkbook(Replaced(made, "\x5C\0\x70\0"sv, "\x2F\0\x70\0"sv)).refusal,
              "it is encrypted: save it without a password");
    EXPECT_EQ(ReadWorkbook(Replaced(made, "\x09\x08\x10\0\0\x06"sv, "\x09\x08\x10\0\0\x05"sv)).refusal,
              "it is a workbook of a form older than that of 1997: save it anew");
}

TEST(XlsWorkbook, IsRefusedIfItIsAnotherDocument) {
    std::string other = Xls(Simple());
    const std::string name{"W\0o\0r\0k\0b\0o\0o\0k\0", 16};
    other.replace(other.find(name), 2, std::string("V\0", 2));
    EXPECT_EQ(ReadWorkbook(other).refusal, "it is a document of Office, and no workbook");
    other.replace(other.find(name.substr(2)) - 2, name.size() + 16,
                  std::string("E\0n\0c\0r\0y\0p\0t\0e\0d\0P\0a\0c\0k\0a\0g\0e\0", 32));
    other[other.find(std::string("E\0n\0c\0", 6)) + 64] = 34;
    EXPECT_EQ(ReadWorkbook(other).refusal, "it is encrypted: save it without a password");
}

}  // namespace
}  // namespace tradebill::linux_workbook_test
