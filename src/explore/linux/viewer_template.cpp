#include "explore/viewer_template.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

// The assembler takes in the file as it is, with a label at either end.
asm(".pushsection .rodata\n"
    ".global tradebill_viewer\n.hidden tradebill_viewer\ntradebill_viewer:\n"
    ".incbin \"" TRADEBILL_VIEWER_FILE
    "\"\n"
    ".global tradebill_viewer_end\n.hidden tradebill_viewer_end\ntradebill_viewer_end:\n.byte 0\n"
    ".popsection\n");

#pragma GCC visibility push(hidden)
extern "C" {
extern const char tradebill_viewer[];
extern const char tradebill_viewer_end[];
}
#pragma GCC visibility pop

namespace tradebill {

std::string_view ViewerTemplate() {
    // Numbers, since for the compiler the two ends belong to different arrays.
    const auto end = reinterpret_cast<std::uintptr_t>(tradebill_viewer_end);
    return {tradebill_viewer, static_cast<std::size_t>(end - reinterpret_cast<std::uintptr_t>(tradebill_viewer))};
}

}  // namespace tradebill
