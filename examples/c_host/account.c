/* Two accounts at once, in C: account ROOT-OF-ONE ROOT-OF-ANOTHER */
#include <stdio.h>
#include <tradebill/tradebill.h>

static int32_t OnProgress(void* context, const TradeBillProgress* progress) {
    if (progress->Day > 0 && progress->Day == progress->Days)
        printf("%s: %d days\n", (const char*)context, (int)progress->Days);
    return 0; /* go on */
}

static int ShowAccount(const char* root, TradeBillReport* report) {
    TradeBillRequest request = {0}; /* what stays 0 is found */
    TradeBillTotals totals = {0};
    int32_t result;
    request.Size = sizeof request;
    totals.Size = sizeof totals;
    request.RootUtf8 = root;
    request.Progress = OnProgress;
    request.Context = (void*)root;
    result = TradeBillRead(report, &request);
    if (result != TRADEBILL_DONE) {
        printf("%s: %s\n", TradeBillResultName(result), TradeBillErrorUtf8(report));
        if (result != TRADEBILL_INCOMPLETE) return 1;
    }
    TradeBillTotal(report, &totals);
    printf("%u statements, %u records, %u errors\n", (unsigned)totals.Statements, (unsigned)totals.Records,
           (unsigned)totals.Errors);
    return result;
}

int main(int argc, char** argv) {
    TradeBillReport* reports[2] = {NULL, NULL};
    int failures = 0;
    int i;
    if (argc != 3) return 2;
    for (i = 0; i < 2; ++i) {
        if (TradeBillOpen(&reports[i]) != TRADEBILL_DONE || ShowAccount(argv[i + 1], reports[i]) != 0) ++failures;
    }
    for (i = 0; i < 2; ++i) TradeBillClose(reports[i]); /* both were open at the same time */
    return failures;
}
