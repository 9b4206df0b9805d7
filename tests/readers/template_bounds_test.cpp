#include <gtest/gtest.h>

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>

#include "readers/template_fixture.h"

namespace tradebill::template_bounds_test {
namespace {

class TemplateBounds : public TemplateFixture {
protected:
    /// What the columns "CONTRACT" of a table of trades read, and the error that reading raised.
    struct Outcome {
        Texts contracts;
        std::uint32_t code;
        bool operator==(const Outcome&) const = default;
    };
    friend std::ostream& operator<<(std::ostream& out, const Outcome& outcome) {
        for (const std::string& contract : outcome.contracts) out << contract << ' ';
        return out << outcome.code;
    }

    static std::string Row(std::string_view name) { return std::string(name) + "|1|2|3|4|5|6|7|8|9|10|11"; }

    /// Reads rows r0, r1 and so on, of which the one at 2 is the title, and the one at 6 and the last are terminators.
    Outcome OutcomeOf(std::string_view startOffset, std::string_view endOffset, std::int32_t lastRow = 8) {
        std::string keys = "CONTRACT=0\r\n";
        keys.append("START_OFFSET=").append(startOffset).append("\r\n");
        keys.append("END_OFFSET=").append(endOffset).append("\r\n");
        BeginWith(1, TableTemplate("MATCH_RECORD", keys));
        std::string text;
        for (std::int32_t row = 0; row <= lastRow; ++row) {
            text += Row("r" + std::to_string(row)) + (row == 2 ? "|明细" : row == 6 ? "|共" : "") + "\n";
        }
        Outcome outcome{{}, 0};
        try {
            EXPECT_TRUE(ReadByTemplate("20240105", Gbk(text)));
        } catch (const CReportError& error) {
            outcome.code = error.Code();
        }
        outcome.contracts = TextsOf(report.MatchStore.Rows, "CONTRACT");
        return outcome;
    }
};

TEST_F(TemplateBounds, HoldRowsFromStartToEndOffset) {
    const struct {
        std::string_view start;
        std::string_view end;
        Outcome outcome;
    } cases[] = {
        {"1", "0", {{"r3", "r4", "r5"}, 0}},
        {"0", "0", {{"r2", "r3", "r4", "r5"}, 0}},
        {"2", "1", {{"r4"}, 0}},
        {"3", "1", {{}, 0}},
        {"4", "0", {{}, 0}},
        {"100", "0", {{}, 0}},
        {"1", "3", {{}, 0}},
        {"1", "100", {{}, 0}},
        {"-1", "2", {{"r1", "r2", "r3"}, 0}},
        {"-2", "2", {{"r0", "r1", "r2", "r3"}, 0}},
        {"3", "-1", {{"r5", "r6"}, 0}},
        {"4", "-2", {{"r6", "r7"}, 0}},
        {"6", "-3", {{"r8"}, 0}},
    };
    for (const auto& row : cases) EXPECT_EQ(OutcomeOf(row.start, row.end), row.outcome) << row.start << ' ' << row.end;
}

TEST_F(TemplateBounds, TakeTheTitlesRowBeforeAndTheTerminatorByDefault) {
    BeginWith(1, Ini({"[DEALFIELD]", "MONEY_MODE=9", "MATCH_RECORD=1", "[MATCH_RECORD]", "START_FLAG=明细",
                      "END_FLAG=共", "DELIMITER=|", "CONTRACT=0"}));
    EXPECT_TRUE(Read({Row("前"), "明细", Row("中"), Row("共"), Row("后")}));
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "CONTRACT"), (Texts{"前", "中", "共"}));
}

TEST_F(TemplateBounds, RaiseAnErrorForRowsThatAreRead) {
    const struct {
        std::string_view start;
        std::string_view end;
        Outcome outcome;
    } cases[] = {
        {"-3", "2", {{}, kErrorInvalidArgument}},                    // row -1 to 3
        {"-3", "6", {{}, kErrorInvalidArgument}},                    // row -1 alone
        {"-3", "7", {{}, 0}},                                        // none
        {"-100", "103", {{}, kErrorInvalidArgument}},                // row -98 alone
        {"-100", "104", {{}, 0}},                                    // none
        {"6", "-4", {{"r8"}, kErrorInvalidArgument}},                // row 8 and 9
        {"7", "-3", {{}, 0}},                                        // none
        {"7", "-4", {{}, kErrorInvalidArgument}},                    // row 9
        {"100", "-96", {{}, 0}},                                     // none
        {"100", "-97", {{}, kErrorInvalidArgument}},                 // row 102 alone
        {"4", "-100", {{"r6", "r7", "r8"}, kErrorInvalidArgument}},  // row 6 to 105
    };
    for (const auto& row : cases) EXPECT_EQ(OutcomeOf(row.start, row.end), row.outcome) << row.start << ' ' << row.end;
}

TEST_F(TemplateBounds, StandHugeOffsets) {
    const Outcome none{{}, 0};
    const Outcome error{{}, kErrorInvalidArgument};
    const Outcome tail{{"r3", "r4", "r5", "r6", "r7", "r8"}, kErrorInvalidArgument};
    const struct {
        std::string_view start;
        std::string_view end;
        const Outcome& outcome;
    } cases[] = {
        {"2147483647", "0", none},
        {"1", "2147483647", none},
        {"-2147483648", "0", error},
        {"1", "-2147483648", tail},
        {"2147483647", "2147483647", none},
        {"-2147483648", "-2147483648", error},
        {"-2147483648", "2147483647", error},
        {"2147483647", "-2147483640", none},
        {"99999999999", "0", none},
        {"1", "99999999999", none},
        {"-99999999999", "0", error},
        {"1", "-99999999999", tail},
        {"4294967297", "0", none},
        {"1", "4294967296", none},
    };
    for (const auto& row : cases) EXPECT_EQ(OutcomeOf(row.start, row.end), row.outcome) << row.start << ' ' << row.end;
}

TEST_F(TemplateBounds, RaiseAnErrorBeforeTheFirstRowInEveryTable) {
    const struct {
        std::int32_t format;
        std::string_view section;
    } cases[] = {{1, "MATCH_RECORD"}, {1, "PING_DETAIL"}, {1, "OPI_DETAIL"}, {2, "OPI_DETAIL"}, {1, "OPI_SUM"}};
    for (const auto& row : cases) {
        const std::string name(row.section);
        const std::string content = "[DEALFIELD]\r\nMONEY_MODE=9\r\n" + name + "=1\r\n[" + name +
                                    "]\r\nSTART_FLAG=明细\r\nEND_FLAG=共\r\nEND_OFFSET=0\r\nDELIMITER=|\r\nBID=0\r\n";
        BeginWith(row.format, content);
        EXPECT_EQ(ErrorOf({"明细", Row("a"), Row("b"), "共"}), kErrorInvalidArgument) << name;
        EXPECT_TRUE(NothingRead()) << name;
        EXPECT_EQ(ErrorOf({"结算单", "明细", Row("a"), Row("b"), "共"}), 0U) << name;
        BeginWith(row.format, content + "START_OFFSET=1\r\n");
        EXPECT_EQ(ErrorOf({"明细", Row("a"), Row("b"), "共"}), 0U) << name;
    }
}

TEST_F(TemplateBounds, RaiseAnErrorBehindTheLastRowInEveryTable) {
    const struct {
        std::int32_t format;
        std::string_view section;
    } cases[] = {{1, "MATCH_RECORD"}, {1, "PING_DETAIL"}, {1, "OPI_DETAIL"}, {2, "OPI_DETAIL"}, {1, "OPI_SUM"}};
    for (const auto& row : cases) {
        for (const bool isBehind : {false, true}) {
            BeginWith(row.format, TableTemplate(row.section, isBehind ? "END_OFFSET=-2\r\nBID=0\r\n"
                                                                      : "END_OFFSET=-1\r\nBID=0\r\n"));
            EXPECT_EQ(ErrorOfRows({Row("a"), Row("b")}), isBehind ? kErrorInvalidArgument : 0U) << row.section;
        }
    }
}

TEST_F(TemplateBounds, KeepTheRowsReadBeforeAnErrorAndReachTheCallerOfTheDispatch) {
    BeginWith(1, TableTemplate("MATCH_RECORD", "CONTRACT=0\r\nEND_OFFSET=-2\r\n"));
    const std::string text = Statement({"结算单", "明细", "-", Row("a"), Row("b"), "共"});
    try {
        ReadStatement("20240105", text);
        ADD_FAILURE() << "no error";
    } catch (const CReportError& error) {
        EXPECT_EQ(error.Code(), 0x80070057U);
    }
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "CONTRACT"), (Texts{"a", "b"}));
}

TEST_F(TemplateBounds, RaiseAnErrorForAClosedPositionWithoutASide) {
    for (const std::string_view column : {"", "BID=-1\r\n", "BID=12\r\n", "BID=2147483647\r\n", "BID=-2147483648\r\n",
                                          "BID=99999999999\r\n", "BID=4294967296\r\n"}) {
        BeginWith(1, TableTemplate("PING_DETAIL", column));
        EXPECT_EQ(ErrorOfRows({Cells(12)}), kErrorInvalidArgument) << column;
        EXPECT_TRUE(NothingRead()) << column;
        EXPECT_EQ(ErrorOfRows({Cells(10)}), 0U) << column;  // too short to be looked at
        EXPECT_EQ(ErrorOfRows({}), 0U) << column;
    }
}

TEST_F(TemplateBounds, KeepClosedPositionsBeforeTheOneWithoutASide) {
    BeginWith(1, TableTemplate("PING_DETAIL", "BID=11\r\nCONTRACT=0\r\n"));
    EXPECT_EQ(ErrorOfRows({Row("a"), "b|1|2|3|4|5|6|7|8|9|10", Row("c")}), kErrorInvalidArgument);
    EXPECT_EQ(TextsOf(report.PingDetailStore.Rows, "CONTRACT"), (Texts{"a"}));
    EXPECT_EQ(report.ReportDocument.Offsets.size(), 1U);
}

TEST_F(TemplateBounds, StandHugeModes) {
    for (const std::string_view mode : {"2147483647", "-2147483648", "99999999999", "4294967296", "-4294967296"}) {
        BeginWith(1, "[DEALFIELD]\r\nMONEY_MODE=" + std::string(mode) + "\r\n");
        EXPECT_TRUE(Read({"结算单", Cells(9)})) << mode;
        EXPECT_TRUE(NothingRead()) << mode;
        BeginWith(1, "[DEALFIELD]\r\nBILLFORMAT_NEWDATE=20240101\r\nMONEY_MODE_NEW=" + std::string(mode) + "\r\n");
        EXPECT_TRUE(Read({"结算单", Cells(9)})) << mode;
        EXPECT_TRUE(NothingRead()) << mode;
    }
}

TEST_F(TemplateBounds, LetSectionsOverlap) {
    BeginWith(1,
              "[DEALFIELD]\r\nMONEY_MODE=1\r\nPING_DETAIL=1\r\nOPI_DETAIL=1\r\nOPI_SUM=1\r\nMATCH_RECORD=1\r\n" +
                  Ini({"[MONEY_RECORD]", "START_FLAG=明细", "START_OFFSET=1", "DELIMITER=|",    "KHQY_NAME=0",
                       "[MATCH_RECORD]", "START_FLAG=明细", "START_OFFSET=1", "END_FLAG=共",    "END_OFFSET=0",
                       "DELIMITER=|",    "CONTRACT=0",      "[PING_DETAIL]",  "START_FLAG=a|1", "START_OFFSET=1",
                       "END_FLAG=共",    "END_OFFSET=0",    "DELIMITER=|",    "CONTRACT=0",     "BID=1",
                       "[OPI_DETAIL]",   "START_FLAG=结算", "START_OFFSET=2", "END_FLAG=c|1",   "END_OFFSET=0",
                       "DELIMITER=|",    "CONTRACT=0",      "[OPI_SUM]",      "START_FLAG=b|1", "START_OFFSET=0",
                       "END_FLAG=d|1",   "END_OFFSET=0",    "DELIMITER=|",    "CONTRACT=0",     "BID_POSITION_VOL=1"}));
    EXPECT_TRUE(Read({"结算单", "明细", Row("a"), Row("b"), Row("c"), Row("d"), "共"}));
    EXPECT_EQ(Money()["KHQY"], "a");
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "CONTRACT"), (Texts{"a", "b", "c", "d"}));
    EXPECT_EQ(TextsOf(report.PingDetailStore.Rows, "CONTRACT"), (Texts{"b", "c", "d"}));
    EXPECT_EQ(TextsOf(report.OpiDetailStore.Rows, "CONTRACT"), (Texts{"a", "b"}));
    EXPECT_EQ(TextsOf(report.OpiSumStore.Rows, "CONTRACT"), (Texts{"b", "c"}));
}

TEST_F(TemplateBounds, LetSectionsStandInAnyOrder) {
    BeginWith(1, "[DEALFIELD]\r\nMONEY_MODE=9\r\nMATCH_RECORD=1\r\nOPI_DETAIL=1\r\n" +
                     Ini({"[MATCH_RECORD]", "START_FLAG=成交", "START_OFFSET=2", "END_FLAG=共", "END_OFFSET=0",
                          "DELIMITER=|", "CONTRACT=0", "[OPI_DETAIL]", "START_FLAG=持仓", "START_OFFSET=2",
                          "END_FLAG=共", "END_OFFSET=0", "DELIMITER=|", "CONTRACT=0"}));
    EXPECT_TRUE(Read({"持仓", "-", Row("a"), "共", "成交", "-", Row("b"), "共"}));
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "CONTRACT"), (Texts{"b"}));
    EXPECT_EQ(TextsOf(report.OpiDetailStore.Rows, "CONTRACT"), (Texts{"a"}));
}

TEST_F(TemplateBounds, SearchTheTerminatorSomeRowsBehindTheTitle) {
    const struct {
        std::int32_t format;
        std::string_view section;
        std::int32_t searchOffset;
    } cases[] = {
        {1, "MATCH_RECORD", 2}, {1, "PING_DETAIL", 3}, {1, "OPI_DETAIL", 2}, {2, "OPI_DETAIL", 2}, {1, "OPI_SUM", 2}};
    for (const auto& row : cases) {
        for (std::int32_t at = 1; at <= 4; ++at) {
            BeginWith(row.format,
                      TableTemplate(row.section, "START_OFFSET=0\r\nBID=0\r\nBID_VOL=1\r\nBID_POSITION_VOL=1\r\n"));
            std::string text = Gbk("共\n" + Row("明细") + "\n");  // a terminator before its title counts for nothing
            for (std::int32_t behind = 1; behind < at; ++behind) text += Row("a") + "\n";
            EXPECT_TRUE(ReadByTemplate("20240105", text + Gbk("共\n")));
            const std::int32_t rows = report.MatchStore.Count() + report.PingDetailStore.Count() +
                                      report.OpiDetailStore.Count() + report.OpiSumStore.Count();
            EXPECT_EQ(rows, at < row.searchOffset ? 0 : at) << row.section << ' ' << row.format << ' ' << at;
        }
    }
}

TEST_F(TemplateBounds, EndATableAtTheFirstRowThatHoldsTheTerminator) {
    BeginWith(1, TableTemplate("MATCH_RECORD", "CONTRACT=0\r\n"));
    EXPECT_TRUE(ReadRows({Row("a"), Row("公共"), Row("b")}));
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "CONTRACT"), (Texts{"a"}));
}

TEST_F(TemplateBounds, CountNoBlankRows) {
    BeginWith(1, TableTemplate("MATCH_RECORD", "CONTRACT=0\r\n"));
    EXPECT_TRUE(Read({"", "结算单", "", "  明细  ", "", "标题", "\t", Row("a"), "", "共"}));
    EXPECT_EQ(TextsOf(report.MatchStore.Rows, "CONTRACT"), (Texts{"a"}));
}

}  // namespace
}  // namespace tradebill::template_bounds_test
