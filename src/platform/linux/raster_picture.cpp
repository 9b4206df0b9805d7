#include "platform/linux/blend.h"
#include "platform/linux/raster.h"

namespace tradebill {

void CRaster::DrawPicture(const CPicture& picture, Point leftTop) {
    const SeenPart rows(leftTop.y, picture.Height(), seen_.top, seen_.bottom);
    const SeenPart columns(leftTop.x, picture.Width(), seen_.left, seen_.right);
    for (std::int64_t y = rows.first; y < rows.end; ++y) {
        const std::uint32_t* const source = picture.Row(static_cast<std::int32_t>(y));
        std::uint32_t* const target = bitmap_.Row(static_cast<std::int32_t>(leftTop.y + y));
        for (std::int64_t x = columns.first; x < columns.end; ++x) {
            std::uint32_t& under = target[leftTop.x + x];
            under = Blended(under, source[x], source[x] >> 24);
        }
    }
}

}  // namespace tradebill
