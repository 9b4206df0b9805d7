// A host that loads the module, puts itself between it and the system's functions for files, and makes one of them
// fail.
//
// import_faults MODULE ROOT USER ACCOUNT FROM TO FORMAT
//
// Makes a report for each line of standard input: "list", or "NUMBER FUNCTION HOW" with HOW
//   once   the function's call with this number, from 1, isn't made and fails
//   ever   this call and all later ones of the function do
//   half   the call moves half of its bytes
// Answers with a line "call FUNCTION OBJECT" for each call, or without "list" for each that was meddled with, and a
// line "end CODE WORDS" with what the module says of the run, its lines joined by " / ". A CloseHandle always closes.
#include <windows.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "driver/report_request.h"

namespace tradebill {
namespace {

enum class Argument : std::uint8_t { Path, Handle, None };

struct Import {
    const char* name;
    std::uintptr_t failure;  ///< what it returns
    DWORD error;
    Argument first = Argument::Handle;
};

constexpr std::uintptr_t kNoHandle = ~std::uintptr_t{0};

// clang-format off
constexpr Import kImports[] = {
    {"CreateFileA",                kNoHandle,               ERROR_ACCESS_DENIED,   Argument::Path},
    {"CreateFileW",                kNoHandle,               ERROR_ACCESS_DENIED,   Argument::None},
    {"ReadFile",                   FALSE,                   ERROR_CRC},
    {"WriteFile",                  FALSE,                   ERROR_DISK_FULL},
    {"CloseHandle",                FALSE,                   ERROR_WRITE_FAULT},
    {"FlushFileBuffers",           FALSE,                   ERROR_WRITE_FAULT},
    {"SetEndOfFile",               FALSE,                   ERROR_DISK_FULL},
    {"SetFilePointerEx",           FALSE,                   ERROR_SEEK},
    {"SetFileInformationByHandle", FALSE,                   ERROR_ACCESS_DENIED},
    {"GetFileSizeEx",              FALSE,                   ERROR_CRC},
    {"GetFileInformationByHandle", FALSE,                   ERROR_CRC},
    {"GetFileInformationByHandleEx", FALSE,                 ERROR_CRC},
    {"GetFinalPathNameByHandleA",  0,                       ERROR_ACCESS_DENIED},
    {"GetFileAttributesA",         INVALID_FILE_ATTRIBUTES, ERROR_ACCESS_DENIED,   Argument::Path},
    {"GetFileAttributesW",         INVALID_FILE_ATTRIBUTES, ERROR_ACCESS_DENIED,   Argument::None},
    {"GetFileAttributesExA",       FALSE,                   ERROR_ACCESS_DENIED,   Argument::Path},
    {"SetFileAttributesA",         FALSE,                   ERROR_ACCESS_DENIED,   Argument::Path},
    {"GetFullPathNameA",           0,                       ERROR_NOT_ENOUGH_MEMORY, Argument::Path},
    {"MoveFileExA",                FALSE,                   ERROR_SHARING_VIOLATION, Argument::Path},
    {"MoveFileExW",                FALSE,                   ERROR_SHARING_VIOLATION, Argument::None},
    {"ReplaceFileA",               FALSE,                   ERROR_SHARING_VIOLATION, Argument::Path},
    {"CopyFileA",                  FALSE,                   ERROR_DISK_FULL,       Argument::Path},
    {"DeleteFileA",                FALSE,                   ERROR_SHARING_VIOLATION, Argument::Path},
    {"DeleteFileW",                FALSE,                   ERROR_SHARING_VIOLATION, Argument::None},
    {"CreateDirectoryA",           FALSE,                   ERROR_ACCESS_DENIED,   Argument::Path},
    {"RemoveDirectoryA",           FALSE,                   ERROR_SHARING_VIOLATION, Argument::Path},
    {"FindFirstFileA",             kNoHandle,               ERROR_ACCESS_DENIED,   Argument::Path},
    {"FindNextFileA",              FALSE,                   ERROR_CRC,             Argument::None},
    {"LockFileEx",                 FALSE,                   ERROR_NOT_ENOUGH_MEMORY},
    {"UnlockFileEx",               FALSE,                   ERROR_NOT_LOCKED},
    {"CreateFileMappingA",         0,                       ERROR_NOT_ENOUGH_MEMORY},
    {"MapViewOfFile",              0,                       ERROR_NOT_ENOUGH_MEMORY, Argument::None},
};
// clang-format on
constexpr std::size_t kImportCount = std::size(kImports);

enum class How : std::uint8_t { List, Once, Ever, Half };

/// What is to happen in the current run. One run at a time, and the module's own thread only waits.
struct Plan {
    How how = How::List;
    std::string function;
    int at = 0;
    int calls = 0;  ///< of the function so far
};
Plan Current;
std::array<std::uintptr_t, kImportCount> Originals;

std::string ObjectOf(Argument kind, std::uintptr_t argument) {
    std::array<char, MAX_PATH + 1> path{};
    if (kind == Argument::Path) return argument == 0 ? std::string() : reinterpret_cast<const char*>(argument);
    if (kind == Argument::None) return {};
    const DWORD size = ::GetFinalPathNameByHandleA(reinterpret_cast<HANDLE>(argument), path.data(), MAX_PATH, 0);
    return size < path.size() ? std::string(path.data(), size) : std::string();
}

/// Whether this call of `import` is one to meddle with.
bool IsChosen(const Import& import) {
    if (Current.how == How::List) return false;
    if (Current.function != import.name) return false;
    ++Current.calls;
    return Current.how == How::Ever ? Current.calls >= Current.at : Current.calls == Current.at;
}

/// What the module calls instead of an import. Whatever its parameters are, they are whole words in these places.
template <std::size_t index>
std::uintptr_t WINAPI Between(std::uintptr_t a, std::uintptr_t b, std::uintptr_t c, std::uintptr_t d, std::uintptr_t e,
                              std::uintptr_t f, std::uintptr_t g, std::uintptr_t h) {
    constexpr const Import& kImport = kImports[index];
    const auto original = reinterpret_cast<decltype(&Between<index>)>(Originals[index]);
    const bool chosen = IsChosen(kImport);
    if (chosen || Current.how == How::List) {
        const DWORD before = ::GetLastError();
        std::cout << "call " << kImport.name << ' ' << ObjectOf(kImport.first, a) << '\n';
        ::SetLastError(before);
    }
    const bool moves = std::string_view(kImport.name) == "ReadFile" || std::string_view(kImport.name) == "WriteFile";
    if (chosen && Current.how == How::Half) return original(a, b, moves ? static_cast<DWORD>(c) / 2 : c, d, e, f, g, h);
    if (!chosen) return original(a, b, c, d, e, f, g, h);
    if (std::string_view(kImport.name) == "CloseHandle") original(a, b, c, d, e, f, g, h);
    ::SetLastError(kImport.error);
    return kImport.failure;
}

template <std::size_t... indices>
std::array<std::uintptr_t, kImportCount> AllBetween(std::index_sequence<indices...>) {
    return {reinterpret_cast<std::uintptr_t>(&Between<indices>)...};
}

/// Puts Between in the place of one of the module's imports if it is of the table.
void Patch(const char* name, IMAGE_THUNK_DATA& place) {
    static const auto kBetween = AllBetween(std::make_index_sequence<kImportCount>());
    const auto* const found = std::find_if(std::begin(kImports), std::end(kImports),
                                           [&](const Import& import) { return std::strcmp(import.name, name) == 0; });
    if (found == std::end(kImports)) return;
    const auto index = static_cast<std::size_t>(found - kImports);
    DWORD before = 0;
    ::VirtualProtect(&place, sizeof place, PAGE_READWRITE, &before);
    Originals[index] = place.u1.Function;
    place.u1.Function = kBetween[index];
    ::VirtualProtect(&place, sizeof place, before, &before);
}

void PatchImports(HMODULE module) {
    auto* const base = reinterpret_cast<std::byte*>(module);
    const auto& dos = *reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto& headers = *reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos.e_lfanew);
    const auto& folder = headers.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    const auto* from = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + folder.VirtualAddress);
    for (; from->Name != 0; ++from) {
        const auto* names = reinterpret_cast<const IMAGE_THUNK_DATA*>(base + from->OriginalFirstThunk);
        auto* place = reinterpret_cast<IMAGE_THUNK_DATA*>(base + from->FirstThunk);
        for (; names->u1.AddressOfData != 0; ++names, ++place) {
            if (IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal)) continue;
            Patch(reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + names->u1.AddressOfData)->Name, *place);
        }
    }
}

template <std::size_t size>
void Fill(char (&field)[size], std::string_view text) {
    std::copy_n(text.begin(), std::min(text.size(), size - 1), field);
}

std::unique_ptr<GenerateBillRequest> RequestOf(char** arguments) {
    auto request = std::make_unique<GenerateBillRequest>();
    Fill(request->UserFolder, arguments[0]);
    Fill(request->Account, arguments[1]);
    Fill(request->StartDate, arguments[2]);
    Fill(request->EndDate, arguments[3]);
    request->StatementFormat = std::atoi(arguments[4]);
    request->StatementKind = 1;
    request->BaseMoney.EXCHANGE_RATE = 1.0;
    return request;
}

bool ReadPlan(const std::string& line) {
    Current = {};
    if (line == "list") return true;
    std::istringstream words(line);
    std::string how;
    if (!(words >> Current.at >> Current.function >> how)) return false;
    Current.how = how == "once" ? How::Once : how == "ever" ? How::Ever : How::Half;
    return how == "once" || how == "ever" || how == "half";
}

template <typename Function>
Function* Exported(HMODULE module, const char* name) {
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(::GetProcAddress(module, name)));
}

int Serve(HMODULE module, char** arguments) {
    auto* const setRootFolder = Exported<void(const char*)>(module, "SetRootFolder");
    auto* const generate = Exported<std::uint32_t(const GenerateBillRequest*)>(module, "TryGenerateBill");
    auto* const lastError = Exported<const char*()>(module, "TradeBillLastError");
    if (setRootFolder == nullptr || generate == nullptr || lastError == nullptr) return 2;
    setRootFolder(arguments[0]);
    const auto request = RequestOf(arguments + 1);
    for (std::string line; std::getline(std::cin, line);) {
        if (!ReadPlan(line)) return 2;
        const std::uint32_t code = generate(request.get());
        std::string words = lastError();
        for (std::size_t end = words.find('\n'); end != std::string::npos; end = words.find('\n'))
            words.replace(end, 1, " / ");
        std::cout << "end " << code << ' ' << words << std::endl;
    }
    return 0;
}

}  // namespace
}  // namespace tradebill

int main(int count, char** arguments) {
    if (count != 8) return 2;
    const HMODULE module = ::LoadLibraryA(arguments[1]);
    if (module == nullptr) return 3;
    tradebill::PatchImports(module);
    return tradebill::Serve(module, arguments + 2);
}
