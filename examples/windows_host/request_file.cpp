#include "request_file.h"

#include <windows.h>

#include <cstddef>
#include <cstdio>
#include <cstring>

namespace {

constexpr char kSection[] = "REQUEST";

/// Relative paths would be looked for in the folder of Windows.
std::string FullPath(const std::string& path) {
    char full[MAX_PATH] = {};
    ::GetFullPathNameA(path.c_str(), MAX_PATH, full, nullptr);
    return full;
}

template <std::size_t Size>
void ReadText(char (&field)[Size], const char* key, const std::string& file) {
    ::GetPrivateProfileStringA(kSection, key, "", field, Size, file.c_str());
}

std::int32_t ReadNumber(const char* key, const std::string& file) {
    return static_cast<std::int32_t>(::GetPrivateProfileIntA(kSection, key, 0, file.c_str()));
}

}  // namespace

std::unique_ptr<GenerateBillRequest> ReadRequestFile(const std::string& path) {
    auto request = std::make_unique<GenerateBillRequest>();  // all zeros
    const std::string file = FullPath(path);
    char kind[16] = {};
    ReadText(kind, "kind", file);
    request->StatementKind = std::strcmp(kind, "foreign") == 0 ? 2 : 1;
    request->StatementFormat = ReadNumber("format", file);
    request->MarginOffsetFlag = ReadNumber("margin_offset", file);
    request->Dpi = ReadNumber("dpi", file);
    ReadText(request->TemplateName, "template", file);
    ReadText(request->StartDate, "from", file);
    ReadText(request->EndDate, "to", file);
    ReadText(request->Account, "account", file);
    ReadText(request->UserFolder, "user", file);
    request->BaseMoney.EXCHANGE_RATE = 1.0;
    return request;
}

void SetDates(GenerateBillRequest& request, const char* start, const char* end) {
    std::snprintf(request.StartDate, sizeof request.StartDate, "%s", start);
    std::snprintf(request.EndDate, sizeof request.EndDate, "%s", end);
}

std::string PageOf(const GenerateBillRequest& request, const std::string& root) {
    return root + "\\Users\\" + request.UserFolder + "\\Data\\Bill\\Image\\TradeBill.html";
}

std::string ProgramFolder() {
    char path[MAX_PATH] = {};
    ::GetModuleFileNameA(nullptr, path, MAX_PATH);
    char* const last = std::strrchr(path, '\\');
    return std::string(path, last);
}
