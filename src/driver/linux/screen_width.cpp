// Hosts on Linux say how wide their display is; on Windows the system does.
#include <cstdint>
#include "driver/host_module.h"
#include "driver/report_request.h"

void SetScreenWidth(std::int32_t width) {
    tradebill::TheModule().screenWidth = width;
}
