#include "requests/unit_table.h"

#include <gtest/gtest.h>

#include <string>

#include "requests/product_tables.h"
#include "support/gbk_text.h"
#include "support/temp_folder.h"

namespace tradebill::unit_table_test {
namespace {

const std::string kFile = std::string(TRADEBILL_SAMPLES) + "/units.ini";

TEST(CarriedUnits, AreTheFileByteForByte) {
    EXPECT_GT(UnitTableText().size(), 1000U);
    EXPECT_TRUE(UnitTableText() == ReadFile(kFile));
}

TEST(CarriedUnits, AnswerAsTheFileDoes) {
    CProductTables carried;
    carried.LoadCarriedUnits();
    CProductTables fromFile;
    fromFile.LoadUnits(kFile);
    for (const char* const contract : {"IF2402", "au2406", "T2403", "豆粕P2900", "股指", "PTAC", "xx"}) {
        EXPECT_EQ(carried.UnitOf(Gbk(contract), ""), fromFile.UnitOf(Gbk(contract), "")) << contract;
    }
    EXPECT_EQ(carried.UnitOf("au2406", ""), 1000);
}

}  // namespace
}  // namespace tradebill::unit_table_test
