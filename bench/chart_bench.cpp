// What painting costs, as ratios that hold on any machine: a line chart of 825 by 250 pixels with all its texts against
// clearing its bitmap and against encoding it as JPEG, and how it grows with ten times the points.
#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "graph/graph.h"
#include "paint/canvas.h"
#include "paint/picture_file.h"
#include "timing.h"

namespace tradebill {
namespace {

constexpr int kRepeats = 50;
constexpr PictureSize kSize{825, 250};

std::unique_ptr<CGraph> MakeChart(int points) {
    auto graph = std::make_unique<CGraph>(kLineGraph);
    graph->graphTitle = "Equity";
    graph->graphHasGridLines = 1;
    graph->showValues = 1;
    graph->lineWidth = 2;
    graph->valueDivisor = 1;
    graph->decimalDigits = 0;
    graph->colorList.push_back(std::make_unique<CGraphDataColor>(CGraphDataColor{0, 0xC48037}));
    graph->seriesSize = 1;
    for (int i = 0; i < points; ++i) {
        auto series = std::make_unique<CGraphSeries>();
        series->seriesLabel = std::to_string(i % 12 + 1) + "/" + std::to_string(i % 28 + 1);
        series->SetData(0, 50 + 40 * std::sin(i * 0.1));
        graph->graphSeries.push_back(std::move(series));
    }
    return graph;
}

double PaintingSeconds(CBitmap& bitmap, int points) {
    const auto chart = MakeChart(points);
    const auto canvas = MakeCanvas(bitmap);
    return LeastSecondsOf(kRepeats, [&] { chart->DrawGraph(*canvas, {0, 0, kSize.width, kSize.height}); });
}

void Measure() {
    CBitmap bitmap(kSize.width, kSize.height, kWhite);
    const double many = PaintingSeconds(bitmap, 2500);
    const double painting = PaintingSeconds(bitmap, 250);
    std::vector<unsigned char> memory(static_cast<std::size_t>(kSize.width * kSize.height) * 4);
    volatile unsigned char seen = 0;
    const double clearing = LeastSecondsOf(kRepeats, [&] {
        std::fill(memory.begin(), memory.end(), static_cast<unsigned char>(seen + 1));
        seen = memory[memory.size() / 2];
    });
    const std::string path =
        (std::filesystem::temp_directory_path() / ("chart-bench-" + std::to_string(::getpid()) + ".jpg")).string();
    bool isSaved = true;
    const double encoding = LeastSecondsOf(kRepeats, [&] { isSaved = SaveJpeg(bitmap, path) && isSaved; });
    std::filesystem::remove(path);
    std::printf("painting 250 points                         %6.2f ms%s\n", painting * 1e3,
                isSaved ? "" : "   (the picture could not be saved)");
    std::printf("painting / clearing the bitmap              %6.2f\n", painting / clearing);
    std::printf("painting / encoding it as JPEG              %6.2f   (at most 1)\n", painting / encoding);
    std::printf("2500 points / 250 points                    %6.2f   (at most 3)\n", many / painting);
}

}  // namespace
}  // namespace tradebill

int main() {
    tradebill::Measure();
}
