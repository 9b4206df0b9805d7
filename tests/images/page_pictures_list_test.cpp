// Which of the report's pictures a page shows: all but the bar that no section has.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "images/report_images.h"

namespace tradebill::page_pictures_list_test {
namespace {

TEST(PagePicturesList, HoldsButtonsBarsTablesAndCharts) {
    EXPECT_THAT(PagePictures(),
                testing::UnorderedElementsAre("BillShrink.png", "BillExpand.png",           // buttons
                                              "AccountSummary.jpg", "TradeStatistics.jpg",  // bars
                                              "LastPositions.jpg", "MatchDetails.jpg", "OffsetRecords.jpg",
                                              "AccountDetail.jpg", "AccountStatics.jpg",                  // tables
                                              "AccountFigure.jpg", "HealthFigure.jpg", "RiskFigure.jpg",  // charts
                                              "OffsetFigure.jpg"));
}

}  // namespace
}  // namespace tradebill::page_pictures_list_test
