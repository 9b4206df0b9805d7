#include "readers/fixed_readers.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

#include "base/report_error.h"
#include "base/text.h"
#include "driver/bill_folders.h"
#include "readers/reader_fixture.h"
#include "support/temp_folder.h"

namespace tradebill::bilingual_change_date_test {
namespace {

enum class Labels { None, Old, New };

std::ostream& operator<<(std::ostream& out, Labels labels) {
    return out << (labels == Labels::Old ? "Old" : labels == Labels::New ? "New" : "None");
}

class BilingualChangeDate : public ReaderFixture {
protected:
    BilingualChangeDate() { Begin(); }

    void Begin() {
        MakeReport(3);
        folder_.emplace();
        NameTemplate("broker");
    }

    /// Lets the request name this template of the folder.
    void NameTemplate(std::string_view name) {
        report.RootFolder = folder_->Path();
        CopyField(report.Request.TemplateName, name);
        report.TemplatePath = TemplatePath(report);
    }

    /// Begins anew, with a template of this content.
    void BeginWith(std::string_view content) {
        Begin();
        folder_->Write("BillTemplate/broker.ini", content);
    }
    void BeginWithDate(std::string_view changeDate) {
        BeginWith("[DEALFIELD]\r\nBILLFORMAT_NEWDATE=" + std::string(changeDate) + "\r\n");
    }

    /// A statement in which the labels of both times stand, with different values.
    static std::string BothLabels() {
        return Statement({"资金状况", "----------", "客户权益 Client Equity：：  1  客户权益 Client Equity:  2",
                          "权利金支出", "成交记录"});
    }

    Labels LabelsRead() {
        const Texts equities = TextsOf(report.MoneyStore.Records, "KHQY");
        if (equities == Texts{"1"}) return Labels::Old;
        return equities == Texts{"2"} ? Labels::New : Labels::None;
    }

    /// The labels that a statement of `day` is read by.
    Labels LabelsOf(std::string_view day) {
        Read(ReadBilingualStatement, day, BothLabels());
        return LabelsRead();
    }

    /// The code of the error that reading a statement of `day` raises; 0 without one.
    std::uint32_t ErrorOf(std::string_view day) {
        try {
            Read(ReadBilingualStatement, day, BothLabels());
        } catch (const CReportError& error) {
            return error.Code();
        }
        return 0;
    }

    std::optional<CTempFolder> folder_;
};

TEST_F(BilingualChangeDate, IsTheFirstDayOfTheNewLabels) {
    const struct {
        std::string_view changeDate;
        std::string_view day;
        Labels labels;
    } cases[] = {
        {"20240105", "20240104", Labels::Old}, {"20240105", "20240105", Labels::New},
        {"20240105", "20240106", Labels::New}, {"20240101", "20231231", Labels::Old},
        {"20231231", "20240101", Labels::New}, {"20240201", "20240131", Labels::Old},
        {"20240131", "20240201", Labels::New}, {"19700102", "20240105", Labels::New},
        {"30000601", "20240105", Labels::Old}, {"20240105", "19700102", Labels::Old},
    };
    for (const auto& row : cases) {
        BeginWithDate(row.changeDate);
        EXPECT_EQ(LabelsOf(row.day), row.labels) << row.changeDate << ' ' << row.day;
    }
}

TEST_F(BilingualChangeDate, RollsOverTheEndOfItsMonth) {
    BeginWithDate("20240231");
    EXPECT_EQ(LabelsOf("20240301"), Labels::Old);
    BeginWithDate("20240231");
    EXPECT_EQ(LabelsOf("20240302"), Labels::New);
    BeginWithDate("20240302");
    EXPECT_EQ(LabelsOf("20240231"), Labels::New);
}

TEST_F(BilingualChangeDate, MayBeMissing) {
    EXPECT_EQ(LabelsOf("20240105"), Labels::Old);
    for (const std::string_view content :
         {"", "[DEALFIELD]\r\n", "[DEALFIELD]\r\nBILLFORMAT_NEWDATE\r\n",
          "[MONEY_RECORD]\r\nBILLFORMAT_NEWDATE=20240101\r\n", "[DEALFIELD]\r\nBILLFORMAT_NEWDATES=20240101\r\n",
          "[DEALFIELD]\r\n;BILLFORMAT_NEWDATE=20240101\r\n"}) {
        BeginWith(content);
        EXPECT_EQ(LabelsOf("20240105"), Labels::Old) << content;
    }
}

TEST_F(BilingualChangeDate, MayBeBlank) {
    for (const std::string_view changeDate : {"", "   ", "\t", "\"\"", "\"   \""}) {
        BeginWithDate(changeDate);
        EXPECT_EQ(LabelsOf("20240105"), Labels::Old) << '[' << changeDate << ']';
    }
}

TEST_F(BilingualChangeDate, StandsInTheTemplateOfTheRequest) {
    BeginWithDate("20240101");
    NameTemplate("other");
    EXPECT_EQ(LabelsOf("20240105"), Labels::Old);
    BeginWithDate("20240101");
    NameTemplate("");
    EXPECT_EQ(LabelsOf("20240105"), Labels::Old);
    BeginWithDate("20240101");
    EXPECT_EQ(LabelsOf("20240105"), Labels::New);
}

TEST_F(BilingualChangeDate, IsReadAsFourTwoAndTwoDigits) {
    const struct {
        std::string_view changeDate;
        std::string_view day;
        Labels labels;
    } cases[] = {
        {"  20240105  ", "20240104", Labels::Old},    {"  20240105  ", "20240105", Labels::New},
        {"\" 20240105 \"", "20240104", Labels::Old},  {"\" 20240105 \"", "20240105", Labels::New},
        {"202401059", "20240104", Labels::Old},       {"202401059", "20240105", Labels::New},
        {"20240105 and on", "20240105", Labels::New}, {"2024 1 5", "20240104", Labels::Old},
        {"2024 1 5", "20240105", Labels::New},
    };
    for (const auto& row : cases) {
        BeginWithDate(row.changeDate);
        EXPECT_EQ(LabelsOf(row.day), row.labels) << row.changeDate << ' ' << row.day;
    }
}

TEST_F(BilingualChangeDate, IsCutToThirtyOneBytesBeforeItIsTrimmed) {
    BeginWithDate("\"" + std::string(40, ' ') + "20240101\"");
    EXPECT_EQ(LabelsOf("20240105"), Labels::Old);
}

TEST_F(BilingualChangeDate, RaisesAnErrorOutOfBounds) {
    const struct {
        std::string_view changeDate;
        std::uint32_t code;
    } cases[] = {
        {"18991231", 0x80004005},
        {"19691231", 0x80070057},
        {"20240001", 0x80004005},
        {"20240101", 0},
        {"20241231", 0},
        {"20241301", 0x80004005},
        {"20240100", 0x80004005},
        {"20240132", 0x80004005},
        {"2024", 0x80004005},
        {"202401", 0x80004005},
        {"2024010", 0x80004005},
        {"tomorrow", 0x80004005},
        {"2024-01-05", 0x80004005},
        {"30010601", 0x80070057},
        {"99991231", 0x80070057},
        {"00000000", 0x80004005},
        {"-9990101", 0x80004005},
        {"2024/1/5", 0x80004005},
    };
    for (const auto& row : cases) {
        BeginWithDate(row.changeDate);
        EXPECT_EQ(ErrorOf("20240105"), row.code) << row.changeDate;
        EXPECT_EQ(NothingRead(), row.code != 0) << row.changeDate;
    }
}

TEST_F(BilingualChangeDate, RaisesAnErrorForADayOutOfBoundsToo) {
    const struct {
        std::string_view day;
        std::uint32_t code;
    } cases[] = {
        {"18991231", 0x80004005}, {"20241301", 0x80004005}, {"20240132", 0x80004005},
        {"", 0x80004005},         {"19691231", 0x80070057}, {"20240131", 0},
    };
    for (const auto& row : cases) {
        BeginWithDate("20240105");
        EXPECT_EQ(ErrorOf(row.day), row.code) << row.day;
        BeginWithDate("");
        EXPECT_EQ(ErrorOf(row.day), 0U) << row.day;
        EXPECT_EQ(LabelsRead(), Labels::Old) << row.day;
    }
}

// The template reader declines such a template, as it names no money section.
TEST_F(BilingualChangeDate, HoldsForStatementsThatTheTemplateCannotRead) {
    BeginWithDate("20240105");
    ReadStatement("20240104", BothLabels());
    EXPECT_EQ(LabelsRead(), Labels::Old);
    BeginWithDate("20240105");
    ReadStatement("20240105", BothLabels());
    EXPECT_EQ(LabelsRead(), Labels::New);
}

TEST_F(BilingualChangeDate, ReadsEachDayByItsOwnLabels) {
    BeginWithDate("20240105");
    for (const std::string_view day : {"20240104", "20240105", "20240103"})
        Read(ReadBilingualStatement, day, BothLabels());
    EXPECT_EQ(TextsOf(report.MoneyStore.Records, "BILL_DATE"), (Texts{"20240104", "20240105", "20240103"}));
    EXPECT_EQ(TextsOf(report.MoneyStore.Records, "KHQY"), (Texts{"1", "2", "1"}));
}

}  // namespace
}  // namespace tradebill::bilingual_change_date_test
