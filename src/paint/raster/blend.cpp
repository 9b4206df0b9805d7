#include "paint/raster/blend.h"

#include <cstdint>
#include "paint/bitmap.h"
#include "paint/geometry.h"
#include "paint/picture.h"

namespace tradebill {

void BlendPicture(CBitmap& bitmap, const Box& seen, const CPicture& picture, Point leftTop) {
    const SeenPart rows(leftTop.y, picture.Height(), seen.top, seen.bottom);
    const SeenPart columns(leftTop.x, picture.Width(), seen.left, seen.right);
    for (std::int64_t y = rows.first; y < rows.end; ++y) {
        const std::uint32_t* const source = picture.Row(static_cast<std::int32_t>(y));
        std::uint32_t* const target = bitmap.Row(static_cast<std::int32_t>(leftTop.y + y));
        for (std::int64_t x = columns.first; x < columns.end; ++x) {
            std::uint32_t& under = target[leftTop.x + x];
            under = Blended(under, source[x], source[x] >> 24);
        }
    }
}

}  // namespace tradebill
