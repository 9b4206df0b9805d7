// Replays recorded pictures on the canvas and compares them pixel by pixel: raster_vectors DIR
#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>
#include <vector>

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

void Replay(const VectorCase& vectorCase, Tally& tally) {
    if (vectorCase.width == 0) return;  // measures of text, no picture
    const auto painted = PaintVectorCase(vectorCase);
    if (painted == vectorCase.pixels) {
        ++tally.passed;
        return;
    }
    ++tally.failed;
    ShowDifference(vectorCase, painted);
}

int ReplayFolder(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() == ".txt") files.push_back(entry.path());
    }
    std::ranges::sort(files);
    Tally tally;
    for (const auto& file : files) {
        for (const VectorCase& vectorCase : ReadVectorCases(file)) Replay(vectorCase, tally);
    }
    std::printf("%d passed, %d failed\n", tally.passed, tally.failed);
    return tally.failed == 0 && tally.passed > 0 ? 0 : 1;
}

}  // namespace
}  // namespace tradebill

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: raster_vectors DIR\n");
        return 2;
    }
    try {
        return tradebill::ReplayFolder(argv[1]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "raster_vectors: %s\n", error.what());
        return 1;
    }
}
