#include <stdio.h>
#include <string.h>
#include <tradebill/report_request.h>

static void OnMessage(void* context, uint32_t message, uint64_t wParam, int64_t lParam) {
    (void)lParam;
    printf("%s: message %u, wParam %u\n", (const char*)context, (unsigned)message, (unsigned)wParam);
}

static int32_t UnitOf(const char* account, const char* contract, const char* delivery) {
    (void)account, (void)delivery;
    return strcmp(contract, "i") == 0 ? 100 : 10;
}

int main(int argc, char** argv) {
    static GenerateBillRequest request; /* 43 KB of zeros */
    char name[] = "report finished";
    if (argc != 2) return 2;
    SetRootFolder(argv[1]);
    request.HostWindow = CreateHostWindow(OnMessage, name);
    request.NotifyMessage = 1025;
    request.StatementFormat = 1;
    request.StatementKind = 1;
    request.ContractUnitCallback = UnitOf;
    request.BaseMoney.EXCHANGE_RATE = 1.0;
    strcpy(request.StartDate, "2024-1-2");
    strcpy(request.EndDate, "2024-2-5");
    strcpy(request.Account, "90010002");
    strcpy(request.UserFolder, "demo");
    const uint32_t error = TryGenerateBill(&request); /* blocks until the page is written */
    DestroyHostWindow(request.HostWindow);
    if (error != 0) printf("failed with 0x%08X\n", (unsigned)error);
    return error != 0;
}
