// The functions that a host finds in the module.
#include <new>

#include "base/report_error.h"
#include "driver/report_request.h"
#include "driver/report_run.h"
#include "platform/root_folder.h"

namespace tradebill {
namespace {

/// Only CReportError leaves the module.
void RunForHost(const GenerateBillRequest* request) {
    if (request == nullptr) throw CReportError(kErrorInvalidArgument);
    try {
        RunReport(*request, nullptr);
    } catch (const CReportError&) {
        throw;
    } catch (const std::bad_alloc&) {
        throw CReportError(kErrorOutOfMemory);
    } catch (...) {
        throw CReportError(kErrorUnspecified);
    }
}

}  // namespace
}  // namespace tradebill

void GenerateBill(const GenerateBillRequest* request) {
    tradebill::RunForHost(request);
}

std::uint32_t TryGenerateBill(const GenerateBillRequest* request) {
    try {
        tradebill::RunForHost(request);
    } catch (const tradebill::CReportError& error) {
        return error.Code();
    }
    return 0;
}

void SetRootFolder(const char* path) {
    if (path != nullptr) tradebill::SetRootFolderPath(path);
}
