// Replays recorded pictures and compares them pixel by pixel.
// Usage: raster_vectors DIR [usual]
// Paints with the raster, or with the canvas that charts are usually painted on.
#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "paint/raster/raster_canvas.h"
#include "paint/vector_cases.h"

namespace tradebill {
namespace {

struct Tally {
    int passed = 0;
    int failed = 0;
};

/// Says where the first differing pixel stands and how many there are.
void ShowDifference(const VectorCase& vectorCase, const std::vector<std::uint32_t>& painted) {
    const auto [expected, actual] = std::ranges::mismatch(vectorCase.pixels, painted);
    const auto at = static_cast<int>(expected - vectorCase.pixels.begin());
    int count = 0;
    for (std::size_t i = 0; i < painted.size(); ++i) count += painted[i] != vectorCase.pixels[i] ? 1 : 0;
    std::printf("%s: %d pixels differ, the first at (%d, %d): expected %06X, painted %06X\n", vectorCase.name.c_str(),
                count, at % vectorCase.width, at / vectorCase.width, static_cast<unsigned>(*expected),
                static_cast<unsigned>(*actual));
}

void Replay(const VectorCase& vectorCase, CanvasMaker& make, Tally& tally) {
    if (vectorCase.width == 0) return;  // measures of text, no picture
    const auto painted = PaintVectorCase(vectorCase, make);
    if (painted == vectorCase.pixels) {
        ++tally.passed;
        return;
    }
    ++tally.failed;
    ShowDifference(vectorCase, painted);
}

int ReplayFolder(const std::filesystem::path& folder, CanvasMaker& make) {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() == ".txt") files.push_back(entry.path());
    }
    std::ranges::sort(files);
    Tally tally;
    for (const auto& file : files) {
        for (const VectorCase& vectorCase : ReadVectorCases(file)) Replay(vectorCase, make, tally);
    }
    std::printf("%d passed, %d failed\n", tally.passed, tally.failed);
    return tally.failed == 0 && tally.passed > 0 ? 0 : 1;
}

}  // namespace
}  // namespace tradebill

int main(int argc, char** argv) {
    const bool isUsual = argc == 3 && argv[2] == std::string_view("usual");
    if (argc != 2 && !isUsual) {
        std::fprintf(stderr, "usage: raster_vectors DIR [usual]\n");
        return 2;
    }
    try {
        return tradebill::ReplayFolder(argv[1], isUsual ? tradebill::MakeCanvas : tradebill::MakeRasterCanvas);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "raster_vectors: %s\n", error.what());
        return 1;
    }
}
