// Which statement of a range shows the format of a report.
#include <gtest/gtest.h>

#include <filesystem>
#include <initializer_list>
#include <string>
#include <string_view>

#include "cli/cli_fixture.h"
#include "platform/local_time.h"
#include "report/request_copy.h"
#include "requests/format_choice.h"

namespace tradebill::format_pick_test {
namespace {

class FormatPick : public CliFixture {
protected:
    FormatPick() {
        options_.format = "auto";
        options_.to = "2024-01-05";
    }
    void Put(const std::string& name, std::initializer_list<std::string_view> lines) const {
        root_.Write("Users/demo/Data/Bill/D90010002." + name + ".txt", Statement(lines));
    }
    [[nodiscard]] std::string Refusal() const {
        return UsageErrorOf([&] { static_cast<void>(PrepareRequest(options_)); });
    }
};

TEST_F(FormatPick, FitsEverySample) {
    const struct {
        const char* sample;
        const char* account;
        std::int32_t format;
        const char* layout;
    } samples[] = {
        {"fund-class", "90010001", 0, "fund-class"},
        {"fund-status", "90010002", 1, "fund-status"},
        {"fund-status-premium", "90010003", 1, "fund-status-premium"},
        {"tabulated", "90010004", 3, "tabulated"},
        {"client-bill", "90010005", 2, "client-bill"},
        {"client-bill-premium", "90010006", 201, "client-bill-premium"},
        {"spaced-title", "90010007", 6, "spaced-title"},
        {"spaced-title-premium", "90010008", 6, "spaced-title-premium"},
        {"bilingual", "90010009", 3, "bilingual"},
        {"bilingual-new", "90010010", 3, "bilingual"},
    };
    for (const auto& sample : samples) {
        options_.root = std::string(TRADEBILL_SAMPLES) + "/" + sample.sample + "/root";
        options_.account = sample.account;
        options_.from = "2023-12-30";  // days without statements come first
        const PreparedRequest prepared = PrepareRequest(options_);
        EXPECT_EQ(prepared.request.StatementFormat, sample.format) << sample.sample;
        ASSERT_EQ(prepared.notes.size(), 1U);
        EXPECT_NE(prepared.notes[0].find("(" + std::string(sample.layout) + ")"), std::string::npos)
            << prepared.notes[0];
        EXPECT_NE(prepared.notes[0].find(".20240102o.txt"), std::string::npos) << prepared.notes[0];
    }
}

TEST_F(FormatPick, ReadsTheSamplesOfOtherDaysAlike) {
    for (const char* const day : {"2024-01-10", "2024-01-19", "2024-02-05"}) {
        options_.root = std::string(TRADEBILL_SAMPLES) + "/bilingual-new/root";
        options_.account = "90010010";
        options_.from = day;
        options_.to = day;
        EXPECT_EQ(PrepareRequest(options_).request.StatementFormat, 3) << day;
    }
}

TEST_F(FormatPick, RefusesAFirstStatementWithoutMarksThoughALaterOneHasThem) {
    Put("20240102o", {"别的"});
    Put("20240103o", {"资金类别"});
    EXPECT_NE(Refusal().find("D90010002.20240102o.txt"), std::string::npos) << Refusal();
    EXPECT_TRUE(IsClearLine(Refusal(), "--format auto")) << Refusal();
}

TEST_F(FormatPick, RefusesAnAmbiguousFirstStatementThoughALaterOneTells) {
    Put("20240102o", {"客户帐单_资金清单", "a", "b", "c", "1 0 0 0 0 100.00 60.00 9% 50.00"});
    Put("20240103o", {"客户帐单_资金清单", "a", "b", "c", "1 0 0 0 0 100.00 60.00 9% 40.00"});
    EXPECT_NE(Refusal().find("expected one of 2 (client-bill), 201 (client-bill)"), std::string::npos) << Refusal();
    options_.from = "2024-01-03";
    EXPECT_EQ(PrepareRequest(options_).request.StatementFormat, 2);
}

TEST_F(FormatPick, NamesAllOfSeveralMarks) {
    Put("20240102o", {"资金类别", "成 交 记 录 单"});
    EXPECT_NE(Refusal().find("0 (fund-class), 6 (spaced-title)"), std::string::npos) << Refusal();
}

TEST_F(FormatPick, TakesTheLastDayOfTheRangeAndNoneBehindIt) {
    Put("20240106o", {"资金类别"});
    EXPECT_NE(Refusal().find("no statement was found in the whole range"), std::string::npos) << Refusal();
    Put("20240105o", {"资金类别"});
    EXPECT_EQ(PrepareRequest(options_).request.StatementFormat, 0);
    EXPECT_NE(PrepareRequest(options_).notes.at(0).find("20240105o"), std::string::npos);
}

TEST_F(FormatPick, TakesTodaysStatementUnderEitherName) {
    options_.from = options_.to = "today";
    options_.today = "2024-2-1";
    EXPECT_NE(Refusal().find("no statement was found"), std::string::npos) << Refusal();
    Put("20240201", {"资金状况"});
    EXPECT_EQ(PrepareRequest(options_).request.StatementFormat, 1);
    Put("20240201o", {"资金类别"});
    EXPECT_EQ(PrepareRequest(options_).request.StatementFormat, 0) << "the finished one is the day's";
}

TEST_F(FormatPick, TakesTheStatementsOfThisAccountAlone) {
    root_.Write("Users/demo/Data/Bill/D90010003.20240102o.txt", Statement({"资金状况"}));
    root_.Write("Users/other/Data/Bill/D90010002.20240102o.txt", Statement({"资金状况"}));
    Put("20240103o", {"资金类别"});
    EXPECT_EQ(PrepareRequest(options_).request.StatementFormat, 0);
}

TEST_F(FormatPick, PassesOverNothingButWhatIsntAFile) {
    root_.Write("Users/demo/Data/Bill/D90010002.20240102o.txt", "");
    Put("20240103o", {"资金类别"});
    EXPECT_NE(Refusal().find("20240102o"), std::string::npos) << Refusal();
}

TEST_F(FormatPick, ComesFromARequestFileToo) {
    Put("20240103o", {"资金类别"});
    options_.format = {};
    options_.requestFile = root_.Write("request.ini", "[REQUEST]\nformat=auto\n");
    EXPECT_EQ(PrepareRequest(options_).request.StatementFormat, 0);
    options_.format = "6";
    EXPECT_EQ(PrepareRequest(options_).request.StatementFormat, 6);
    EXPECT_TRUE(PrepareRequest(options_).notes.empty());
}

TEST_F(FormatPick, LeavesTheStatementAlone) {
    Put("20240103o", {"资金类别"});
    const std::string path = root_.Path("Users/demo/Data/Bill/D90010002.20240103o.txt");
    const std::string before = ReadFile(path);
    static_cast<void>(PrepareRequest(options_));
    EXPECT_EQ(ReadFile(path), before);
    EXPECT_FALSE(std::filesystem::exists(PageFile()));
}

TEST_F(FormatPick, KeepsWhatElseTheRequestSays) {
    Put("20240103o", {"资金类别"});
    options_.dpi = "120";
    const PreparedRequest prepared = PrepareRequest(options_);
    EXPECT_EQ(prepared.request.Dpi, 120);
    EXPECT_EQ(std::string(prepared.request.Account), "90010002");
    EXPECT_EQ(prepared.request.StatementKind, 1);
}

/// A root with a layout that its own template alone reads, and says nothing of a format.
class RootTemplate : public FormatPick {
protected:
    RootTemplate() {
        const std::string sample = std::string(TRADEBILL_SAMPLES) + "/template-row/root";
        std::filesystem::copy(
            sample, root_.Path(),
            std::filesystem::copy_options::recursive | std::filesystem::copy_options::overwrite_existing);
        options_.account = "90010012";
        options_.from = "2024-01-02";
        text_ = ReadFile(sample + "/BillTemplate/songta.ini");
    }
    /// Puts the template under `name`, with a format for itself.
    void PutWithFormat(const std::string& name) const {
        const std::size_t firstSection = text_.find('[');
        const std::size_t behind = text_.find('\n', firstSection) + 1;
        root_.Write("BillTemplate/" + name + ".ini", text_.substr(0, behind) + "FORMAT=201\n" + text_.substr(behind));
    }

    std::string text_;
};

TEST_F(RootTemplate, IsFoundIfItNamesItsFormat) {
    PutWithFormat("songta");
    const PreparedRequest prepared = PrepareRequest(options_);
    EXPECT_EQ(prepared.request.StatementFormat, 201);
    EXPECT_STREQ(prepared.request.TemplateName, "songta");
    EXPECT_TRUE(prepared.carriedTemplate.empty());
}

TEST_F(RootTemplate, IsNotTakenWithoutAFormatOnWhichFiguresHang) {
    EXPECT_NE(Refusal().find("the template songta reads it and doesn't name its format"), std::string::npos)
        << Refusal();
}

TEST_F(RootTemplate, IsNotTakenBesideAnotherThatFits) {
    PutWithFormat("songta");
    PutWithFormat("other");
    EXPECT_NE(Refusal().find("the templates other and songta both read it"), std::string::npos) << Refusal();
}

TEST_F(RootTemplate, IsntMetByStatementsThatALayoutReads) {
    options_.root = std::string(TRADEBILL_SAMPLES) + "/fund-status/root";
    options_.account = "90010002";
    EXPECT_EQ(PrepareRequest(options_).request.StatementFormat, 1);
}

}  // namespace
}  // namespace tradebill::format_pick_test
