#include "platform/embedded_picture.h"

#include <windows.h>

namespace tradebill {
namespace {

/// The module that this code lies in, be it a DLL or a program.
HMODULE OwnModule() {
    constexpr DWORD kByAddress = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    static const char anchor = 0;
    HMODULE module = nullptr;
    ::GetModuleHandleExA(kByAddress, &anchor, &module);
    return module;
}

}  // namespace

std::string_view EmbeddedPicture(int id) {
    const HMODULE module = OwnModule();
    const HRSRC resource = ::FindResourceA(module, MAKEINTRESOURCEA(id), "PNG");
    if (resource == nullptr) return {};
    const auto* const bytes = static_cast<const char*>(::LockResource(::LoadResource(module, resource)));
    return bytes != nullptr ? std::string_view(bytes, ::SizeofResource(module, resource)) : std::string_view();
}

}  // namespace tradebill
