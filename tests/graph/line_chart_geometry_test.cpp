// Every operation of the line charts, for few and many points, against the rules written out once more. The rules stand
// here as plain formulas in the order of painting; nothing is taken from the chart but its settings.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "graph/graph_fixture.h"

namespace tradebill::line_chart_geometry_test {
namespace {

constexpr Color kColor = 0xC08000;
constexpr Color kLow = 0x00C000;
constexpr Color kHigh = 0x0000E0;
constexpr int kWidth = 825;
constexpr int kHeight = 250;
constexpr int kGap = 1920 / 15;

struct Text {
    Point at;
    std::string text;
    bool operator==(const Text&) const = default;
};

struct Form {
    std::size_t count;
    bool dual = false;
    int kind2 = 1;
    int topRow = 0;
    int baseRow = 0;
    int rightBorder = 0;
};

/// What a chart of a form consists of.
class CExpected {
public:
    std::vector<PaintedLine> lines;
    std::vector<Box> rectangles;
    std::vector<Box> ellipses;
    std::vector<Text> texts;

    CExpected(const Form& form, const std::vector<double>& first, const std::vector<double>& second)
        : form_(form), first_(first), second_(second) {
        titleHeight_ = form.dual ? 0 : 16;
        rows_ = 10 + 1 + form.baseRow;
        const int free = 220 - 10 - (titleHeight_ > 0 ? 10 + titleHeight_ : 0);
        row_ = free / rows_;
        plot_ = free;
        apex_ = 220 - form.baseRow * row_;
        height_ = row_ * 10;
        width_ = 825 - 54 - 20 - (form.dual ? 36 : 0);
        rectangles.push_back({0, 0, kWidth, kHeight});
        AddTitle();
        AddGrid();
        AddAxes();
        AddLabels();
        if (form.dual) AddRight();
        AddLine(first_, 100.0, 1.0, 0, Pen{.width = 1, .color = kColor});
    }

private:
    [[nodiscard]] int X(std::size_t i) const { return X(i, form_.count); }
    [[nodiscard]] int X(std::size_t i, std::size_t n) const {
        return i == 1 ? 54 : static_cast<int>((width_ - 10) / (double(n) - 1) * (double(i) - 1) + 54);
    }
    [[nodiscard]] int TickY(int tick) const { return static_cast<int>(apex_ - tick * (height_ / 10.0)); }
    [[nodiscard]] int End() const { return 54 + width_ - 10; }
    void Line(Point from, Point to, const Pen& pen) { lines.push_back({from, to, pen}); }
    void Write(Point at, const std::string& text) { texts.push_back({at, text}); }
    static int Wide(const std::string& text) { return static_cast<int>(text.size()) * 6; }
    static std::string Number(double value, int decimals) {
        char text[64];
        std::snprintf(text, sizeof text, "%.*f", decimals, value);
        return text;
    }

    void AddTitle() {
        if (form_.dual) {
            Line({10, 15}, {50, 15}, {.width = 1, .color = kColor});
            Write({60, 10}, "Equity");
        } else {
            Write({412 - 18, 10}, "Equity");
        }
    }

    void AddGrid() {
        for (int tick = 0; tick <= 10; ++tick) Line({54, TickY(tick)}, {End(), TickY(tick)}, kGridPen);
        const int top = TickY(form_.topRow == 1 ? 11 : 10);
        for (std::size_t i = 2; i <= form_.count; ++i) Line({X(i), top}, {X(i), 220}, kGridPen);
    }

    void AddAxes() {
        const double top = 220 - rows_ * (height_ / 10.0);
        const int upper = static_cast<int>(top + 1.0);
        const int end = form_.dual || form_.rightBorder == 1 ? End() : 54 + width_ + 5;
        Line({54, 220}, {54, static_cast<int>(top)}, kAxis);
        Line({54, 220}, {end, 220}, kAxis);
        if (form_.topRow == 1) Line({54, upper}, {end, upper}, kAxis);
        if (!form_.dual && form_.rightBorder == 1) Line({end, upper}, {end, 220}, kAxis);
        for (int tick = 0; tick <= 10; ++tick) {
            Line({51, TickY(tick)}, {57, TickY(tick)}, kThin);
            const std::string text = Number(tick * 10.0, 0);
            Write({54 - Wide(text) - 10, TickY(tick) - 5}, text);
        }
        Write({54 - Wide(" abcd "), 220 - plot_}, " abcd ");
    }

    void AddLabels() {
        const std::size_t n = form_.count;
        int lastRight = 0;
        for (std::size_t i = 1; i <= n; ++i) {
            const std::size_t every = n >= 10 ? n / 5 : n >= 6 ? 2 : 1;
            const bool isDue = (i - 1) % every == 0;
            if (!isDue && !(i == n && X(i) - lastRight >= 15)) continue;
            if (isDue) lastRight = X(i) + 15;
            Line({X(i), 217}, {X(i), 223}, kThin);
            Write({X(i) - 15, 228}, "01-02");
        }
    }

    void AddRight() {
        const int top = static_cast<int>(220 - rows_ * (height_ / 10.0));
        Line({End(), 220}, {End(), top}, kAxis);
        for (int tick = 0; tick <= 10; ++tick) {
            Line({End() - 3, TickY(tick)}, {End() + 3, TickY(tick)}, kThin);
            Write({End() + 10, TickY(tick) - 5}, Number(tick * 0.1 * 100.0, 2));
        }
        Write({End(), 220 - plot_}, " abcdef ");
        if (form_.kind2 == 0) AddBars();
        if (form_.kind2 == 1) AddLine(second_, 1.0, 0.01, 2, std::nullopt);
    }

    void AddBars() {
        if (second_.size() + 1 != form_.count) return;
        for (std::size_t n = 1; n <= second_.size(); ++n) {
            const double value = second_[n - 1];
            if (!(value > -1.0)) continue;
            int h = static_cast<int>(value * (height_ - 10));
            if (value > 0.0 && h < 1) h = 1;
            const int x0 = X(n);
            const int x1 = X(n + 1);
            const int inset = (x1 - x0) / 6;
            const int top = apex_ - (h > height_ ? height_ : h);
            rectangles.push_back({x0 + inset, top, x1 - inset, apex_});
            const double shown = value / 0.01;
            const std::string text = shown > -1e-7 && shown < 1e-7 ? "" : Number(shown, 2);
            const int middle = x0 + (x1 - x0) / 2;
            const int half = Wide(text) / 2;
            // No font has been selected for these, which the canvas measures as 0 high.
            if (middle - half > x0 && middle + half < x1) Write({middle - half, top - 5}, text);
        }
    }

    static bool Apart(const Box& a, const Box& b) {
        const bool isEmpty = a.left >= a.right || a.top >= a.bottom || b.left >= b.right || b.top >= b.bottom;
        return isEmpty || a.right <= b.left || b.right <= a.left || a.bottom <= b.top || b.bottom <= a.top;
    }

    /// Without a pen, of the colours of the second axis.
    void AddLine(const std::vector<double>& values, double range, double divisor, int decimals,
                 const std::optional<Pen>& pen) {
        Box lastLabel;
        Box lastDot;
        Point last;
        for (std::size_t i = 1; i <= values.size(); ++i) {
            const double value = values[i - 1];
            const double scale = height_ / range;
            int h = static_cast<int>(value * scale);
            if (pen && value > 0.0 && h < 1) h = static_cast<int>(scale);
            if (h > apex_) h = static_cast<int>(range * scale) + 5;
            const int x = X(i, values.size());
            const int y = apex_ - h;
            const Pen own{.width = 1, .color = value / divisor > 50.0 ? kHigh : kLow};
            if (i > 1) Line(last, {x, y}, pen.value_or(own));
            const Box dot{x - 3, y - 3, x + 3, y + 3};
            ellipses.push_back(dot);
            const double shown = value / divisor;
            const std::string text = shown > -1e-7 && shown < 1e-7 ? "" : Number(shown, decimals);
            const int half = Wide(text) / 2;
            const int next = i < values.size() ? X(i + 1, values.size()) : 0;
            const bool isLast = i == values.size();
            const bool isFar = isLast || x - (lastLabel.right - lastLabel.left) / 2 - lastLabel.left > kGap;
            const Box places[] = {{x - half, y - 19, x + half, y - 8}, {x - half, y + 8, x + half, y + 19}};
            for (const Box& place : places) {
                if (i == 1 || !isFar || !Apart(place, lastLabel) || !Apart(place, lastDot)) continue;
                if (!isLast && !Apart(place, {next - 3, y - 3, next + 3, y + 3})) continue;
                Write({place.left, place.top}, text);
                lastLabel = place;
                break;
            }
            last = {x, y};
            lastDot = dot;
        }
    }

    Form form_;
    std::vector<double> first_;
    std::vector<double> second_;
    int titleHeight_, rows_, row_, plot_, apex_, height_, width_;
};

/// Up and down over the whole height and a little more; sometimes nothing, sometimes next to it.
std::vector<double> FirstValues(std::size_t count) {
    std::vector<double> values;
    for (std::size_t i = 0; i < count; ++i) {
        values.push_back(i % 7 == 3 ? 0.0 : i % 11 == 5 ? 0.2 : double(i * 37 % 161) - 5.0);
    }
    return values;
}

std::vector<double> SecondValues(std::size_t count) {
    std::vector<double> values;
    for (std::size_t i = 0; i < count; ++i) {
        values.push_back(i % 5 == 2 ? -1.0 : i % 9 == 4 ? 0.0 : i % 6 == 1 ? 0.5 : double(i * 29 % 113) / 100.0);
    }
    return values;
}

class LineChartGeometry : public testing::TestWithParam<Form> {};

TEST_P(LineChartGeometry, IsThatOfTheRules) {
    const Form& form = GetParam();
    const std::vector<double> first = FirstValues(form.count);
    const std::size_t secondCount = form.kind2 == 0 && form.count > 0 ? form.count - 1 : form.count;
    const std::vector<double> second = form.dual ? SecondValues(secondCount) : std::vector<double>{};

    CGraph graph(1);
    graph.graphTitle = "Equity";
    graph.valueDivisor = 1.0;
    graph.decimalDigits = 0;
    graph.graphHasGridLines = 1;
    graph.showValues = 1;
    graph.dualAxis = form.dual ? 1 : 0;
    graph.graphType2 = form.kind2;
    graph.legendKind2 = 0;
    graph.color2Low = kLow;
    graph.color2High = kHigh;
    graph.maxTick2 = 1.0;
    graph.tickSpace2 = 0.1;
    graph.topRowMode = form.topRow;
    graph.baseRow = form.baseRow;
    graph.rightBorder = form.rightBorder;
    std::snprintf(graph.unitText, sizeof graph.unitText, "abcd");
    std::snprintf(graph.unitText2, sizeof graph.unitText2, "abcdef");
    graph.colorList.push_back(std::make_unique<CGraphDataColor>(CGraphDataColor{0, kColor}));
    graph.seriesSize = graph.seriesSize2 = 1;
    for (const auto& [list, values] :
         {std::pair(&graph.graphSeries, &first), std::pair(&graph.graphSeries2, &second)}) {
        for (const double value : *values) {
            auto series = std::make_unique<CGraphSeries>();
            series->seriesLabel = "01-02";
            series->SetData(0, value);
            list->push_back(std::move(series));
        }
    }
    CRecordingCanvas canvas;
    graph.DrawGraph(canvas, {0, 0, kWidth, kHeight});

    const CExpected expected(form, first, second);
    EXPECT_EQ(canvas.lines, expected.lines);
    std::vector<Box> rectangles;
    for (const PaintedShape& shape : canvas.rectangles) rectangles.push_back(shape.box);
    EXPECT_EQ(rectangles, expected.rectangles);
    std::vector<Box> ellipses;
    for (const PaintedShape& shape : canvas.ellipses) ellipses.push_back(shape.box);
    EXPECT_EQ(ellipses, expected.ellipses);
    std::vector<Text> texts;
    for (const PaintedText& text : canvas.texts) texts.push_back({text.at, text.text});
    EXPECT_EQ(texts, expected.texts);
}

std::vector<Form> Forms() {
    std::vector<Form> forms;
    for (const std::size_t count : {0u, 1u, 2u, 5u, 6u, 9u, 10u, 15u, 250u}) {
        forms.push_back({.count = count});
        forms.push_back({.count = count, .topRow = 1, .baseRow = 1, .rightBorder = 1});
        forms.push_back({.count = count, .topRow = 1, .baseRow = 0});
        forms.push_back({.count = count, .dual = true, .kind2 = 0});
        forms.push_back({.count = count, .dual = true, .kind2 = 1, .topRow = 1, .baseRow = 1});
    }
    return forms;
}
INSTANTIATE_TEST_SUITE_P(Charts, LineChartGeometry, testing::ValuesIn(Forms()));

}  // namespace
}  // namespace tradebill::line_chart_geometry_test
