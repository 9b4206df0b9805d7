#include "export/row_values.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <variant>

#include "export/table.h"
#include "support/gbk_text.h"

namespace tradebill::row_values_test {
namespace {

class RowValues : public testing::Test {
protected:
    CellValue ValueOf(const ExportCell& cell) {
        const std::array<ExportCell, 1> cells{cell};
        return values_.Of(cells).front();
    }
    /// The text that becomes of it; "nothing" if none does.
    std::string TextOf(const ExportCell& cell) {
        const CellValue value = ValueOf(cell);
        const auto* const text = std::get_if<std::string_view>(&value);
        return text == nullptr ? "nothing" : std::string(*text);
    }

    CRowValues values_;
};

TEST_F(RowValues, GivesTextsInUtf8) {
    EXPECT_EQ(TextOf(GbkCell{"m2405"}), "m2405");
    EXPECT_EQ(TextOf(GbkCell{Gbk("大商所")}), "大商所");
    EXPECT_EQ(TextOf(Utf8Cell{"大商所"}), "大商所");
}

TEST_F(RowValues, GivesALongTextAsWell) {
    std::string text;
    for (int i = 0; i < 100; ++i) text += "螺纹钢";
    EXPECT_EQ(TextOf(GbkCell{Gbk(text)}), text);
}

TEST_F(RowValues, PutsAReplacementForBytesOfNoCharacter) {
    EXPECT_EQ(TextOf(GbkCell{"a\xFF"}), "a\xEF\xBF\xBD");
    EXPECT_EQ(TextOf(Utf8Cell{"a\xC0z"}), "a\xEF\xBF\xBDz");
}

TEST_F(RowValues, GivesNothingForEmptyTexts) {
    EXPECT_EQ(ValueOf(GbkCell{""}), CellValue());
    EXPECT_EQ(ValueOf(Utf8Cell{""}), CellValue());
    EXPECT_EQ(ValueOf(DayCell{""}), CellValue());
    EXPECT_EQ(ValueOf(std::monostate()), CellValue());
}

TEST_F(RowValues, GivesDaysWithDashes) {
    EXPECT_EQ(TextOf(DayCell{"20240131"}), "2024-01-31");
    EXPECT_EQ(TextOf(DayCell{"2024-12-01"}), "2024-12-01");
    EXPECT_EQ(TextOf(DayCell{"20240229"}), "2024-02-29");
}

TEST_F(RowValues, GivesNothingForWhatIsNoDay) {
    for (const char* const text :
         {"20241301", "20240001", "20240132", "20240100", "20240230", "2023-02-29", "2024011", "202401311",
          "2024/01/31", "2024-1-31", "abcdefgh", "2024013x", "20241x01", "2024-01/31", "--"}) {
        EXPECT_EQ(TextOf(DayCell{text}), "nothing") << text;
    }
}

TEST_F(RowValues, GivesNumbersAsTheyAre) {
    EXPECT_EQ(ValueOf(-1.25), CellValue(-1.25));
    EXPECT_EQ(ValueOf(std::int64_t{1} << 40), CellValue(std::int64_t{1} << 40));
}

TEST_F(RowValues, GivesNoNumberThatIsNoneAndNoMinusZero) {
    EXPECT_EQ(ValueOf(std::numeric_limits<double>::infinity()), CellValue());
    EXPECT_EQ(ValueOf(-std::numeric_limits<double>::infinity()), CellValue());
    EXPECT_EQ(ValueOf(std::numeric_limits<double>::quiet_NaN()), CellValue());
    EXPECT_FALSE(std::signbit(std::get<double>(ValueOf(-0.0))));
}

TEST_F(RowValues, KeepsTheTextsOfARowApart) {
    // Texts of the same hash take one another's place among those that are known.
    std::array<ExportCell, 300> cells;
    std::array<std::string, 300> names;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        names[i] = Gbk("品种" + std::to_string(i));
        cells[i] = GbkCell{names[i]};
    }
    const auto values = values_.Of(cells);
    for (std::size_t i = 0; i < cells.size(); ++i) {
        EXPECT_EQ(std::get<std::string_view>(values[i]), "品种" + std::to_string(i));
    }
}

}  // namespace
}  // namespace tradebill::row_values_test
