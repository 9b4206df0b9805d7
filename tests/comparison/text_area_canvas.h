// A canvas that notes where texts stand: there, and only there, two systems may paint other pixels.
#pragma once

#include <cmath>
#include <cstdint>
#include <numbers>
#include <span>
#include <string_view>
#include <utility>

#include "paint/canvas.h"

namespace tradebill {

/// Paints on another canvas, and every text's cells, with a rim, as a box on `areas`.
class CTextAreaCanvas final : public CCanvas {
public:
    CTextAreaCanvas(CCanvas& canvas, CCanvas& areas) : canvas_(canvas), areas_(areas) {}

    Pen SelectPen(const Pen& pen) override { return canvas_.SelectPen(pen); }
    Brush SelectBrush(const Brush& brush) override { return canvas_.SelectBrush(brush); }
    Font SelectFont(const Font& font) override {
        canvas_.SelectFont(font);
        return std::exchange(font_, font);
    }
    Color SelectTextColor(Color color) override { return canvas_.SelectTextColor(color); }
    TextBackground SelectTextBackground(TextBackground background) override {
        return canvas_.SelectTextBackground(background);
    }
    Clip SelectClip(const Clip& clip) override { return canvas_.SelectClip(clip); }
    void MoveTo(Point point) override { canvas_.MoveTo(point); }
    void LineTo(Point point) override { canvas_.LineTo(point); }
    void Rectangle(const Box& box) override { canvas_.Rectangle(box); }
    void Ellipse(const Box& box) override { canvas_.Ellipse(box); }
    void Pie(const Box& box, Point start, Point end) override { canvas_.Pie(box, start, end); }
    void Polygon(std::span<const Point> corners) override { canvas_.Polygon(corners); }
    void BeginPath() override { canvas_.BeginPath(); }
    void EndPath() override { canvas_.EndPath(); }
    void FillPath() override { canvas_.FillPath(); }
    void FillSolid(const Box& box, Color color) override { canvas_.FillSolid(box, color); }
    void SetPixel(Point point, Color color) override { canvas_.SetPixel(point, color); }
    void DrawPicture(const CPicture& picture, Point leftTop) override { canvas_.DrawPicture(picture, leftTop); }

    void WriteText(Point point, std::string_view text) override {
        canvas_.WriteText(point, text);
        const TextExtent extent = canvas_.MeasureText(text);
        Box box{point.x, point.y, point.x, point.y};
        for (const auto& [along, down] :
             {std::pair{extent.width, 0}, {0, extent.height}, {extent.width, extent.height}}) {
            const double angle = font_.escapement * std::numbers::pi / 1800;
            const auto x = point.x + static_cast<std::int32_t>(along * std::cos(angle) + down * std::sin(angle));
            const auto y = point.y + static_cast<std::int32_t>(down * std::cos(angle) - along * std::sin(angle));
            box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x), std::max(box.bottom, y)};
        }
        // Letters may reach beyond their cells, and some systems paint a text wider than they measure it.
        const std::int32_t rim = 2 + extent.height / 4 + extent.width / 8;
        areas_.FillSolid({box.left - rim, box.top - rim, box.right + rim, box.bottom + rim}, 0);
    }
    [[nodiscard]] TextExtent MeasureText(std::string_view text) const override { return canvas_.MeasureText(text); }
    [[nodiscard]] TextMetrics Metrics() const override { return canvas_.Metrics(); }

private:
    CCanvas& canvas_;
    CCanvas& areas_;
    Font font_;
};

}  // namespace tradebill
