// Picture files as the page needs them.
#pragma once

#include <string>

namespace tradebill {

struct PictureSize {
    int width = 0;   ///< pixels
    int height = 0;  ///< pixels
    bool operator==(const PictureSize&) const = default;
};

/// Size of a JPEG or PNG file; 0 by 0 if it can't be read as one.
[[nodiscard]] PictureSize ReadPictureSize(const std::string& path);

}  // namespace tradebill
