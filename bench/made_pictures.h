// Twelve pictures of a report's sizes that cost an encoder about what the report's own cost, and two small marks.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tradebill {

struct MadePicture {
    std::string name;
    int width;                          ///< pixels
    int height;                         ///< pixels
    std::vector<std::uint32_t> pixels;  ///< 0x00RRGGBB, the top row first
};

[[nodiscard]] std::vector<MadePicture> MakePictures();

// These throw std::runtime_error if the file can't be written.

/// As a report's pictures: quality 75, colours at half the resolution.
void EncodeJpeg(const MadePicture& picture, const std::string& path);

/// A mark of 8 by 8 pixels.
void EncodeMark(const std::string& path);

}  // namespace tradebill
