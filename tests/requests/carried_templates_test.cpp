#include "requests/carried_templates.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "base/ini_file.h"
#include "findings/template_check.h"
#include "platform/text_encoding.h"
#include "support/gbk_text.h"
#include "support/shell.h"
#include "support/temp_folder.h"

namespace tradebill::carried_templates_test {
namespace {

/// A statement of the form that the template "units" is for: 100 of a sold contract, closed at a gain of 10.
std::string UnitsStatement() {
    return Statement(
        {"测试期货有限公司",
         "制表时间 Creation Date：20260529",
         "交易结算单(盯市) Settlement Statement(MTM)",
         "客户号 Client ID： TEST001",
         "日期 Date：20260529",
         "",
         "资金状况 Account Summary AccountID：TEST001 Currency：CNY",
         "期初结存 Balance B/F：100000.00  基础保证金 Initial Margin：0.00",
         "出 入 金 Deposit/Withdrawal：500.00  期末结存 Balance C/F：100528.99",
         "平仓盈亏 Realized P/L：10.00  质押金 Pledge Amount：0.00",
         "持仓盯市盈亏 MTM P/L：0.00  客户权益 Client Equity：100528.99",
         "手 续 费 Commission：1.01  保证金占用 Margin Occupied：1000.00",
         "权利金收入 Premium Received：30.00",
         "权利金支出 Premium Paid：10.00",
         "",
         "成交记录 Transaction Record",
         "|成交日期|投资单元|交易所|交易编码|品种|合约|买/卖|投/"
         "保|成交价|手数|成交额|开平|手续费|平仓盈亏|权利金收支|成"
         "交序号|资金账号|",
         "|20260529|TEST001|大商所|CODE|铁矿石|i2609|卖|套保|785.000|1|78500.00|开|1.01|10.00|0.00|100001|TEST001|",
         "|共 1条|||||||||1|78500.00||1.01|10.00|0.00|||",
         "",
         "平仓明细 Position Closed",
         "|平仓日期|投资单元|交易所|交易编码|品种|合约|开仓日期|投/保|买/"
         "卖|手数|开仓价|昨结算|成交价|平仓盈亏|权利金收支|资金账号|",
         "|20260529|TEST001|大商所|CODE|铁矿石|i2609|20260528|套保|买|1|786.000|784.000|785.000|10.00|0.00|TEST001|",
         "|共 1条|||||||||1||||10.00|0.00||"});
}

class CarriedTemplatesTest : public testing::Test {
protected:
    [[nodiscard]] Answer Run(const std::string& arguments) const { return RunProgram(folder_, arguments); }
    [[nodiscard]] nlohmann::json JsonOf(const std::string& arguments) const {
        const Answer answer = Run(arguments + " --quiet --json -");
        EXPECT_EQ(answer.exit, 0) << answer.err;
        return nlohmann::json::parse(answer.out);
    }
    void PutStatement() const { folder_.Write("root/Users/u/Data/Bill/DTEST001.20260529o.txt", UnitsStatement()); }

    CTempFolder folder_;
    std::string root_ = " --root " + Quoted(folder_.Path("root"));
};

TEST_F(CarriedTemplatesTest, AreSoundAndHaveNamesThatFit) {
    ASSERT_FALSE(CarriedTemplates().empty());
    for (const CarriedTemplate& carried : CarriedTemplates()) {
        EXPECT_LE(carried.name.size(), 10U);
        const CIniFile file = CIniFile::Parse(carried.text);
        EXPECT_TRUE(file.Problems().empty()) << carried.name;
        for (const TemplateFinding& finding : CheckTemplate(file))
            ADD_FAILURE() << carried.name << ": " << finding.text;
        EXPECT_GE(file.Integer("DEALFIELD", "FORMAT", -1), 0) << carried.name;
        EXPECT_EQ(CarriedTemplateText(carried.name), carried.text);
    }
    EXPECT_EQ(CarriedTemplateText("nope"), "");
}

TEST_F(CarriedTemplatesTest, ReadWhatNoLayoutReads) {
    PutStatement();
    const nlohmann::json json = JsonOf("report" + root_);
    ASSERT_EQ(json["money"]["Records"].size(), 1U);
    const nlohmann::json& values = json["money"]["Records"][0]["values"];
    EXPECT_EQ(values["QCQY"], 100000.0);
    EXPECT_EQ(values["CRJ"], 500.0);
    EXPECT_EQ(values["QMJC"], 100528.99);
    EXPECT_EQ(values["KHQY"], 100528.99);
    EXPECT_EQ(values["SXF"], 1.01);
    EXPECT_EQ(values["BZJZY"], 1000.0);
    EXPECT_EQ(values["QLJSZ"], 20.0);  // 30 - 10
    ASSERT_EQ(json["matches"].size(), 1U);
    EXPECT_EQ(json["matches"][0]["CONTRACT"], "i2609");
    EXPECT_EQ(json["matches"][0]["values"]["POUNDAGE"], 1.01);
    ASSERT_EQ(json["closed"].size(), 1U);
    EXPECT_EQ(json["run"]["template"], "units");
    bool isTold = false;
    for (const nlohmann::json& input : json["run"]["inputs"]) isTold |= input["kind"] == "carriedTemplate";
    EXPECT_TRUE(isTold) << json["run"]["inputs"];
}

TEST_F(CarriedTemplatesTest, AreNamedInTheNoteOfWhatWasChosen) {
    PutStatement();
    const Answer answer = Run("report" + root_);
    EXPECT_EQ(answer.exit, 0) << answer.err;
    EXPECT_TRUE(Says(answer.err, "reading format 3 (template units)")) << answer.err;
    EXPECT_TRUE(Says(Run("check" + root_).out, "nothing was found"));
}

TEST_F(CarriedTemplatesTest, GiveWayToATemplateOfTheRootWithTheirName) {
    PutStatement();
    folder_.Write("root/BillTemplate/units.ini",
                  Gbk("[DEALFIELD]\r\nFORMAT=1\r\nDATE_FORMAT=日期 Date：\r\nMONEY_MODE=0\r\n[MONEY_RECORD]\r\n"
                      "START_FLAG=资金状况\r\nEND_FLAG=权利金支出\r\nDELIMITER=SPACE\r\nLABEL_END=：\r\n"
                      "KHQY_NAME=期初结存 Balance B/F\r\nROWS_FROM=1\r\n"));
    const nlohmann::json json = JsonOf("report" + root_);
    EXPECT_EQ(json["money"]["Records"][0]["values"]["KHQY"], 100000.0) << "its own label for the equity";
    EXPECT_TRUE(json["matches"].empty());
}

TEST_F(CarriedTemplatesTest, CanBeNamed) {
    PutStatement();
    EXPECT_EQ(JsonOf("report --template units" + root_)["matches"].size(), 1U);
    EXPECT_EQ(Run("report --template nope" + root_).exit, 2);
}

TEST_F(CarriedTemplatesTest, LeaveStatementsOfFixedLayoutsAlone) {
    folder_.Write("root/Users/u/Data/Bill/D1.20240102o.txt",
                  Statement({"结算单", "日  期:20240102", "资金状况", "----------", "上日结存: 1.00 当日结存: 1.00",
                             "客户权益: 1.00 可用资金: 0.00", "----------"}));
    EXPECT_EQ(JsonOf("report" + root_)["run"]["template"], nullptr);
}

TEST_F(CarriedTemplatesTest, MakeTheReportOfDownloadsToo) {
    const std::string file = folder_.Write("somewhere/bill.txt", GbkToUtf8(UnitsStatement()));
    const Answer answer = Run("report " + Quoted(file) + " --out " + Quoted(folder_.Path("made")));
    EXPECT_EQ(answer.exit, 0) << answer.err;
    EXPECT_TRUE(Says(answer.out, "1 money, 1 trades, 1 closed")) << answer.out;
}

}  // namespace
}  // namespace tradebill::carried_templates_test
