// Charts of every kind with data of every sort, to look at.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "graph/graph.h"

namespace tradebill {

/// One picture of the gallery.
struct GalleryChart {
    std::string fileName;  ///< ASCII, without directory
    std::string section;   ///< the kind of chart; those of one section follow each other
    std::string caption;
    std::int32_t width;   ///< pixels
    std::int32_t height;  ///< pixels
    std::function<std::unique_ptr<CGraph>()> make;
};

/// All pictures in the order of the page.
[[nodiscard]] std::vector<GalleryChart> GalleryCharts();

}  // namespace tradebill
