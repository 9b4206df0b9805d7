#include "base/report_error.h"

#include <gtest/gtest.h>

#include <string>

namespace tradebill::report_error_test {
namespace {

TEST(ReportError, CarriesItsCode) {
    EXPECT_EQ(CReportError(0x80004005).Code(), kErrorUnspecified);
    EXPECT_EQ(CReportError(0x80070057).Code(), kErrorInvalidArgument);
    EXPECT_EQ(CReportError(0x8007000E).Code(), kErrorOutOfMemory);
}

TEST(ReportError, SaysWhatWentWrong) {
    EXPECT_NE(std::string(CReportError(kErrorUnspecified).what()).find("date"), std::string::npos);
    EXPECT_NE(std::string(CReportError(kErrorInvalidArgument).what()).find("1970"), std::string::npos);
    EXPECT_FALSE(std::string(CReportError(1).what()).empty());
}

TEST(ReportError, TellsItsPlaceIfItIsKnown) {
    EXPECT_EQ(CReportError(1).Place().line, 0);
    EXPECT_EQ(CReportError(1).Place().section, "");
    const CReportError placed(1, {.line = 7, .section = "trades"});
    EXPECT_EQ(placed.Place().line, 7);
    EXPECT_EQ(placed.Place().section, "trades");
}

}  // namespace
}  // namespace tradebill::report_error_test
