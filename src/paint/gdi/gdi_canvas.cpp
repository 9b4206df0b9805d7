#include <windows.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "paint/canvas.h"
#include "paint/gdi/far_line.h"
#include "paint/gdi/gdi_objects.h"
#include "paint/gdi/gdi_text.h"
#include "paint/raster/blend.h"

namespace tradebill {
namespace {

/// Calls reach the bitmap at once for as long as it lives: its pixels are read in between.
class CUnbatchedScope {
public:
    CUnbatchedScope() : former_(::GdiSetBatchLimit(1)) {}
    ~CUnbatchedScope() { ::GdiSetBatchLimit(former_); }
    CUnbatchedScope(const CUnbatchedScope&) = delete;
    CUnbatchedScope& operator=(const CUnbatchedScope&) = delete;

private:
    DWORD former_;
};

/// A tool that is selected into a context, and the context's own one before it.
class CSelectedTool {
public:
    explicit CSelectedTool(HDC context) : context_(context) {}
    CSelectedTool(const CSelectedTool&) = delete;
    CSelectedTool& operator=(const CSelectedTool&) = delete;
    ~CSelectedTool() {
        if (stock_ != nullptr) ::SelectObject(context_, stock_);
    }

    void Select(CGdiObject tool) {
        const HGDIOBJ before = ::SelectObject(context_, tool.Get());
        if (stock_ == nullptr) stock_ = before;
        tool_ = std::move(tool);
    }

private:
    HDC context_;
    HGDIOBJ stock_ = nullptr;
    CGdiObject tool_;
};

CGdiObject MakePen(const Pen& pen) {
    constexpr std::int32_t kWidest = 1 << 12;  // wider pens paint as this one
    return CGdiObject(::CreatePen(PS_SOLID, std::clamp(pen.width, 1, kWidest), pen.color));
}

CGdiObject MakeBrush(const Brush& brush) {
    return CGdiObject(brush ? ::CreateSolidBrush(*brush) : ::GetStockObject(NULL_BRUSH));
}

class CGdiCanvas final : public CCanvas {
public:
    explicit CGdiCanvas(CBitmap& bitmap) : bitmap_(bitmap) {
        // Without pixels it paints on the one pixel that every context begins with.
        if (bitmap.Memory().NativeBitmap() != nullptr) {
            formerBitmap_ = ::SelectObject(context_.Get(), bitmap.Memory().NativeBitmap());
        }
        SelectPen(pen_);
        SelectBrush(brush_);
        text_.Select(font_);
        ::SetPolyFillMode(context_.Get(), ALTERNATE);
    }
    ~CGdiCanvas() override {
        if (formerBitmap_ != nullptr) ::SelectObject(context_.Get(), formerBitmap_);
    }

    Pen SelectPen(const Pen& pen) override {
        selectedPen_.Select(MakePen(pen));
        return std::exchange(pen_, pen);
    }
    Brush SelectBrush(const Brush& brush) override {
        selectedBrush_.Select(MakeBrush(brush));
        return std::exchange(brush_, brush);
    }
    Font SelectFont(const Font& font) override {
        text_.Select(font);
        return std::exchange(font_, font);
    }
    Color SelectTextColor(Color color) override { return ::SetTextColor(context_.Get(), color); }
    TextBackground SelectTextBackground(TextBackground background) override {
        const int former = ::SetBkMode(context_.Get(), background == TextBackground::Opaque ? OPAQUE : TRANSPARENT);
        return former == OPAQUE ? TextBackground::Opaque : TextBackground::Transparent;
    }
    Clip SelectClip(const Clip& clip) override {
        const CGdiObject region = clip ? MakeRegion(*clip) : CGdiObject();
        ::SelectClipRgn(context_.Get(), static_cast<HRGN>(region.Get()));  // which copies it
        return std::exchange(clip_, clip);
    }

    void MoveTo(Point point) override {
        position_ = point;
        if (isInPath_) PlaceAt(point);
    }
    void LineTo(Point point) override {
        const Point from = std::exchange(position_, point);
        if (isInPath_) {
            const Point held = Clamped(point);
            ::LineTo(context_.Get(), held.x, held.y);
        } else if (const auto line = NearPartOf(from, point, pen_.width > 1 ? kFarthest : kFarthestThin)) {
            ::MoveToEx(context_.Get(), line->first.x, line->first.y, nullptr);
            ::LineTo(context_.Get(), line->second.x, line->second.y);
        }
    }

    void Rectangle(const Box& box) override {
        const Box held = Clamped(box);
        ::Rectangle(context_.Get(), held.left, held.top, held.right, held.bottom);
    }
    void Ellipse(const Box& box) override {
        const Box held = Clamped(box);
        ::Ellipse(context_.Get(), held.left, held.top, held.right, held.bottom);
    }
    void Pie(const Box& box, Point start, Point end) override {
        const Box held = Clamped(box);
        const Point from = Clamped(start);
        const Point to = Clamped(end);
        ::Pie(context_.Get(), held.left, held.top, held.right, held.bottom, from.x, from.y, to.x, to.y);
    }
    void Polygon(std::span<const Point> corners) override {
        std::vector<POINT> points;
        points.reserve(corners.size());
        for (const Point& corner : corners) points.push_back({Clamped(corner).x, Clamped(corner).y});
        ::Polygon(context_.Get(), points.data(), static_cast<int>(points.size()));
    }

    void BeginPath() override {
        PlaceAt(position_);
        isInPath_ = ::BeginPath(context_.Get()) != FALSE;
    }
    void EndPath() override {
        isInPath_ = false;
        ::EndPath(context_.Get());
    }
    void FillPath() override { ::FillPath(context_.Get()); }

    void FillSolid(const Box& box, Color color) override {
        const Box held = Clamped(box);
        const RECT area{held.left, held.top, held.right, held.bottom};
        ::SetBkColor(context_.Get(), color);
        ::ExtTextOutW(context_.Get(), 0, 0, ETO_OPAQUE, &area, nullptr, 0, nullptr);
        ::SetBkColor(context_.Get(), kWhite);
    }
    void SetPixel(Point point, Color color) override { ::SetPixelV(context_.Get(), point.x, point.y, color); }
    void DrawPicture(const CPicture& picture, Point leftTop) override {
        const Box whole{0, 0, bitmap_.Width(), bitmap_.Height()};
        BlendPicture(bitmap_, clip_ ? Intersection(whole, *clip_) : whole, picture, leftTop);
    }

    void WriteText(Point point, std::string_view text) override { text_.Write(Clamped(point), text); }
    [[nodiscard]] TextExtent MeasureText(std::string_view text) const override { return text_.Measure(text); }
    [[nodiscard]] TextMetrics Metrics() const override { return text_.Metrics(); }

private:
    void PlaceAt(Point point) {
        const Point held = Clamped(point);
        ::MoveToEx(context_.Get(), held.x, held.y, nullptr);
    }

    CBitmap& bitmap_;
    CUnbatchedScope unbatched_;
    CMemoryContext context_;
    CSelectedTool selectedPen_{context_.Get()};
    CSelectedTool selectedBrush_{context_.Get()};
    mutable CGdiText text_{context_.Get()};  // measuring selects fonts
    HGDIOBJ formerBitmap_ = nullptr;
    Pen pen_;
    Brush brush_ = kWhite;
    Font font_{.face = "Arial", .cellHeight = 16};
    Clip clip_;
    Point position_;
    bool isInPath_ = false;
};

}  // namespace

std::unique_ptr<CCanvas> MakeCanvas(CBitmap& bitmap) {
    return std::make_unique<CGdiCanvas>(bitmap);
}

}  // namespace tradebill
