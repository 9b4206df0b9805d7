// The block of a run: what it was asked, read and left, without a time and a folder.
#include "export/run_json.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "export/json_text.h"
#include "platform/local_time.h"
#include "report/product_source.h"
#include "report/product_unit.h"
#include "report/request_copy.h"
#include "support/gbk_text.h"
#include "support/store_fixture.h"

namespace tradebill::run_json_test {
namespace {

using Json = nlohmann::ordered_json;

/// A source that was asked for two units.
class CAskedSource final : public CProductSource {
public:
    [[nodiscard]] std::int32_t UnitOf(std::string_view /*contract*/, std::string_view /*delivery*/) const override {
        return 1;
    }
    [[nodiscard]] std::optional<std::string> CodeOf(std::string_view /*name*/) const override { return std::nullopt; }
    [[nodiscard]] std::vector<ProductUnit> UsedUnits() const override {
        return {{Gbk("豆粕P"), 10, UnitSource::Trades}, {"x\"", -1, UnitSource::Unknown}};
    }
};

class RunJson : public StoreFixture {
protected:
    RunJson() {
        CopyField(report.Request.UserFolder, "demo");
        CopyField(report.Request.Account, "90010002");
        report.Request.StatementKind = 1;
        report.Request.StatementFormat = 6;
        report.ReportDays = {MidnightOf({2024, 1, 2}), MidnightOf({2024, 2, 5})};
    }

    [[nodiscard]] Json Written() const {
        std::ostringstream out;
        {
            CJsonText json(out);
            WriteRun(json, report, run);
        }
        return Json::parse(out.str());
    }

    RunFacts run;
};

TEST_F(RunJson, TellsTheAccountAndWhatWasAsked) {
    run.days = 35;
    const Json json = Written();
    EXPECT_EQ(json["user"], "demo");
    EXPECT_EQ(json["account"], "90010002");
    EXPECT_EQ(json["kind"], "domestic");
    EXPECT_EQ(json["template"], Json());
    EXPECT_EQ(json["marginOffset"], false);
    EXPECT_EQ(json["dpi"], 0);
    EXPECT_EQ(json["days"], Json({{"from", "20240102"}, {"to", "20240205"}, {"walked", 35}, {"read", 0}}));
    for (const char* const list : {"statements", "inputs", "units"}) EXPECT_EQ(json[list], Json::array()) << list;
    EXPECT_EQ(json["page"], Json());
}

TEST_F(RunJson, TellsWhatElseWasAsked) {
    CopyField(report.Request.TemplateName, "songta");
    report.Request.MarginOffsetFlag = 1;
    report.Request.Dpi = 96;
    EXPECT_EQ(Written()["template"], "songta");
    EXPECT_EQ(Written()["marginOffset"], true);
    EXPECT_EQ(Written()["dpi"], 96);
}

TEST_F(RunJson, TellsFormatLayoutAndDigestOfEachStatement) {
    run.statements = {{.day = "20240102", .layout = "tabulated", .file = {"D1.20240102o.txt", 7, "ab12"}},
                      {.day = "20240103", .layout = "", .file = {"D1.20240103o.txt", 0, "cd34"}}};
    const Json json = Written();
    EXPECT_EQ(json["days"]["read"], 2);
    EXPECT_EQ(json["statements"][0], Json({{"day", "20240102"},
                                           {"format", 6},
                                           {"layout", "tabulated"},
                                           {"file", "D1.20240102o.txt"},
                                           {"size", 7},
                                           {"sha256", "ab12"}}));
    EXPECT_EQ(json["statements"][1]["layout"], Json());
}

/// The foreign family has one layout and no number, and no margins are offset there.
TEST_F(RunJson, TellsNoFormatOfForeignStatements) {
    report.Request.StatementKind = kForeignKind;
    report.Request.MarginOffsetFlag = 1;
    run.statements = {{.day = "20240102", .layout = "foreign", .file = {}}};
    const Json json = Written();
    EXPECT_EQ(json["kind"], "foreign");
    EXPECT_EQ(json["marginOffset"], false);
    EXPECT_EQ(json["statements"][0]["format"], Json());
}

TEST_F(RunJson, TellsTheOtherInputsAndThePage) {
    run.inputs = {{"request", {"request.ini", 5, "12"}}, {"chains", {"chain.ini", 6, "34"}}};
    run.page = FileDigest{"TradeBill.html", 5'000'000'000, "56"};
    const Json json = Written();
    EXPECT_EQ(json["inputs"],
              Json::array({{{"kind", "request"}, {"file", "request.ini"}, {"size", 5}, {"sha256", "12"}},
                           {{"kind", "chains"}, {"file", "chain.ini"}, {"size", 6}, {"sha256", "34"}}}));
    EXPECT_EQ(json["page"], Json({{"file", "TradeBill.html"}, {"size", 5'000'000'000}, {"sha256", "56"}}));
}

TEST_F(RunJson, TellsEachUnitAndItsSource) {
    const CAskedSource products;
    report.Products = &products;
    EXPECT_EQ(Written()["units"], Json::array({{{"product", "豆粕P"}, {"unit", 10}, {"source", "trades"}},
                                               {{"product", "x\""}, {"unit", -1}, {"source", "none"}}}));
}

}  // namespace
}  // namespace tradebill::run_json_test
