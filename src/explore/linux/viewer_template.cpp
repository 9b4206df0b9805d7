#include "explore/viewer_template.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

// The assembler takes in the files as they are, each with a label at either end.
#define TRADEBILL_CARRY(LABEL, FILE)                                                                                 \
    asm(".pushsection .rodata\n.global " LABEL "\n.hidden " LABEL "\n" LABEL ":\n.incbin \"" TRADEBILL_VIEWER_FOLDER \
        "/" FILE "\"\n.global " LABEL "_end\n.hidden " LABEL "_end\n" LABEL "_end:\n.byte 0\n.popsection\n")
TRADEBILL_CARRY("tradebill_viewer", "explore.html");
TRADEBILL_CARRY("tradebill_accounts", "accounts.html");
#undef TRADEBILL_CARRY

#pragma GCC visibility push(hidden)
extern "C" {
extern const char tradebill_viewer[];
extern const char tradebill_viewer_end[];
extern const char tradebill_accounts[];
extern const char tradebill_accounts_end[];
}
#pragma GCC visibility pop

namespace tradebill {
namespace {

std::string_view Between(const char* begin, const char* end) {
    // Numbers, since for the compiler the two ends belong to different arrays.
    const auto size = reinterpret_cast<std::uintptr_t>(end) - reinterpret_cast<std::uintptr_t>(begin);
    return {begin, static_cast<std::size_t>(size)};
}

}  // namespace

std::string_view ViewerTemplate() {
    return Between(tradebill_viewer, tradebill_viewer_end);
}

std::string_view AccountsTemplate() {
    return Between(tradebill_accounts, tradebill_accounts_end);
}

}  // namespace tradebill
