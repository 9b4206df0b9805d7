// The least program that paints a chart: chart_program FILE saves one of 825 by 250 pixels as a PNG file. It uses the
// chart control and what that stands on, and nothing of accounts.
#include <cmath>
#include <memory>
#include <string>
#include <utility>

#include "graph/graph.h"
#include "paint/canvas.h"
#include "paint/picture_file.h"

using namespace tradebill;

int main(int count, char** arguments) {
    if (count != 2) return 2;
    CGraph graph(1);
    graph.graphTitle = "A wave";
    graph.valueDivisor = 1.0;
    graph.decimalDigits = 0;
    graph.graphHasGridLines = 1;
    graph.seriesSize = 1;
    graph.colorList.push_back(std::make_unique<CGraphDataColor>(CGraphDataColor{.group = 0, .color = 0xC08000}));
    for (int day = 1; day <= 30; ++day) {
        auto series = std::make_unique<CGraphSeries>();
        series->seriesLabel = "day " + std::to_string(day);
        series->SetData(0, 50 + 40 * std::sin(day / 5.0));
        graph.graphSeries.push_back(std::move(series));
    }
    CBitmap bitmap(825, 250, kWhite);
    graph.DrawGraph(*MakeCanvas(bitmap), {0, 0, 825, 250});
    return SavePng(bitmap, arguments[1]) ? 0 : 1;
}
