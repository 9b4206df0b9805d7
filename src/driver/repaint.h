// One chart again, at a size that the host chooses.
#pragma once

#include "driver/report_request.h"
#include "paint/canvas.h"
#include "paint/picture_file.h"

namespace tradebill {

using ChartPainter = void(CCanvas& canvas, const Box& rect);

/// Paints into `rect` of a painting area of `size` and draws that part on `target`, centred in the area. Lets no
/// exception out: what goes wrong is a status of the target. Nothing for a null or for an empty rectangle.
void Repaint(ChartTarget* target, const ChartRect* rect, const PictureSize& size, ChartPainter* paint);

}  // namespace tradebill
