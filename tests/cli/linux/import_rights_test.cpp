// Imports from and to places that the user has no rights to, and what is there instead of files.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "cli/awaited_work.h"
#include "cli/import_command.h"
#include "cli/import_files.h"
#include "findings/finding.h"
#include "intake/bill_import.h"
#include "requests/carried_templates.h"
#include "requests/input_file.h"
#include "requests/layout_readings.h"
#include "support/bound_user.h"
#include "support/day_workbook.h"
#include "support/gbk_text.h"
#include "support/made_workbook.h"
#include "support/temp_folder.h"

namespace tradebill::linux_import_rights_test {
namespace {

namespace fs = std::filesystem;

const std::string& Bill() {
    static const std::string bill = Statement({"客户号: 9001 日期: 20240102", "资金状况", "上日结存: 1.00"});
    return bill;
}

class ImportRights : public testing::Test {
protected:
    ~ImportRights() override { fs::permissions(folder_.Path("in"), fs::perms::owner_all); }

    [[nodiscard]] static ImportedFile ImportBound(CBillImport& import, const std::string& file) {
        const CBoundUser user;
        EXPECT_TRUE(user.IsBound());
        return import.Import(file);
    }

    CTempFolder folder_;
    std::string file_ = folder_.Write("in/1.txt", Bill());
};

TEST_F(ImportRights, OfAFolderAreNeededToFindItsFiles) {
    fs::permissions(folder_.Path("in"), fs::perms::none);
    FoundFiles found;
    {
        const CBoundUser user;
        ASSERT_TRUE(user.IsBound());
        found = FindFiles({folder_.Path("in")});
    }
    EXPECT_TRUE(found.files.empty());
    ASSERT_EQ(found.unread.size(), 1u);
    EXPECT_EQ(found.unread.front().path, folder_.Path("in"));
    EXPECT_EQ(found.unread.front().reason, "Permission denied");
}

TEST_F(ImportRights, OfAFileAreNeededToReadIt) {
    fs::permissions(file_, fs::perms::none);
    CBillImport import({.root = folder_.Path("root"), .user = "demo"});
    ImportedFile result = ImportBound(import, file_);
    EXPECT_EQ(result.text, "it can't be read: Permission denied");
    EXPECT_FALSE(result.isUnwritten);
}

TEST_F(ImportRights, OfTheTargetAreNeededToWriteIt) {
    fs::create_directories(folder_.Path("root"));
    fs::permissions(folder_.Path("root"), fs::perms::owner_all | fs::perms::group_exec | fs::perms::others_exec);
    CBillImport import({.root = folder_.Path("root"), .user = "demo"});
    ImportedFile result = ImportBound(import, file_);
    EXPECT_TRUE(result.isUnwritten);
    EXPECT_TRUE(result.text.starts_with("can't write " + folder_.Path("root/Users/demo/Data/Bill"))) << result.text;
}

TEST_F(ImportRights, OfWhatIsThereAreNeededToCompareIt) {
    const std::string target = folder_.Write("root/Users/demo/Data/Bill/D9001.20240102o.txt", "other");
    fs::permissions(target, fs::perms::none);
    CBillImport import({.root = folder_.Path("root"), .user = "demo"});
    ImportedFile result = ImportBound(import, file_);
    EXPECT_TRUE(result.isUnwritten);
    EXPECT_EQ(result.text, "can't read what is at " + target + ": Permission denied");
}

/// A statement that can't be read may hold the trade that opened what a workbook closes.
TEST_F(ImportRights, OfOtherDaysAreNeededToKnowWhatTheyOpened) {
    const std::string other = folder_.Write("root/Users/demo/Data/Bill/D90010009.20240102o.txt", "other");
    const std::string workbook = folder_.Write("in/2.xlsx", Xlsx(DayWorkbook(SecondDay())));
    fs::permissions(other, fs::perms::none);
    CBillImport import({.root = folder_.Path("root"), .user = "demo"});
    ImportedFile result = ImportBound(import, workbook);
    EXPECT_TRUE(result.isUnwritten);
    EXPECT_EQ(result.text, "can't read what is at " + other + ": Permission denied");
    EXPECT_FALSE(fs::exists(folder_.Path("root/Users/demo/Data/Bill/D90010009.20240103o.txt")));
    result = import.Import(workbook);  // once it can be read
    EXPECT_EQ(result.text, "");
    EXPECT_EQ(std::ranges::count(result.findings, FindingCode::Opening, &Finding::code), 4)
        << "two closed rows and two positions without an opening";
}

/// A text says itself what it holds.
TEST_F(ImportRights, OfOtherDaysAreNoMatterToTexts) {
    const std::string other = folder_.Write("root/Users/demo/Data/Bill/D9001.20240101o.txt", "other");
    const std::string next = folder_.Write("in/2.txt", Statement({"客户号: 9001 日期: 20240103", "资金状况"}));
    fs::permissions(other, fs::perms::none);
    CBillImport import({.root = folder_.Path("root"), .user = "demo", .isDryRun = true});
    EXPECT_EQ(ImportBound(import, file_).text, "");
    EXPECT_EQ(ImportBound(import, next).text, "");
}

TEST_F(ImportRights, OfATemplateAreNeededToDoWithoutIt) {
    const std::string sample = ReadFile(std::string(TRADEBILL_SAMPLES) + "/field/units/D103988.20260529o.txt");
    const std::string path = folder_.Write("root/BillTemplate/units.ini", "[DEALFIELD]\n");
    const std::string root = folder_.Path("root");
    EXPECT_FALSE(ReadByFittingTemplate(root, sample, "20260529")) << "it wins, and reads nothing";
    fs::permissions(path, fs::perms::none);
    const CBoundUser user;
    ASSERT_TRUE(user.IsBound());
    EXPECT_THROW((void)ReadByFittingTemplate(root, sample, "20260529"), CUnreadableInput);
    EXPECT_THROW((void)FormatOfTemplate(path, {}), CUnreadableInput);
}

TEST_F(ImportRights, AreNoMatterWhereNoFileIs) {
    ASSERT_EQ(::mkfifo(folder_.Path("in/2.pipe").c_str(), 0600), 0);
    fs::create_symlink(folder_.Path("none"), folder_.Path("in/3.link"));
    fs::create_symlink(file_, folder_.Path("in/4.link"));
    const FoundFiles found = FindFiles({folder_.Path("in")});
    ASSERT_EQ(found.files.size(), 4u);
    CBillImport import({.root = folder_.Path("root"), .user = "demo"});
    CAwaitedWork work(true);
    std::vector<std::string> texts;
    for (const ImportedFile& file : ImportAll(found, import, work)) texts.push_back(file.text);
    EXPECT_EQ(texts, (std::vector<std::string>{"", "it is no file", "it isn't there", ""}));
}

}  // namespace
}  // namespace tradebill::linux_import_rights_test
