// The surface of a host on which charts are repainted.
#pragma once

#include <cstdint>
#include <functional>

#include "driver/report_request.h"
#include "paint/bitmap.h"
#include "paint/picture.h"

// No target may be null.
namespace tradebill {

/// Copies the pixels of `part` of `bitmap` to `target`, the left top corner of the part to `at`. What lies outside of
/// either is left out.
[[nodiscard]] std::int32_t ShowOnSurface(ChartTarget* target, const CBitmap& bitmap, const Box& part, Point at);

void SetSurfaceStatus(ChartTarget* target, std::int32_t status);

/// Hands `picture` to `paint` as a host hands over its surface, and returns the last status it was left with.
[[nodiscard]] std::int32_t PaintAsHost(CPicture& picture, const std::function<void(ChartTarget* target)>& paint);

}  // namespace tradebill
