// Reports of files as users have them, by the program.
#include "cli/imported_report.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "platform/text_encoding.h"
#include "support/gbk_text.h"
#include "support/shell.h"
#include "support/temp_folder.h"

namespace tradebill::imported_report_test {
namespace {

namespace fs = std::filesystem;

std::string SampleRoot(const std::string& name) {
    return std::string(TRADEBILL_SAMPLES) + "/" + name + "/root";
}

/// A statement of an account without trades.
std::string Bill(const std::string& account, const std::string& day, const std::string& figure = "1.00") {
    return Statement({"   云山期货有限公司", "   交易结算单", "", "客户号: " + account + "   客户名称: 周虚构",
                      "日  期:" + day, "", "   资金状况", "--------------------",
                      "上日结存: " + figure + " 当日结存: " + figure, "出入金: 0.00 客户权益: " + figure,
                      "平仓盈亏: 0.00 保证金占用: 0.00", "持仓盯市盈亏: 0.00 可用资金: " + figure,
                      "手续费: 0.00 风险度: 0.00%", "--------------------"});
}

class ImportedReportTest : public testing::Test {
protected:
    [[nodiscard]] Answer Run(const std::string& arguments) const { return RunProgram(folder_, arguments); }
    [[nodiscard]] Answer Report(const std::string& files, const std::string& more = {}) const {
        return Run("report " + files + " --out " + Quoted(out_) + " " + more);
    }
    [[nodiscard]] std::string Downloads() const { return Quoted(folder_.Path("downloads")); }
    void Download(const std::string& name, const std::string& bytes) const {
        folder_.Write("downloads/" + name, bytes);
    }
    [[nodiscard]] bool HasPage() const { return fs::exists(out_ + "/TradeBill.html"); }

    CTempFolder folder_;
    std::string out_ = folder_.Path("made");
};

TEST_F(ImportedReportTest, IsTheReportOfTheSameStatementsInTheirPlaces) {
    for (const auto& entry : fs::directory_iterator(SampleRoot("client-bill-premium") + "/Users/demo/Data/Bill")) {
        if (entry.is_regular_file()) {
            Download(entry.path().stem().string() + ".dat", GbkToUtf8(ReadFile(entry.path().string())));
        }
    }
    const Answer answer = Report(Downloads());
    EXPECT_EQ(answer.exit, 0) << answer.err;
    fs::copy(SampleRoot("client-bill-premium"), folder_.Path("there"), fs::copy_options::recursive);
    fs::remove_all(folder_.Path("there/sys"));
    ASSERT_EQ(Run("report --root " + Quoted(folder_.Path("there")) + " --out " + Quoted(folder_.Path("other"))).exit,
              0);
    const std::string page = ReadFile(out_ + "/TradeBill.html");
    EXPECT_FALSE(page.empty());
    EXPECT_EQ(page, ReadFile(folder_.Path("other/TradeBill.html")));
}

TEST_F(ImportedReportTest, IsOfTheseFilesAloneHoweverManyCameBefore) {
    Download("1", Bill("9001", "20240102"));
    Download("2", Bill("9001", "20240103"));
    Download("3", Bill("9001", "20240104"));
    EXPECT_TRUE(Says(Report(Downloads()).out, "3 money"));
    fs::remove(folder_.Path("downloads/2"));
    Download("3", Bill("9001", "20240104", "2.00"));
    const Answer answer = Report(Downloads());
    EXPECT_EQ(answer.exit, 0) << answer.err;
    EXPECT_TRUE(Says(answer.out, "2 money")) << answer.out;
    EXPECT_TRUE(Says(answer.out, "closing equity    2.00")) << answer.out;
}

TEST_F(ImportedReportTest, IsMadeOfTheGoodFilesAndEndsWith3) {
    Download("good", Bill("9001", "20240102"));
    Download("bad", "rubbish");
    const Answer answer = Report(Downloads());
    EXPECT_EQ(answer.exit, 3);
    EXPECT_TRUE(Says(answer.err, "bad")) << answer.err;
    EXPECT_TRUE(Says(answer.out, "statements read   1")) << answer.out;
    EXPECT_TRUE(HasPage());
}

TEST_F(ImportedReportTest, IsNotMadeOfNothing) {
    Download("bad", "rubbish");
    EXPECT_EQ(Report(Downloads()).exit, 1);
    EXPECT_FALSE(HasPage());
    EXPECT_EQ(Report(Quoted(folder_.Path("missing"))).exit, 2);
    fs::create_directories(folder_.Path("hollow"));
    EXPECT_EQ(Report(Quoted(folder_.Path("hollow"))).exit, 1);
}

TEST_F(ImportedReportTest, IsOfOneAccountThatIsChosen) {
    Download("1", Bill("9001", "20240102"));
    Download("2", Bill("9002", "20240103", "5.00"));
    const Answer several = Report(Downloads());
    EXPECT_EQ(several.exit, 2);
    EXPECT_TRUE(Says(several.err, "expected one of --account 9001 --kind domestic, --account 9002 --kind domestic"))
        << several.err;
    EXPECT_FALSE(HasPage());
    const Answer one = Report(Downloads(), "--account 9002");
    EXPECT_EQ(one.exit, 0) << one.err;
    EXPECT_TRUE(Says(one.out, "closing equity    5.00")) << one.out;
    EXPECT_EQ(Report(Downloads(), "--account 9003").exit, 1);
}

TEST_F(ImportedReportTest, KeepsTheDaysThatAreAskedFor) {
    for (const char* const day : {"20240102", "20240103", "20240104"}) Download(day, Bill("9001", day));
    EXPECT_TRUE(Says(Report(Downloads(), "--from 2024-01-03").out, "Report from 2024-01-03 to 2024-01-04"));
    EXPECT_TRUE(Says(Report(Downloads(), "--to 2024-01-03").out, "Report from 2024-01-02 to 2024-01-03"));
}

TEST_F(ImportedReportTest, RecognisesTheForeignFamily) {
    for (const auto& entry : fs::directory_iterator(SampleRoot("foreign") + "/Users/demo/Data/Bill")) {
        if (entry.is_regular_file()) Download(entry.path().filename().string(), ReadFile(entry.path().string()));
    }
    const Answer answer = Report(Downloads());
    EXPECT_EQ(answer.exit, 0) << answer.err;
    EXPECT_TRUE(Says(answer.out, "currencies")) << answer.out;
}

TEST_F(ImportedReportTest, RefusesWhatContradictsARootOfItsOwn) {
    Download("1", Bill("9001", "20240102"));
    EXPECT_EQ(Run("report " + Downloads()).exit, 2);
    for (const std::string option : {"--root .", "--user demo", "--request request.ini"}) {
        const Answer answer = Report(Downloads(), option);
        EXPECT_EQ(answer.exit, 2) << option;
        EXPECT_TRUE(Says(answer.err, option.substr(0, option.find(' ')) + ": expected none")) << answer.err;
    }
    EXPECT_FALSE(fs::exists(out_));
}

TEST_F(ImportedReportTest, EndsWith1WhereNothingCanBeWritten) {
    Download("1", Bill("9001", "20240102"));
    folder_.Write("made/root", "in the place of the folder");
    const Answer answer = Report(Downloads());
    EXPECT_EQ(answer.exit, 1) << answer.err;
    EXPECT_FALSE(HasPage());
}

}  // namespace
}  // namespace tradebill::imported_report_test
