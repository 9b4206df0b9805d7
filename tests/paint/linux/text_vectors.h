// Recorded measures of fonts and texts.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "paint/font.h"

namespace tradebill {

struct TextVector {
    std::string text;  ///< GBK
    TextExtent extent;
};

/// One font file at one size.
struct FontVectors {
    std::string name;
    std::string file;  ///< of the font
    int cellHeight = 0;
    bool isThickened = false;
    TextMetrics metrics;
    std::vector<TextVector> texts;
};

[[nodiscard]] std::vector<FontVectors> ReadFontVectors(const std::filesystem::path& path);

}  // namespace tradebill
