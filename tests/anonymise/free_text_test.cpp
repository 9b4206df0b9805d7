// Names that the lines beside the tables speak of.
#include "anonymise/free_text.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "anonymise/hand_sheet.h"
#include "anonymise/identity_map.h"

namespace tradebill::free_text_test {
namespace {

/// `utf8` as GBK, with what `names` know hidden.
std::string Hidden(const CKnownNames& names, std::string_view utf8) {
    std::string text = Gbk(utf8);
    CIdentityMap identities(1);
    names.Hide(text, CSheetWatch(text), identities);
    return text;
}

void LearnLine(CKnownNames& names, std::string_view utf8) {
    const std::string text = Gbk(utf8);
    StatementSheet sheet;
    sheet.text = text;
    names.Learn(sheet);
}

TEST(FreeText, HidesCompaniesOfSeldomCharacters) {
    EXPECT_EQ(Hidden({}, "（丂丄期货有限公司）"), Gbk("（某某期货有限公司）"));
}

TEST(FreeText, HidesLatinCompaniesFromTheirLinesBegin) {
    EXPECT_EQ(Hidden({}, "Yunmushan Futures Co., Ltd 2024\nSettled"), "Xxxxxxxxx Xxxxxxx Co., Ltd 2024\nSettled");
    EXPECT_EQ(Hidden({}, "Yunmushan Limited"), "Xxxxxxxxx Limited");
}

TEST(FreeText, FindsANameElsewhereOnlyIfItIsNoWordOfAnySentence) {
    CKnownNames names;
    LearnLine(names, "云期货有限公司");
    EXPECT_EQ(Hidden(names, "云在山上"), Gbk("云在山上")) << "one character";
    LearnLine(names, "云母期货有限公司");
    EXPECT_EQ(Hidden(names, "云母在山上"), Gbk("某某在山上"));
    LearnLine(names, "我们在交易日以前把结算单交给您的期货有限公司");
    EXPECT_EQ(Hidden(names, "我们在交易日以前把结算单交给您的"), Gbk("我们在交易日以前把结算单交给您的"))
        << "a sentence";
}

TEST(FreeText, LearnsNamesFromLabelsButNotFromTables) {
    const auto learned = [](bool isInTable) {
        CHandSheet hand({{{{"平安", Meaning::Name}, {"778812", Meaning::Identity}},
                          {.firstCell = 0, .cells = 0, .table = 0, .isInTable = isInTable}}});
        CKnownNames names;
        names.Learn(hand.Sheet());
        return names;
    };
    EXPECT_EQ(Hidden(learned(true), "平安 778812"), Gbk("平安 778812"));
    const std::string hidden = Hidden(learned(false), "平安 778812");
    EXPECT_TRUE(hidden.starts_with(Gbk("某某 "))) << hidden;
    EXPECT_EQ(hidden.find("778812"), std::string::npos) << hidden;
}

}  // namespace
}  // namespace tradebill::free_text_test
