// Recorded pictures: scripts of drawing operations, each with the picture that a device context made of it. The format
// is told in gdi_vectors/README.md.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "paint/bitmap.h"
#include "paint/canvas.h"

namespace tradebill {

struct VectorCase {
    std::string name;
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::vector<std::string> operations;
    std::vector<std::uint32_t> pixels;  ///< 0x00RRGGBB, rows from the top
};

/// All cases of a file. Throws std::runtime_error for what isn't of the format.
[[nodiscard]] std::vector<VectorCase> ReadVectorCases(const std::filesystem::path& path);

using CanvasMaker = std::unique_ptr<CCanvas>(CBitmap& bitmap);

/// What a canvas makes of a case, in the form of its pixels. Throws std::runtime_error for an unknown operation.
[[nodiscard]] std::vector<std::uint32_t> PaintVectorCase(const VectorCase& vectorCase, CanvasMaker& make);

}  // namespace tradebill
