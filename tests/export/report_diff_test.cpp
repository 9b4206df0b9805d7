// What is told of two reports that aren't the same.
#include "export/report_diff.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "export/report_figures.h"

namespace tradebill::report_diff_test {
namespace {

using Lines = std::vector<std::string>;

Lines Differences(const std::string& left, const std::string& right) {
    Lines lines;
    const CReportFigures one(R"({"schema":1,)" + left + "}");
    const CReportFigures other(R"({"schema":1,)" + right + "}");
    CompareReports(one, other, [&](const ReportDifference& difference) {
        lines.push_back(difference.place + ": " + difference.left.value_or("-") + " | " +
                        difference.right.value_or("-"));
    });
    return lines;
}

TEST(ReportDiff, TellsNothingOfTheSameFigures) {
    const std::string report = R"("money":{"ClosingEquity":1.5},"matches":[{"BILL_DATE":"20240102"}],"x":[1,[2]])";
    EXPECT_EQ(Differences(report, report), Lines());
    EXPECT_EQ(Differences(R"("a":1234.50,"b":2)", R"("b":2.0, "a": 1234.5)"), Lines());
}

TEST(ReportDiff, NamesEachFigureByItsPlace) {
    EXPECT_EQ(Differences(R"("money":{"ClosingEquity":1.5,"inner":{"MinEquity":1}})",
                          R"("money":{"ClosingEquity":"inf","inner":{"MinEquity":2}})"),
              (Lines{"money.ClosingEquity: 1.5 | \"inf\"", "money.inner.MinEquity: 1 | 2"}));
    EXPECT_EQ(Differences(R"("analysis":{"ratios":{"sharpe":null}})", R"("analysis":{"ratios":{"sharpe":0.5}})"),
              (Lines{"analysis.ratios.sharpe: null | 0.5"}));
}

TEST(ReportDiff, TellsOfNamesThatOneSideLacks) {
    EXPECT_EQ(Differences(R"("run":{"page":{"size":1}},"x":1)", R"("run":{"page":null},"y":[1])"),
              (Lines{"run.page: {...} | null", "x: 1 | -", "y: - | [...]"}));
}

TEST(ReportDiff, KnowsRowsByTheirKeysWhereverTheyStand) {
    const std::string one = R"({"BILL_DATE":"20240102","CONTRACT":"rb2405","MATCHNO":"1","POUNDAGE":"1.00"})";
    const std::string two = R"({"BILL_DATE":"20240102","CONTRACT":"rb2405","MATCHNO":"2","POUNDAGE":"1.00"})";
    const std::string dear = R"({"BILL_DATE":"20240102","CONTRACT":"rb2405","MATCHNO":"2","POUNDAGE":"7.00"})";
    const auto list = [](const std::string& rows) { return "\"matches\":[" + rows + "]"; };
    EXPECT_EQ(Differences(list(one + "," + two), list(two + "," + one)), Lines());
    EXPECT_EQ(Differences(list(one + "," + two), list(dear + "," + one)),
              (Lines{"matches[20240102 rb2405 2].POUNDAGE: \"1.00\" | \"7.00\""}));
    EXPECT_EQ(Differences(list(one + "," + two), list(two)), (Lines{"matches[20240102 rb2405 1]: {...} | -"}));
    EXPECT_EQ(Differences(list(""), list(two)), (Lines{"matches[20240102 rb2405 2]: - | {...}"}));
}

/// Rows of one key are compared only where no equal one stands on the other side.
TEST(ReportDiff, PairsRowsOfOneKey) {
    const auto row = [](const char* price) {
        return std::string(R"({"BILL_DATE":"20240102","CONTRACT":"i","OPEN_PRICE":")") + price + "\"}";
    };
    const std::string left = "\"closed\":[" + row("1") + "," + row("2") + "," + row("3") + "]";
    const std::string right = "\"closed\":[" + row("3") + "," + row("4") + "," + row("1") + "]";
    EXPECT_EQ(Differences(left, right), (Lines{"closed[20240102 i].OPEN_PRICE: \"2\" | \"4\""}));
}

/// A day's drawdown, month and group have names of their own.
TEST(ReportDiff, KnowsTheListsOfTheAnalysis) {
    const auto analysis = [](const char* list) { return std::string(R"("analysis":{)") + list + "}"; };
    EXPECT_EQ(Differences(analysis(R"("days":[{"day":"20240103","pl":1},{"day":"20240102","pl":2}])"),
                          analysis(R"("days":[{"day":"20240102","pl":2},{"day":"20240103","pl":null}])")),
              (Lines{"analysis.days[20240103].pl: 1 | null"}));
    EXPECT_EQ(Differences(analysis(R"("products":[{"product":"i","currency":"HKD","pl":1}])"),
                          analysis(R"("products":[{"product":"i","currency":"USD","pl":1}])")),
              (Lines{"analysis.products[i HKD]: {...} | -", "analysis.products[i USD]: - | {...}"}));
    EXPECT_EQ(Differences(analysis(R"("margin":{"products":[{"product":"i","currency":"","max":1}]})"),
                          analysis(R"("margin":{"products":[{"product":"i","currency":"","max":2}]})")),
              (Lines{"analysis.margin.products[i].max: 1 | 2"}));
}

TEST(ReportDiff, TellsAnAmountOnce) {
    const auto records = [](const char* text, const char* number, const char* rate) {
        return std::string(R"("money":{"Records":[{"BILL_DATE":"20240102","KHQY":")") + text +
               R"(","values":{"KHQY":)" + number + R"(,"EXCHANGE_RATE":)" + rate + "}}]}";
    };
    EXPECT_EQ(Differences(records("1.50", "1.50", "1"), records("2.50", "2.50", "7")),
              (Lines{"money.Records[20240102].KHQY: \"1.50\" | \"2.50\"",
                     "money.Records[20240102].values.EXCHANGE_RATE: 1 | 7"}));
    EXPECT_EQ(Differences(records("1.50", "1.50", "1"), records("1.50", "2.50", "1")),
              (Lines{"money.Records[20240102].values.KHQY: 1.5 | 2.5"}));
}

/// Elements of lists that have no names are known by their places.
TEST(ReportDiff, KnowsOtherElementsByTheirPlaces) {
    EXPECT_EQ(Differences(R"("x":[1,2,3],"matches":[1])", R"("x":[1,5],"matches":[2])"),
              (Lines{"matches: 1 | 2", "x[1]: 2 | 5", "x[2]: 3 | -"}));
}

TEST(ReportDiff, TellsOfListsOfAnotherLengthAndKind) {
    EXPECT_EQ(Differences(R"("x":[1,2,3])", R"("x":[1])"), (Lines{"x[1]: 2 | -", "x[2]: 3 | -"}));
    EXPECT_EQ(Differences(R"("x":[1])", R"("x":[1,2])"), (Lines{"x[1]: - | 2"}));
    EXPECT_EQ(Differences(R"("x":[1])", R"("x":{"1":1})"), (Lines{"x: [...] | {...}"}));
    EXPECT_EQ(Differences(R"("x":[1])", R"("x":7)"), (Lines{"x: [...] | 7"}));
}

/// What another program made of the numbers of a record.
TEST(ReportDiff, TellsOfNumbersThatAreNone) {
    const auto record = [](const std::string& values) {
        return R"("money":{"Records":[{"BILL_DATE":"20240102")" + values + "}]}";
    };
    const std::string whole = R"(,"values":{"KHQY":1})";
    const std::string place = "money.Records[20240102].values";
    EXPECT_EQ(Differences(record(whole), record("")), (Lines{place + ": {...} | -"}));
    EXPECT_EQ(Differences(record(""), record(whole)), (Lines{place + ": - | {...}"}));
    EXPECT_EQ(Differences(record(whole), record(R"(,"values":7)")), (Lines{place + ": {...} | 7"}));
    EXPECT_EQ(Differences(record(R"(,"values":null)"), record(whole)), (Lines{place + ": null | {...}"}));
    EXPECT_EQ(Differences(record(whole), record(R"(,"values":{"KHQY":2})")), (Lines{place + ".KHQY: 1 | 2"}));
}

/// Keys that are numbers or nothing, and rows that one side alone has, in their order.
TEST(ReportDiff, OrdersRowsByWhateverNamesThem) {
    const auto days = [](const char* list) { return std::string(R"("analysis":{"days":[)") + list + "]}"; };
    EXPECT_EQ(Differences(days(R"({"day":1,"pl":1},{"day":3,"pl":1})"), days(R"({"day":2,"pl":1})")),
              (Lines{"analysis.days[1]: {...} | -", "analysis.days[2]: - | {...}", "analysis.days[3]: {...} | -"}));
    EXPECT_EQ(Differences(days(R"({"day":null,"pl":1})"), days(R"({"day":null,"pl":2})")),
              (Lines{"analysis.days.pl: 1 | 2"}));
}

TEST(ReportDiff, KnowsAllListsOfRecords) {
    for (const std::string name : {"matches", "closed", "positions", "positionSums", "exercises", "deliveries"}) {
        const auto list = [&](const char* lots) {
            return "\"" + name + R"(":[{"BILL_DATE":"20240102","CONTRACT":"i","POSITION_VOL":")" + lots + "\"}]";
        };
        EXPECT_EQ(Differences(list("1"), list("2")), (Lines{name + "[20240102 i].POSITION_VOL: \"1\" | \"2\""}));
    }
}

TEST(ReportDiff, TellsBlocksInTheOrderOfTheJson) {
    EXPECT_EQ(Differences(R"("findings":1,"analysis":1,"run":1,"program":"a","another":1)",
                          R"("findings":2,"analysis":2,"run":2,"program":"b","another":2)"),
              (Lines{"program: \"a\" | \"b\"", "run: 1 | 2", "analysis: 1 | 2", "findings: 1 | 2", "another: 1 | 2"}));
}

std::string WhyRefused(std::string_view text) {
    try {
        const CReportFigures figures(text);
    } catch (const CNoReportJson& error) {
        return error.what();
    }
    return {};
}

TEST(ReportFigures, RefusesWhatIsNoReport) {
    for (const char* const text : {"", "{", "\xFF", R"({"schema":1)", R"({"schema":1}x)"}) {
        EXPECT_EQ(WhyRefused(text), "it is no JSON") << text;
    }
    for (const char* const text : {"[]", "1", "{}", R"({"schema":"1"})", R"({"money":{}})"}) {
        EXPECT_EQ(WhyRefused(text), "it names no schema") << text;
    }
    EXPECT_EQ(WhyRefused(R"({"schema":2})"), "it is of schema 2");
    EXPECT_EQ(WhyRefused(R"({"schema":1})"), "");
}

// However deep it goes, what compares goes no deeper.
TEST(ReportFigures, RefusesWhatLiesTooDeep) {
    const auto nested = [](std::size_t depth) {
        return R"({"schema":1,"x":)" + std::string(depth, '[') + std::string(depth, ']') + "}";
    };
    EXPECT_EQ(WhyRefused(nested(15)), "");
    for (const std::size_t depth : {17U, 1'000'000U}) {
        EXPECT_EQ(WhyRefused(nested(depth)), "values lie deeper in each other than in any report") << depth;
    }
}

}  // namespace
}  // namespace tradebill::report_diff_test
