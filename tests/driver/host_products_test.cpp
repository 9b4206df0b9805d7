#include "driver/host_products.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <optional>
#include <string>

#include "base/text.h"
#include "report/request_copy.h"

namespace tradebill::host_products_test {
namespace {

struct Question {
    std::string account;
    std::string contract;
    std::string delivery;
};
Question LastQuestion;
std::string LastName;

std::int32_t KeepQuestion(const char* account, const char* contract, const char* delivery) {
    LastQuestion = {account, contract, delivery};
    return -10;
}

std::int32_t CodeOfCopper(const char* name, char* code) {
    LastName = name;
    std::strcpy(code, "cu");
    return LastName == "copper" ? 1 : 0;
}

std::int32_t SayTwo(const char*, char* code) {
    std::strcpy(code, "cu");
    return 2;
}

class HostProducts : public testing::Test {
protected:
    GenerateBillRequest request_ = ClearedRequest();
    CHostProducts products_{request_};
};

TEST_F(HostProducts, AskForAUnitWithTheAccount) {
    request_.ContractUnitCallback = KeepQuestion;
    CopyField(request_.Account, "80012345");
    EXPECT_EQ(products_.UnitOf("cu", "1105"), -10);
    EXPECT_EQ(LastQuestion.account, "80012345");
    EXPECT_EQ(LastQuestion.contract, "cu");
    EXPECT_EQ(LastQuestion.delivery, "1105");
}

TEST_F(HostProducts, CutTheTextsOfTheQuestionAt63Bytes) {
    request_.ContractUnitCallback = KeepQuestion;
    EXPECT_EQ(products_.UnitOf(std::string(63, 'c'), std::string(70, 'd')), -10);
    EXPECT_EQ(LastQuestion.contract, std::string(63, 'c'));
    EXPECT_EQ(LastQuestion.delivery, std::string(63, 'd'));
    EXPECT_EQ(products_.UnitOf(std::string(64, 'c'), ""), -10);
    EXPECT_EQ(LastQuestion.contract, std::string(63, 'c'));
    EXPECT_EQ(LastQuestion.delivery, "");
}

TEST_F(HostProducts, HaveUnitsOfOneAndNoCodesWithoutCallbacks) {
    EXPECT_EQ(products_.UnitOf("cu", "1105"), 1);
    EXPECT_EQ(products_.CodeOf("copper"), std::nullopt);
}

TEST_F(HostProducts, GiveTheCodeOfANameForTheAnswerOneAlone) {
    request_.ProductNameCallback = CodeOfCopper;
    EXPECT_EQ(products_.CodeOf("copper"), "cu");
    EXPECT_EQ(products_.CodeOf("tin"), std::nullopt);
    request_.ProductNameCallback = SayTwo;
    EXPECT_EQ(products_.CodeOf("copper"), std::nullopt);
}

TEST_F(HostProducts, CutNamesAt31Bytes) {
    request_.ProductNameCallback = CodeOfCopper;
    EXPECT_EQ(products_.CodeOf(std::string(32, 'n')), std::nullopt);
    EXPECT_EQ(LastName, std::string(31, 'n'));
}

}  // namespace
}  // namespace tradebill::host_products_test
