#include "readers/statement_loader.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "readers/reader_fixture.h"
#include "report/statement_format.h"
#include "support/temp_folder.h"

namespace tradebill::statement_loader_test {
namespace {

using namespace std::string_literals;

constexpr std::string_view kFileDay = "20240105";

const std::string& StatusText() {
    static const std::string text =
        Statement({"结算单", "日  期:20240102", "资金状况", "----------", "客户权益: 1", "出入金: 2", "----------"});
    return text;
}
const std::string& ClassText() {
    static const std::string text =
        Statement({"结算单", "日  期:20240102", "资金类别", "----------", "客户权益: 1", "出入金: 2", "----------"});
    return text;
}
const std::string& TabulatedText() {
    static const std::string text =
        Statement({"结算单", "制表时间：20240102", "资金状况", "==========", "客户权益： 1", "成交记录", "----------"});
    return text;
}
std::string PremiumNote() {
    return Gbk("注：权利金另计\r\n");
}

class StatementLoader : public ReaderFixture {
protected:
    StatementLoader() { MakeReport(1); }

    bool Load(const std::string& content) {
        path_ = folder_.Write("D1.20240105o.txt", content);
        return LoadStatement(kFileDay, path_);
    }

    /// The day under which `text` was filed; nothing if no money record was made.
    std::string DayOf(std::int32_t format, const std::string& text) {
        MakeReport(format);
        ReadStatement(kFileDay, text);
        return report.MoneyStore.Count() == 0 ? "none" : TextsOf(report.MoneyStore.Records, "BILL_DATE").front();
    }

    CTempFolder folder_;
    std::string path_;
};

TEST_F(StatementLoader, ReadsTheFileIntoTheStores) {
    EXPECT_TRUE(Load(StatusText()));
    EXPECT_EQ(Money(), (Fields{{"BILL_DATE", "20240102"}, {"KHQY", "1"}, {"CRJ", "2"}}));
}

TEST_F(StatementLoader, ReadsOneFileAfterTheOther) {
    const std::string other = Gbk("结算单\r\n日  期:20240103\r\n资金状况\r\n-\r\n-\r\n---------\r\n");
    EXPECT_TRUE(Load(StatusText()));
    EXPECT_TRUE(Load(other));
    EXPECT_EQ(TextsOf(report.MoneyStore.Records, "BILL_DATE"), (Texts{"20240102", "20240103"}));
}

TEST_F(StatementLoader, PassesOverAMissingFile) {
    EXPECT_FALSE(LoadStatement(kFileDay, folder_.Path("D1.20240105o.txt")));
    EXPECT_FALSE(LoadStatement(kFileDay, folder_.Path("nowhere/D1.20240105o.txt")));
    EXPECT_FALSE(LoadStatement(kFileDay, ""));
    EXPECT_TRUE(NothingRead());
    EXPECT_TRUE(std::filesystem::is_empty(folder_.Path()));
}

TEST_F(StatementLoader, ReadsNothingFromAnEmptyFileAndLeavesItEmpty) {
    EXPECT_TRUE(Load(""));
    EXPECT_TRUE(NothingRead());
    EXPECT_EQ(std::filesystem::file_size(path_), 0U);
}

TEST_F(StatementLoader, EndsTheTextAtItsFirstZeroByte) {
    Load(StatusText() + "\0"s + Statement({"成交记录", "-", "-", "t0 t1 t2 t3 t4 t5 t6 t7 t8 t9 t10 t11", "共"}));
    EXPECT_EQ(report.MoneyStore.Count(), 1);
    EXPECT_EQ(report.MatchStore.Count(), 0);
    MakeReport(1);
    Load("\0"s + StatusText());
    EXPECT_TRUE(NothingRead());
}

TEST_F(StatementLoader, DoesNotSeeTheWordForPremiumBehindAZeroByte) {
    Load(StatusText() + "\0"s + PremiumNote());
    EXPECT_EQ(TextsOf(report.MoneyStore.Records, "BILL_DATE"), (Texts{"20240102"}));
    MakeReport(1);
    Load(StatusText() + PremiumNote() + "\0"s);
    EXPECT_EQ(TextsOf(report.MoneyStore.Records, "BILL_DATE"), (Texts{"20240105"}));
}

TEST_F(StatementLoader, LeavesContentAndLengthOfTheFile) {
    for (const std::string& content : {""s, "\0"s, StatusText(), StatusText() + "\0tail"s, std::string(4096, 'x'),
                                       std::string(4095, '\n'), "no line end"s}) {
        for (const std::int32_t format : {0, 1, 3, 5}) {
            MakeReport(format);
            EXPECT_TRUE(Load(content));
            EXPECT_EQ(ReadFile(path_), content);
        }
    }
}

TEST_F(StatementLoader, PassesOverAFolder) {
    MakeReport(1);
    EXPECT_FALSE(LoadStatement(kFileDay, folder_.Path()));
    EXPECT_TRUE(NothingRead());
}

TEST_F(StatementLoader, ReadsAFileThatAnotherHasOpen) {
    const std::string path = folder_.Write("D1.20240105o.txt", StatusText());
    std::fstream other(path, std::ios::in | std::ios::out | std::ios::binary);
    ASSERT_TRUE(other.is_open());
    EXPECT_TRUE(LoadStatement(kFileDay, path));
    EXPECT_EQ(report.MoneyStore.Count(), 1);
}

TEST_F(StatementLoader, ChoosesTheReaderByFormat) {
    const struct {
        std::int32_t format;
        const char* status;
        const char* fundClass;
        const char* tabulated;
    } cases[] = {
        {0, "none", "20240102", "none"}, {1, "20240102", "none", ""},         {2, "none", "none", "none"},
        {3, "", "none", "20240102"},     {6, "none", "none", "none"},         {201, "none", "none", "none"},
        {5, "none", "none", "none"},     {4, "none", "none", "none"},         {-1, "none", "none", "none"},
        {200, "none", "none", "none"},   {INT32_MAX, "none", "none", "none"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(DayOf(row.format, StatusText()), row.status) << row.format;
        EXPECT_EQ(DayOf(row.format, ClassText()), row.fundClass) << row.format;
        EXPECT_EQ(DayOf(row.format, TabulatedText()), row.tabulated) << row.format;
    }
}

TEST_F(StatementLoader, ChoosesThePremiumReaderByAWordAnywhere) {
    EXPECT_EQ(DayOf(1, StatusText()), "20240102");
    EXPECT_EQ(DayOf(1, StatusText() + PremiumNote()), "20240105");
    EXPECT_EQ(DayOf(1, PremiumNote() + StatusText()), "20240105");
    EXPECT_EQ(DayOf(1, StatusText() + Gbk("权 利 金\r\n权利\r\n金")), "20240102");
    const std::string trade = Statement({"成交记录", "-", "-", "t0 t1 t2 t3 t4 权利金 t6 t7 t8 t9 t10 t11", "共"});
    EXPECT_EQ(DayOf(1, StatusText() + trade), "20240105");
}

TEST_F(StatementLoader, ReadsFormatZeroAlikeWithAndWithoutTheWord) {
    EXPECT_EQ(DayOf(0, ClassText() + PremiumNote()), "20240102");
    EXPECT_EQ(DayOf(0, StatusText() + PremiumNote()), "none");
}

TEST_F(StatementLoader, DoesNotTakeAStatementWithPremiumForATabulatedOne) {
    DayOf(3, TabulatedText() + PremiumNote());
    EXPECT_FALSE(report.MoneyStore.HasDay("20240102"));
}

TEST_F(StatementLoader, AlternatesBetweenTheTwoReadersFromDayToDay) {
    for (const bool premium : {false, true, false}) {
        ReadStatement(premium ? "20240108" : "20240105", StatusText() + (premium ? PremiumNote() : ""));
    }
    EXPECT_EQ(TextsOf(report.MoneyStore.Records, "BILL_DATE"), (Texts{"20240108", "20240102"}));
}

TEST_F(StatementLoader, FilesADayUnderTheStatementsDateUnnoticed) {
    EXPECT_EQ(DayOf(1, StatusText()), "20240102");
    EXPECT_FALSE(report.MoneyStore.HasDay(kFileDay));
}

TEST_F(StatementLoader, ReadsNoDomesticLayoutForTheForeignFamily) {
    for (const std::int32_t kind : {-1, 0, 1, 2, 3}) {
        for (const std::int32_t format : {0, 1, 3}) {
            MakeReport(format);
            report.Request.StatementKind = kind;
            ReadStatement(kFileDay, format == 0 ? ClassText() : format == 1 ? StatusText() : TabulatedText());
            EXPECT_EQ(report.MoneyStore.HasDay("20240102"), kind != 2) << kind << ' ' << format;
        }
    }
}

TEST_F(StatementLoader, KnowsTheFormatsOfTheFixedReaders) {
    std::vector<std::int32_t> known;
    for (std::int32_t format = -10; format < 300; ++format) {
        if (IsKnownFormat(format)) known.push_back(format);
    }
    EXPECT_EQ(known, (std::vector<std::int32_t>{0, 1, 2, 3, 6, 201}));
}

}  // namespace
}  // namespace tradebill::statement_loader_test
