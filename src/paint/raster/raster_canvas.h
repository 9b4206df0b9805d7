// The canvas whose shapes are painted by portable arithmetic, on either system.
#pragma once

#include <memory>

#include "paint/bitmap.h"
#include "paint/canvas.h"

namespace tradebill {

/// A canvas of the raster, with the texts of the system's own engine. Shared code asks for MakeCanvas(), which is this
/// one on Linux and GDI's on Windows; by this name it is asked for where the two are compared.
/// REQUIRES: `bitmap` outlives the canvas, and no other canvas paints on it meanwhile.
[[nodiscard]] std::unique_ptr<CCanvas> MakeRasterCanvas(CBitmap& bitmap);

}  // namespace tradebill
