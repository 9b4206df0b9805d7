/* A host in C from end to end. */
#include "driver/linux/host_in_c.h"

#include <stddef.h>

#include "driver/report_request.h"

static void CountMessage(void* context, uint32_t message, uint64_t wParam, int64_t lParam) {
    (void)message, (void)wParam, (void)lParam;
    ++*(int*)context;
}

static int32_t UnitOf(const char* account, const char* contract, const char* delivery) {
    return account[0] + contract[0] + delivery[0];
}

static void TakeSizes(const ChartSizeReport* report) {
    (void)report;
}

static int32_t CodeOf(const char* name, char* code) {
    code[0] = name[0];
    return 1;
}

int RunHostInC(void) {
    static GenerateBillRequest request;
    int messages = 0;
    request.HostWindow = CreateHostWindow(CountMessage, &messages);
    request.StopEvent = CreateHostEvent(1);
    request.AckEvent = CreateHostEvent(0);
    request.ContractUnitCallback = UnitOf;
    request.ChartSizeCallback = TakeSizes;
    request.ProductNameCallback = CodeOf;
    if (request.HostWindow == NULL || request.StopEvent == NULL || request.AckEvent == NULL) return 1;
    if (WaitForHostEvent(request.StopEvent, 0) != 0) return 2;
    SignalHostEvent(request.StopEvent);
    if (WaitForHostEvent(request.StopEvent, 0) != 1 || WaitForHostEvent(request.StopEvent, 0) != 1) return 3;
    ResetHostEvent(request.StopEvent);
    if (WaitForHostEvent(request.StopEvent, 0) != 0) return 4;
    SignalHostEvent(request.AckEvent);
    if (WaitForHostEvent(request.AckEvent, -1) != 1 || WaitForHostEvent(request.AckEvent, 0) != 0) return 5;
    if (TryGenerateBill(NULL) == 0 || messages != 0) return 6;
    DestroyHostEvent(request.AckEvent);
    DestroyHostEvent(request.StopEvent);
    DestroyHostWindow(request.HostWindow);
    return 0;
}
