#include "explore/viewer_template.h"

#include <windows.h>

#include <string_view>

namespace tradebill {
namespace {

constexpr int kViewerId = 5100;  // resources/viewer.rc.in
constexpr int kAccountsId = 5101;

std::string_view ResourceOf(int id) {
    const HRSRC resource = ::FindResourceA(nullptr, MAKEINTRESOURCEA(id), MAKEINTRESOURCEA(10));  // RT_RCDATA
    if (resource == nullptr) return {};
    const auto* const bytes = static_cast<const char*>(::LockResource(::LoadResource(nullptr, resource)));
    return bytes != nullptr ? std::string_view(bytes, ::SizeofResource(nullptr, resource)) : std::string_view();
}

}  // namespace

std::string_view ViewerTemplate() {
    return ResourceOf(kViewerId);
}

std::string_view AccountsTemplate() {
    return ResourceOf(kAccountsId);
}

}  // namespace tradebill
