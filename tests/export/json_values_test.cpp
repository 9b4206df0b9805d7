// Numbers and texts in the JSON: what can't be written as it stands.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <utility>

#include "base/text.h"
#include "report/records.h"
#include "support/gbk_text.h"
#include "support/report_json.h"
#include "support/store_fixture.h"

namespace tradebill::json_values_test {
namespace {

using Json = nlohmann::ordered_json;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

class JsonValues : public StoreFixture {
protected:
    [[nodiscard]] std::string Text() const { return ReportJson(report); }
    [[nodiscard]] Json Written() const { return Json::parse(Text()); }

    /// What a text of these bytes is written as.
    std::string Decoded(std::string_view bytes) {
        report.MatchStore.Clear();
        CopyField(report.MatchStore.Add().EXCH_NAME, bytes);
        return Written()["matches"][0]["EXCH_NAME"];
    }
};

TEST_F(JsonValues, ReadBackToTheSameDouble) {
    for (const double number : {0.1, 0.1 + 0.2, 1.0 / 3, -2.0 / 3, 123456789.123456789, 1e300, -1e-300, 5e-324,
                                9007199254740993.0, 1.7976931348623157e308}) {
        report.MoneyStore.ClosingEquity = number;
        EXPECT_EQ(Written()["money"]["ClosingEquity"].get<double>(), number);
    }
    report.MoneyStore.ClosingEquity = -0.0;
    EXPECT_TRUE(std::signbit(Written()["money"]["ClosingEquity"].get<double>()));
}

TEST_F(JsonValues, AreTextsIfTheyAreNoNumbers) {
    report.MoneyStore.ClosingEquity = kInfinity;
    report.MoneyStore.Available = -kInfinity;
    report.MoneyStore.TotalFees = std::numeric_limits<double>::quiet_NaN();
    report.MoneyStore.TotalClosedPL = -std::numeric_limits<double>::quiet_NaN();
    report.AccountStatistics.MaxRisk = kInfinity;
    report.TradeStatistics.DayFigures.FindOrCreate("20240102").Yield = -kInfinity;
    report.TradeStatistics.DayUsages.FindOrCreate("20240102").Risk = std::numeric_limits<double>::quiet_NaN();
    auto record = std::make_unique<MoneyRecord>(ClearedMoneyRecord());
    record->EXCHANGE_RATE = kInfinity;
    report.MoneyStore.Records.push_back(std::move(record));
    const Json json = Written();
    EXPECT_EQ(json["money"]["ClosingEquity"], "inf");
    EXPECT_EQ(json["money"]["Available"], "-inf");
    EXPECT_EQ(json["money"]["TotalFees"], "nan");
    EXPECT_EQ(json["money"]["TotalClosedPL"], "nan");
    EXPECT_EQ(json["money"]["Records"][0]["values"]["EXCHANGE_RATE"], "inf");
    EXPECT_EQ(json["account"]["MaxRisk"], "inf");
    EXPECT_EQ(json["days"][0]["Yield"], "-inf");
    EXPECT_EQ(json["usage"][0]["Risk"], "nan");
}

TEST_F(JsonValues, DecodeTexts) {
    EXPECT_EQ(Decoded(Gbk("上期所")), "上期所");
    EXPECT_EQ(Decoded(Gbk("　中文 mixed")), "　中文 mixed");
    EXPECT_EQ(Decoded("\"quoted\" \\ /"), "\"quoted\" \\ /");
    EXPECT_EQ(Decoded("\x01\t\r\n\x7F"), "\x01\t\r\n\x7F");
}

TEST_F(JsonValues, HaveOneReplacementForEachByteOfNoCharacter) {
    const std::string replacement = "\xEF\xBF\xBD";
    EXPECT_EQ(Decoded("\xFF"), replacement);
    EXPECT_EQ(Decoded("\x80"), replacement);
    EXPECT_EQ(Decoded("a\xFF\xFF-"), "a" + replacement + replacement + "-");
    EXPECT_EQ(Decoded("ab\xCD"), "ab" + replacement);  // half a character at the end
    EXPECT_EQ(Decoded("\xCD-"), replacement + "-");    // a trail byte that is none
    EXPECT_EQ(Decoded("\xFF" + Gbk("铜")), replacement + "铜");
    EXPECT_EQ(Decoded(std::string(80, '\xCD').substr(0, 79)), Decoded(std::string(78, '\xCD')) + replacement);
}

TEST_F(JsonValues, EndWithAFieldThatIsNotTerminated) {
    std::ranges::fill(report.MatchStore.Add().MATCHNO, '7');
    EXPECT_EQ(Written()["matches"][0]["MATCHNO"], std::string(16, '7'));
}

TEST_F(JsonValues, StandOneRowALine) {
    for (int i = 0; i < 1000; ++i) report.MatchStore.Add();
    const std::string text = Text();
    EXPECT_EQ(Json::parse(text)["matches"].size(), 1000U);
    EXPECT_GE(std::ranges::count(text, '\n'), 1000);
    EXPECT_EQ(text.back(), '\n');
}

}  // namespace
}  // namespace tradebill::json_values_test
