#include "platform/embedded_picture.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

// The assembler takes in the files as they are, one behind the other, each with a label at its start.
#define TRADEBILL_PICTURE(label, file) \
    ".global " label "\n.hidden " label "\n" label ":\n.incbin \"" TRADEBILL_RESOURCES "/" file "\"\n"
asm(".pushsection .rodata\n"                                   //
    TRADEBILL_PICTURE("tradebill_title_bar", "title_bar.png")  //
    TRADEBILL_PICTURE("tradebill_expand", "expand.png")        //
    TRADEBILL_PICTURE("tradebill_shrink", "shrink.png")        //
    TRADEBILL_PICTURE("tradebill_banner", "banner.png")        //
    ".global tradebill_pictures_end\n.hidden tradebill_pictures_end\ntradebill_pictures_end:\n.byte 0\n"
    ".popsection\n");
#undef TRADEBILL_PICTURE

#pragma GCC visibility push(hidden)
extern "C" {
extern const char tradebill_title_bar[];
extern const char tradebill_expand[];
extern const char tradebill_shrink[];
extern const char tradebill_banner[];
extern const char tradebill_pictures_end[];
}
#pragma GCC visibility pop

namespace tradebill {
namespace {

struct EmbeddedFile {
    int id;
    const char* begin;
    const char* end;
};

constexpr EmbeddedFile kFiles[] = {
    {kTitleBarId, tradebill_title_bar, tradebill_expand},
    {kExpandId, tradebill_expand, tradebill_shrink},
    {kShrinkId, tradebill_shrink, tradebill_banner},
    {kBannerId, tradebill_banner, tradebill_pictures_end},
};

std::string_view BytesOf(const EmbeddedFile& file) {
    // Numbers, since for the compiler the two ends belong to different arrays.
    const auto size = reinterpret_cast<std::uintptr_t>(file.end) - reinterpret_cast<std::uintptr_t>(file.begin);
    return {file.begin, static_cast<std::size_t>(size)};
}

}  // namespace

std::string_view EmbeddedPicture(int id) {
    for (const EmbeddedFile& file : kFiles) {
        if (file.id == id) return BytesOf(file);
    }
    return {};
}

}  // namespace tradebill
