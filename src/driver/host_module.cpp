#include "driver/host_module.h"

#include "base/shortage.h"
#include "platform/root_folder.h"
#include "platform/screen.h"
#include "report/report.h"

namespace tradebill {
namespace {

HostModule Module;

}  // namespace

CReport& HostModule::ReportForRun() {
    if (hasLostRoot) throw CShortage("the root folder could not be kept: out of memory");
    report.RootFolder = rootFolder ? *rootFolder : ProgramFolder();
    report.ScreenWidth = screenWidth > 0 ? screenWidth : DisplayWidth();
    report.Products = &products;
    return report;
}

const CReport& HostModule::ReportForChart() {
    report.ScreenWidth = screenWidth > 0 ? screenWidth : DisplayWidth();
    return report;
}

HostModule& TheModule() {
    return Module;
}

}  // namespace tradebill
