// A canvas that keeps what is painted instead of painting it. Its texts are 6 pixels a byte wide and as high as their
// font, so every place in a chart can be worked out by hand.
#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "paint/canvas.h"

namespace tradebill {

inline constexpr std::int32_t kByteWidth = 6;

struct PaintedLine {
    Point from;
    Point to;
    Pen pen;
    bool operator==(const PaintedLine&) const = default;
};

struct PaintedShape {
    Box box;
    Pen pen;
    Brush brush;
    bool operator==(const PaintedShape&) const = default;
};

struct PaintedPie {
    Box box;
    Point start;
    Point end;
    Pen pen;
    Brush brush;
    bool operator==(const PaintedPie&) const = default;
};

/// A polygon, or one figure of a filled path: then without a pen.
struct PaintedPolygon {
    std::vector<Point> corners;
    std::optional<Pen> pen;
    Brush brush;
    bool operator==(const PaintedPolygon&) const = default;
};

struct PaintedText {
    Point at;
    std::string text;
    Font font;
    Color color;
    TextBackground background;
    Clip clip = {};
};

struct PaintedFill {
    Box box;
    Color color;
    bool operator==(const PaintedFill&) const = default;
};

struct PaintedPicture {
    CPicture picture;
    Point at;
};

class CRecordingCanvas final : public CCanvas {
public:
    std::vector<PaintedLine> lines;
    std::vector<PaintedShape> rectangles;
    std::vector<PaintedShape> ellipses;
    std::vector<PaintedPie> pies;
    std::vector<PaintedPolygon> polygons;
    std::vector<PaintedText> texts;
    std::vector<PaintedPicture> pictures;
    std::vector<PaintedFill> fills;
    std::string order;  ///< of lines and texts: an 'L' or 'T' for each

    Pen SelectPen(const Pen& pen) override { return std::exchange(pen_, pen); }
    Brush SelectBrush(const Brush& brush) override { return std::exchange(brush_, brush); }
    Font SelectFont(const Font& font) override { return std::exchange(font_, font); }
    Color SelectTextColor(Color color) override { return std::exchange(textColor_, color); }
    TextBackground SelectTextBackground(TextBackground background) override {
        return std::exchange(background_, background);
    }

    Clip SelectClip(const Clip& clip) override { return std::exchange(clip_, clip); }

    void MoveTo(Point point) override {
        position_ = point;
        if (inPath_) figures_.push_back({point});
    }
    void LineTo(Point point) override {
        const Point from = std::exchange(position_, point);
        if (!inPath_) {
            lines.push_back({from, point, pen_});
            order += 'L';
            return;
        }
        if (figures_.empty()) figures_.push_back({from});
        figures_.back().push_back(point);
    }
    void Rectangle(const Box& box) override { rectangles.push_back({box, pen_, brush_}); }
    void Ellipse(const Box& box) override { ellipses.push_back({box, pen_, brush_}); }
    void Pie(const Box& box, Point start, Point end) override { pies.push_back({box, start, end, pen_, brush_}); }
    void Polygon(std::span<const Point> corners) override {
        polygons.push_back({{corners.begin(), corners.end()}, pen_, brush_});
    }
    void BeginPath() override {
        inPath_ = true;
        figures_.clear();
    }
    void EndPath() override { inPath_ = false; }
    void FillPath() override {
        for (std::vector<Point>& figure : figures_) polygons.push_back({std::move(figure), std::nullopt, brush_});
        figures_.clear();
    }
    void FillSolid(const Box& box, Color color) override { fills.push_back({box, color}); }
    void SetPixel(Point, Color) override {}
    void DrawPicture(const CPicture& picture, Point leftTop) override { pictures.push_back({picture, leftTop}); }

    void WriteText(Point point, std::string_view text) override {
        texts.push_back({point, std::string(text), font_, textColor_, background_, clip_});
        order += 'T';
    }
    [[nodiscard]] TextExtent MeasureText(std::string_view text) const override {
        return {static_cast<std::int32_t>(text.size()) * kByteWidth, CellHeight()};
    }
    [[nodiscard]] TextMetrics Metrics() const override {
        return {.height = CellHeight(), .ascent = CellHeight(), .averageWidth = kByteWidth};
    }

    /// The places where a text of these bytes stands.
    [[nodiscard]] std::vector<Point> PlacesOf(std::string_view text) const {
        std::vector<Point> places;
        for (const PaintedText& painted : texts) {
            if (painted.text == text) places.push_back(painted.at);
        }
        return places;
    }
    /// The first text of these bytes; nothing if there is none.
    [[nodiscard]] std::optional<PaintedText> FindText(std::string_view text) const {
        for (const PaintedText& painted : texts) {
            if (painted.text == text) return painted;
        }
        return std::nullopt;
    }
    /// Lines of a pen, in the order of painting.
    [[nodiscard]] std::vector<PaintedLine> LinesOf(const Pen& pen) const {
        std::vector<PaintedLine> found;
        for (const PaintedLine& line : lines) {
            if (line.pen == pen) found.push_back(line);
        }
        return found;
    }

private:
    /// Held, as that of real fonts.
    [[nodiscard]] std::int32_t CellHeight() const { return std::clamp(font_.cellHeight, 0, 2'000); }

    Pen pen_;
    Brush brush_ = kWhite;
    Font font_;
    Color textColor_ = 0;
    TextBackground background_ = TextBackground::Opaque;
    Clip clip_;
    Point position_;
    bool inPath_ = false;
    std::vector<std::vector<Point>> figures_;
};

}  // namespace tradebill
