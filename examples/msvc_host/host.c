/* A host for Microsoft's linkers, in C, without a C runtime: it needs the import library and kernel32 alone.
 *
 *     host.exe ROOT
 *
 * reads the account below ROOT and prints what was read. build.sh builds it with LLVM; Microsoft's own compiler takes
 * it as it is: cl /I include host.c /link /NODEFAULTLIB /ENTRY:Start /SUBSYSTEM:CONSOLE lib\TradeBill.lib kernel32.lib
 */
#include <stddef.h>
#include <stdint.h>

#include <tradebill/tradebill.h>

#define FROM_KERNEL __declspec(dllimport)
FROM_KERNEL void* GetStdHandle(uint32_t which);
FROM_KERNEL int WriteFile(void* file, const void* bytes, uint32_t count, uint32_t* written, void* overlapped);
FROM_KERNEL const wchar_t* GetCommandLineW(void);
FROM_KERNEL int WideCharToMultiByte(uint32_t page, uint32_t flags, const wchar_t* text, int length, char* bytes,
                                    int room, const char* other, int* used);
FROM_KERNEL void ExitProcess(uint32_t code);

enum { kStandardOutput = -11, kUtf8 = 65001, kLongestRoot = 1024 };

/* Compilers call these by themselves. */
void* memset(void* bytes, int value, size_t count) {
    char* at = bytes;
    while (count-- > 0) *at++ = (char)value;
    return bytes;
}

static void Say(const char* text) {
    uint32_t length = 0;
    uint32_t written;
    while (text[length] != 0) ++length;
    WriteFile(GetStdHandle((uint32_t)kStandardOutput), text, length, &written, NULL);
}

static void SayNumber(uint32_t number) {
    char digits[11];
    char* at = digits + sizeof digits - 1;
    *at = 0;
    do {
        *--at = (char)('0' + number % 10);
        number /= 10;
    } while (number > 0);
    Say(at);
}

/* What stands behind the program's name, as UTF-8. */
static const char* Root(char* room) {
    const wchar_t* at = GetCommandLineW();
    const wchar_t end = *at == L'"' ? *at++ : L' ';
    int length;
    while (*at != 0 && *at != end) ++at;
    while (*at == L'"' || *at == L' ') ++at;
    length = WideCharToMultiByte(kUtf8, 0, at, -1, room, kLongestRoot, NULL, NULL);
    while (length > 1 && (room[length - 2] == '"' || room[length - 2] == ' ')) room[--length - 1] = 0;
    return room;
}

static uint32_t Run(void) {
    char room[kLongestRoot];
    TradeBillReport* report = NULL;
    TradeBillRequest request;
    TradeBillTotals totals;
    int32_t result;
    memset(&request, 0, sizeof request);
    memset(&totals, 0, sizeof totals);
    request.Size = sizeof request;
    request.RootUtf8 = Root(room);
    totals.Size = sizeof totals;
    if (TradeBillOpen(&report) != TRADEBILL_DONE) return 1;
    result = TradeBillRead(report, &request);
    Say(TradeBillResultName(result));
    Say(" ");
    if (result == TRADEBILL_DONE && TradeBillTotal(report, &totals) == TRADEBILL_DONE) {
        SayNumber(totals.Statements);
        Say(" statements, ");
        SayNumber(totals.Records);
        Say(" records\n");
    } else {
        Say(TradeBillErrorUtf8(report));
        Say("\n");
    }
    TradeBillClose(report);
    return (uint32_t)result;
}

/* The linker's entry point. */
void Start(void) {
    ExitProcess(Run());
}
