// A gathered page against one that is written operation by operation: whenever it is settled, and in the end, both
// files hold the same bytes.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "page/html_builder.h"
#include "page/page_fixture.h"
#include "page/row_block.h"

namespace tradebill::page_gathering_test {
namespace {

class PageGathering : public PageFixture {
protected:
    /// Adds a row of one cell to both pages.
    void AddRow(const std::string& cell) { AddRow(cell, gathered_, told_); }
    static void AddRow(const std::string& cell, CHtmlBuilder& gathered, CHtmlBuilder& told) {
        CRowBlock rows;
        const std::string opening = CellOpening("c");
        const OpenedCell cells[] = {{cell, opening}};
        rows.AddRow(cells, "band");
        gathered.AddRows(rows);
        told.AddText(rows.View());
    }
    template <class Operation>
    void Both(Operation operation) {
        operation(gathered_);
        operation(told_);
    }
    void Close() {
        Both([](CHtmlBuilder& page) { page.ClosePage(); });
    }
    void Add(const std::string& text) {
        Both([&text](CHtmlBuilder& page) { page.AddText(text); });
    }
    [[nodiscard]] bool IsAsTold() const { return Bytes() == ReadFile(toldPath_); }
    void SettleAndCompare() {
        gathered_.Settle();
        ASSERT_TRUE(IsAsTold()) << Bytes().substr(0, 2000) << "\n\nTOLD:\n" << ReadFile(toldPath_).substr(0, 2000);
    }

    std::string toldPath_ = folder_.Path("told.html");
    CHtmlBuilder told_{toldPath_};
    CHtmlBuilder gathered_{path_};
};

TEST_F(PageGathering, IsAsToldBeforeAnythingIsAdded) {
    const CPageGathering gathering(gathered_);
    SettleAndCompare();
}

TEST_F(PageGathering, OfOnePageIsWrittenWhenItEnds) {
    {
        const CPageGathering gathering(gathered_);
        Both([](CHtmlBuilder& page) { page.AddStyle({.className = "s"}); });
        Add("<script>\r\n</script>\r\n");
        Close();
        Add("<a name = a></a>\r\n");
        for (int i = 0; i < 3000; ++i) AddRow(std::to_string(i));
        Close();
        EXPECT_FALSE(IsAsTold());
    }
    EXPECT_TRUE(IsAsTold());
    EXPECT_FALSE(gathered_.HasFailed());
}

TEST_F(PageGathering, KeepsToTheFullPassOfStylesThatItShortens) {
    const std::string longName(200, 'a');  // more than the closing adds
    {
        const CPageGathering gathering(gathered_);
        Both([&](CHtmlBuilder& page) { page.AddStyle({.className = longName + "<html>"}); });
        Close();
    }
    EXPECT_TRUE(IsAsTold());
}

TEST_F(PageGathering, TakesStylesThatAClosingChanges) {
    const CPageGathering gathering(gathered_);
    Both([](CHtmlBuilder& page) { page.AddStyle({.className = "a\nb"}); });
    Close();
    SettleAndCompare();
    EXPECT_NE(Bytes().find(".a\r\nb"), std::string::npos);
}

TEST_F(PageGathering, EndsWithTheOutermostOne) {
    const auto outer = std::make_unique<CPageGathering>(gathered_);
    {
        const CPageGathering inner(gathered_);
        Add("text");
    }
    EXPECT_FALSE(IsAsTold());
    SettleAndCompare();
}

TEST_F(PageGathering, IsWrittenWhenAnErrorLeavesIt) {
    Close();
    try {
        const CPageGathering gathering(gathered_);
        for (int i = 0; i < 3000; ++i) AddRow(std::to_string(i));
        throw std::runtime_error("left");
    } catch (const std::runtime_error&) {
        EXPECT_TRUE(IsAsTold());
    }
}

TEST_F(PageGathering, SettlesAnAdditionBehindTheEndOfTheClosedPage) {
    const CPageGathering gathering(gathered_);
    Close();
    for (const int rows : {1, 100, 3000}) {  // kept, and streamed in part
        for (int i = 0; i < rows; ++i) AddRow(std::to_string(i));
        SettleAndCompare();
        AddRow("behind");
        SettleAndCompare();
        Close();
        SettleAndCompare();
    }
}

TEST_F(PageGathering, SettlesAnAdditionThatIsStreamedInFull) {
    const CPageGathering gathering(gathered_);
    Close();
    const std::string line(100000, 'x');
    Add(line + "\r\n");
    SettleAndCompare();
    Close();
    Add(line);
    Close();
    SettleAndCompare();
}

TEST_F(PageGathering, KeepsToTheFullPassOfTextsThatItChanges) {
    for (const char* const cell : {"</html>", "<html>", "<body>", "</body>", "</head>", "a\nb", "<b>", "<", "a\r\nb"}) {
        const CPageGathering gathering(gathered_);
        AddRow("before");
        Close();
        AddRow(cell);
        AddRow("behind");
        Close();
        AddRow("and behind that");
        Close();
        SettleAndCompare();
    }
}

// Half a line end stands before rows, and what looks like its other half behind them.
TEST_F(PageGathering, LooksAtTextsBehindRowsAsBehindTheirLineEnd) {
    const CPageGathering gathering(gathered_);
    Close();
    Add("a\r");
    AddRow("1");
    Add("\nb");
    Close();
    AddRow("2");
    Close();
    SettleAndCompare();
}

TEST_F(PageGathering, LeavesLongPagesWithoutAClosingAsTheyAre) {
    const CPageGathering gathering(gathered_);
    for (int i = 0; i < 20; ++i) {
        Add(std::string(100000, 'x') + "\r\n");
        if (i % 7 == 0) SettleAndCompare();
    }
    Close();
    SettleAndCompare();
}

TEST_F(PageGathering, TakesStylesAtAnyTime) {
    const CPageGathering gathering(gathered_);
    for (int i = 0; i < 4; ++i) {
        Both([](CHtmlBuilder& page) { page.AddStyle({.className = "s"}); });
        if (i == 2) SettleAndCompare();
        Add("text");
        Close();
    }
    SettleAndCompare();
}

TEST_F(PageGathering, SeesThatSomebodyElseAddedToTheSettledPage) {
    const CPageGathering gathering(gathered_);
    Close();
    SettleAndCompare();
    for (const std::string& path : {path_, toldPath_}) std::ofstream(path, std::ios::app | std::ios::binary) << "more";
    AddRow("1");
    Close();
    SettleAndCompare();
}

// A system that keeps a file while it is open lets nobody take it away or replace it: the page is then as ever.
TEST_F(PageGathering, FailsIfTheFileIsTakenAway) {
    Close();
    bool isTaken = false;
    {
        const CPageGathering gathering(gathered_);
        for (int i = 0; i < 3000; ++i) AddRow(std::to_string(i));
        std::error_code error;
        isTaken = std::filesystem::remove(path_, error);
    }
    EXPECT_EQ(gathered_.HasFailed(), isTaken);
    EXPECT_EQ(std::filesystem::exists(path_), !isTaken);  // never made anew
}

TEST_F(PageGathering, LeavesAPageToItsOldWayThatSomebodyElseHasAddedTo) {
    Close();
    for (const std::string& path : {path_, toldPath_}) std::ofstream(path, std::ios::app | std::ios::binary) << "more";
    const CPageGathering gathering(gathered_);
    AddRow("1");
    Close();
    SettleAndCompare();
    EXPECT_NE(Bytes().find("more"), std::string::npos);
}

TEST_F(PageGathering, FailsIfTheFileIsReplaced) {
    Close();
    bool isReplaced = false;
    {
        const CPageGathering gathering(gathered_);
        for (int i = 0; i < 3000; ++i) AddRow(std::to_string(i));
        std::error_code error;
        std::filesystem::rename(toldPath_, path_, error);
        isReplaced = !error;
    }
    EXPECT_EQ(gathered_.HasFailed(), isReplaced);
}

/// Texts that a closing keeps or changes, alone or with what stands beside them.
const std::vector<std::string> kTexts = {"",         "x",       "\r\n",        "\n",       "\r",
                                         "line\r\n", "<html>",  "</html>",     "<ht",      "ml>",
                                         "</he",     "ad>\r\n", "</body>\r\n", "q\r\r\nz", "<tr>\r\n"};

TEST_F(PageGathering, IsAsToldAfterAnyOperations) {
    for (unsigned seed = 0; seed < 60 && !HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        const bool isOdd = seed % 2 == 1;  // with texts that a closing changes
        CHtmlBuilder told(toldPath_);
        CHtmlBuilder gathered(path_);
        const CPageGathering gathering(gathered);
        for (int step = 0; step < 40 && !HasFailure(); ++step) {
            const std::string text = kTexts[random() % (isOdd ? kTexts.size() : 2)];
            const std::string big = random() % 12 == 0 ? std::string(random() % 70000, 'b') + "\r\n" : "";
            const auto operation = random() % 11;
            for (CHtmlBuilder* const page : {&told, &gathered}) {
                if (operation < 3) page->ClosePage();
                if (operation == 3) page->AddStyle({.className = "s"});
                if (operation > 3 && operation < 10) page->AddText(big + text);
                if (operation == 9) page->Settle();
            }
            if (operation == 10) AddRow(text, gathered, told);
            if (operation == 9) {
                ASSERT_TRUE(IsAsTold()) << step;
            }
        }
        gathered.Settle();
        ASSERT_TRUE(IsAsTold());
    }
}

}  // namespace
}  // namespace tradebill::page_gathering_test
