#include "readers/money_labels.h"

#include <gtest/gtest.h>

#include <span>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "readers/reader_fixture.h"
#include "report/records.h"

namespace tradebill::money_labels_test {
namespace {

constexpr MoneyLabel kLabels[] = {
    {Slot<&MoneyRecord::KHQY>, LabelMatch::Contains, "equity"},
    {Slot<&MoneyRecord::SXF>, LabelMatch::Equals, "fee:"},
    {Slot<&MoneyRecord::CRJ>, LabelMatch::Spaced, "cash", "flow"},
};

Fields ReadRow(const std::vector<std::string_view>& row, std::span<const MoneyLabel> labels = kLabels) {
    MoneyRecord record = ClearedMoneyRecord();
    ReadMoneyRow(Row(row), labels, record);
    return FieldsOf(record);
}

TEST(MoneyLabels, TakeTheColumnBehindTheLabel) {
    EXPECT_EQ(ReadRow({"equity", "1.00"}), (Fields{{"KHQY", "1.00"}}));
    EXPECT_EQ(ReadRow({"fee:", "2.00", "equity", "1.00"}), (Fields{{"SXF", "2.00"}, {"KHQY", "1.00"}}));
}

TEST(MoneyLabels, NeedASuccessor) {
    EXPECT_EQ(ReadRow({}), Fields{});
    EXPECT_EQ(ReadRow({"equity"}), Fields{});
    EXPECT_EQ(ReadRow({"fee:", "2.00", "equity"}), (Fields{{"SXF", "2.00"}}));
}

TEST(MoneyLabels, MayBeContainedInTheColumn) {
    EXPECT_EQ(ReadRow({"my-equity:", "1.00"}), (Fields{{"KHQY", "1.00"}}));
    EXPECT_EQ(ReadRow({"equit", "1.00"}), Fields{});
}

TEST(MoneyLabels, MayHaveToBeTheWholeColumn) {
    EXPECT_EQ(ReadRow({"fee", "2.00"}), Fields{});
    EXPECT_EQ(ReadRow({"fee::", "2.00"}), Fields{});
    EXPECT_EQ(ReadRow({"my-fee:", "2.00"}), Fields{});
}

TEST(MoneyLabels, MayFallApartIntoColumns) {
    EXPECT_EQ(ReadRow({"cash", "flow", "is", "3.00", "4.00"}), (Fields{{"CRJ", "3.00"}}));
    EXPECT_EQ(ReadRow({"(cash", "flow", "is", "3.00"}), (Fields{{"CRJ", "3.00"}}));
    EXPECT_EQ(ReadRow({"cash", "flow)", "is", "3.00"}), Fields{});
    EXPECT_EQ(ReadRow({"cash", "is", "flow", "3.00"}), Fields{});
    EXPECT_EQ(ReadRow({"cash", "flow", "is"}), Fields{});
}

TEST(MoneyLabels, AreTriedInEveryColumn) {
    EXPECT_EQ(ReadRow({"a", "b", "equity", "1.00"}), (Fields{{"KHQY", "1.00"}}));
    EXPECT_EQ(ReadRow({"equity", "fee:", "2.00"}), (Fields{{"KHQY", "fee:"}, {"SXF", "2.00"}}));
}

TEST(MoneyLabels, LetALaterColumnOverwriteAnEarlierOne) {
    EXPECT_EQ(ReadRow({"equity", "1.00", "equity-2", "2.00"}), (Fields{{"KHQY", "2.00"}}));
    EXPECT_EQ(ReadRow({"equity", "equity", "2.00"}), (Fields{{"KHQY", "2.00"}}));
}

TEST(MoneyLabels, LetALaterLabelOverwriteAnEarlierOneInTheSameColumn) {
    constexpr MoneyLabel kFirst[] = {
        {Slot<&MoneyRecord::CRJ>, LabelMatch::Contains, "cash"},
        {Slot<&MoneyRecord::CRJ>, LabelMatch::Spaced, "cash", "flow"},
    };
    constexpr MoneyLabel kSecond[] = {kFirst[1], kFirst[0]};
    const std::vector<std::string_view> row = {"cash", "flow", "is", "3.00"};
    EXPECT_EQ(ReadRow(row, kFirst), (Fields{{"CRJ", "3.00"}}));
    EXPECT_EQ(ReadRow(row, kSecond), (Fields{{"CRJ", "flow"}}));
}

TEST(MoneyLabels, OfOneColumnMayFillSeveralFields) {
    constexpr MoneyLabel kBoth[] = {
        {Slot<&MoneyRecord::KHQY>, LabelMatch::Contains, "equity"},
        {Slot<&MoneyRecord::QMJC>, LabelMatch::Contains, "closing"},
    };
    EXPECT_EQ(ReadRow({"closing-equity", "1.00"}, kBoth), (Fields{{"KHQY", "1.00"}, {"QMJC", "1.00"}}));
}

TEST(MoneyLabels, LeaveOtherFieldsAsTheyWere) {
    MoneyRecord record = ClearedMoneyRecord();
    CopyField(record.KHQY, "1.00");
    CopyField(record.QLJSZ, "5.00");
    const std::vector<std::string_view> row = {"fee:", "2.00"};
    ReadMoneyRow(Row(row), kLabels, record);
    EXPECT_EQ(FieldsOf(record), (Fields{{"KHQY", "1.00"}, {"SXF", "2.00"}, {"QLJSZ", "5.00"}}));
    EXPECT_EQ(record.EXCHANGE_RATE, 1.0);
}

TEST(MoneyLabels, CutTheValueToItsField) {
    EXPECT_EQ(ReadRow({"equity", "12345678901234567890"}), (Fields{{"KHQY", "123456789012345"}}));
}

}  // namespace
}  // namespace tradebill::money_labels_test
