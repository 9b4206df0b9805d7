#include "paint/raster/raster_canvas.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "paint/bitmap.h"
#include "paint/canvas.h"
#include "paint/font.h"
#include "paint/geometry.h"
#include "paint/picture.h"
#include "paint/raster/blend.h"
#include "paint/raster/raster.h"
#include "paint/raster/text_engine.h"
#include "paint/raster/turned_text.h"

namespace tradebill {
namespace {

class CRasterCanvas final : public CCanvas {
public:
    explicit CRasterCanvas(CBitmap& bitmap) : bitmap_(bitmap), raster_(bitmap) {}

    Pen SelectPen(const Pen& pen) override { return std::exchange(pen_, pen); }
    Brush SelectBrush(const Brush& brush) override {
        if (brush) brushPixel_ = PixelOf(*brush);
        return std::exchange(brush_, brush);
    }
    Font SelectFont(const Font& font) override { return std::exchange(font_, font); }
    Color SelectTextColor(Color color) override { return std::exchange(textColor_, color); }
    TextBackground SelectTextBackground(TextBackground background) override {
        return std::exchange(textBackground_, background);
    }
    Clip SelectClip(const Clip& clip) override {
        raster_.ClipTo(clip);
        return std::exchange(clip_, clip);
    }

    void MoveTo(Point point) override {
        if (isInPath_) path_.push_back({{point.x, point.y}});
        position_ = point;
    }
    void LineTo(Point point) override {
        if (isInPath_) {
            if (path_.empty()) path_.push_back({{position_.x, position_.y}});
            path_.back().push_back({point.x, point.y});
        } else {
            raster_.DrawLine(position_, point, StrokeOfPen());
        }
        position_ = point;
    }

    void Rectangle(const Box& box) override { raster_.DrawBox(box, StrokeOfPen(), FillOfBrush()); }
    void Ellipse(const Box& box) override { raster_.DrawEllipse(box, StrokeOfPen(), FillOfBrush()); }
    void Pie(const Box& box, Point start, Point end) override {
        raster_.DrawPie(box, start, end, StrokeOfPen(), FillOfBrush());
    }
    void Polygon(std::span<const Point> corners) override {
        raster_.DrawPolygon(corners, StrokeOfPen(), FillOfBrush());
    }

    void BeginPath() override {
        path_.clear();
        isInPath_ = true;
        hasPath_ = false;
    }
    void EndPath() override { hasPath_ = std::exchange(isInPath_, false); }
    void FillPath() override {
        if (!hasPath_) return;
        if (brush_) raster_.FillFigures(path_, FillRule::Alternate, brushPixel_);
        path_.clear();
        hasPath_ = false;
    }

    void FillSolid(const Box& box, Color color) override {
        raster_.FillBox({box.left, box.top}, {box.right, box.bottom}, PixelOf(color));
    }
    void SetPixel(Point point, Color color) override { raster_.SetPixel(point.x, point.y, PixelOf(color)); }
    void DrawPicture(const CPicture& picture, Point leftTop) override {
        BlendPicture(bitmap_, raster_.Seen(), picture, leftTop);
    }

    void WriteText(Point point, std::string_view text) override {
        if (textBackground_ == TextBackground::Opaque) {
            const Figure cells = CellsOf(point, text);
            raster_.FillFigures({&cells, 1}, FillRule::Alternate, PixelOf(kWhite));
        }
        texts_->Write(bitmap_, raster_.Seen(), font_, {text, point, PixelOf(textColor_)});
    }
    [[nodiscard]] TextExtent MeasureText(std::string_view text) const override { return texts_->Measure(font_, text); }
    [[nodiscard]] TextMetrics Metrics() const override { return texts_->Metrics(font_); }

private:
    [[nodiscard]] Stroke StrokeOfPen() const {
        constexpr std::int32_t kWidest = 1 << 12;  // wider pens paint as this one
        return {.width = std::min(pen_.width, kWidest), .pixel = PixelOf(pen_.color)};
    }
    [[nodiscard]] const std::uint32_t* FillOfBrush() const { return brush_ ? &brushPixel_ : nullptr; }

    /// The corners of all cells of a text together.
    [[nodiscard]] Figure CellsOf(Point leftTop, std::string_view text) const {
        const TextExtent extent = texts_->Measure(font_, text);
        const CTurnedText places(leftTop, font_.escapement);
        return {places.At(0, 0), places.At(extent.width, 0), places.At(extent.width, extent.height),
                places.At(0, extent.height)};
    }

    CBitmap& bitmap_;
    CRaster raster_;
    std::unique_ptr<CTextEngine> texts_ = MakeTextEngine();
    Font font_{.face = "Arial", .cellHeight = 16};
    Color textColor_ = 0;
    TextBackground textBackground_ = TextBackground::Opaque;
    Clip clip_;
    Pen pen_;
    Brush brush_ = kWhite;
    std::uint32_t brushPixel_ = PixelOf(kWhite);
    Point position_;
    std::vector<Figure> path_;
    bool isInPath_ = false;
    bool hasPath_ = false;
};

}  // namespace

std::unique_ptr<CCanvas> MakeRasterCanvas(CBitmap& bitmap) {
    return std::make_unique<CRasterCanvas>(bitmap);
}

}  // namespace tradebill
