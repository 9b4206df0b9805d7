#include "driver/host_module.h"

#include <gtest/gtest.h>

#include <cstdint>

#include "platform/root_folder.h"
#include "platform/screen.h"

namespace tradebill::host_module_test {
namespace {

TEST(HostModuleReport, LiesInTheProgramsFolderUntilAnotherIsSet) {
    HostModule module;
    EXPECT_EQ(module.ReportForRun().RootFolder, ProgramFolder());
    module.rootFolder = "/elsewhere";
    EXPECT_EQ(module.ReportForRun().RootFolder, "/elsewhere");
    module.rootFolder = "";  // set, if to nothing
    EXPECT_EQ(module.ReportForRun().RootFolder, "");
}

TEST(HostModuleReport, IsAsWideAsTheDisplayUntilAWidthIsSet) {
    HostModule module;
    for (const std::int32_t width : {0, -5}) {
        module.screenWidth = width;
        EXPECT_EQ(module.ReportForRun().ScreenWidth, DisplayWidth()) << width;
    }
    for (const std::int32_t width : {2560, 1}) {
        module.screenWidth = width;
        EXPECT_EQ(module.ReportForRun().ScreenWidth, width);
    }
}

TEST(HostModuleReport, IsTheSameForEveryCall) {
    HostModule module;
    CReport& report = module.ReportForRun();
    EXPECT_EQ(&module.ReportForRun(), &report);
    EXPECT_NE(&report, &TheModule().report);
    EXPECT_EQ(&TheModule(), &TheModule());
}

TEST(HostModuleReport, AsksTheCallbacksOfItsOwnRequest) {
    HostModule module;
    CReport& report = module.ReportForRun();
    EXPECT_EQ(report.AskContractUnit("cu", "1105"), 1);
    report.Request.ContractUnitCallback = [](const char*, const char*, const char*) { return 5; };
    EXPECT_EQ(report.AskContractUnit("cu", "1105"), 5);
}

TEST(HostModuleReport, IsAsWideForChartsAsForRuns) {
    HostModule module;
    EXPECT_EQ(module.ReportForChart().ScreenWidth, DisplayWidth());
    module.screenWidth = 2560;
    EXPECT_EQ(module.ReportForChart().ScreenWidth, 2560);
}

}  // namespace
}  // namespace tradebill::host_module_test
