// What charts and tables are painted on: pen, brush and position, and the shapes drawn with them.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string_view>

#include "paint/bitmap.h"
#include "paint/font.h"
#include "paint/geometry.h"
#include "paint/picture.h"

namespace tradebill {

/// A solid pen. Width 0 and 1 are thin lines, which leave out their last pixel; wider pens are round.
struct Pen {
    std::int32_t width = 1;
    Color color = 0;
    bool operator==(const Pen&) const = default;
};

/// A solid brush; nothing is the null brush, which leaves alone what it would fill.
using Brush = std::optional<Color>;

/// A box outside of which nothing is painted, its right and bottom edge included; one without inside hides all. Nothing
/// is no limit but the bitmap's edges.
using Clip = std::optional<Box>;

inline constexpr Color kWhite = 0xFFFFFF;

/// What a text leaves of what it is written on: nothing of its cells, which become white, or all between its strokes.
enum class TextBackground { Opaque, Transparent };

/// Begins with a black pen of width 1, a white brush, the position (0, 0), and opaque black text of 16 pixels.
/// Coordinates are device pixels; anything outside of the bitmap is clipped, wherever it lies.
class CCanvas {
public:
    CCanvas() = default;
    CCanvas(const CCanvas&) = delete;
    CCanvas& operator=(const CCanvas&) = delete;
    virtual ~CCanvas() = default;

    // Each takes the place of the one in use, which is returned.
    virtual Pen SelectPen(const Pen& pen) = 0;
    virtual Brush SelectBrush(const Brush& brush) = 0;
    virtual Font SelectFont(const Font& font) = 0;
    virtual Color SelectTextColor(Color color) = 0;
    virtual TextBackground SelectTextBackground(TextBackground background) = 0;
    virtual Clip SelectClip(const Clip& clip) = 0;

    virtual void MoveTo(Point point) = 0;
    /// From the position to `point`, which becomes the position.
    virtual void LineTo(Point point) = 0;

    // The corners of a box may come in any order; it lacks its right and bottom edge. None of these moves the position.
    virtual void Rectangle(const Box& box) = 0;
    virtual void Ellipse(const Box& box) = 0;
    /// Counter-clockwise from the direction of `start` to that of `end`, as seen from the middle.
    virtual void Pie(const Box& box, Point start, Point end) = 0;
    /// Closes itself; parts that are walked round twice stay empty.
    virtual void Polygon(std::span<const Point> corners) = 0;

    /// From here to EndPath, MoveTo and LineTo paint nothing and make figures.
    /// REQUIRES: until EndPath nothing else is painted.
    virtual void BeginPath() = 0;
    virtual void EndPath() = 0;
    /// Fills the figures together, without an outline, and drops them. Nothing happens without a path that has ended.
    virtual void FillPath() = 0;

    /// Right and bottom are left out; uses neither pen nor brush.
    virtual void FillSolid(const Box& box, Color color) = 0;
    virtual void SetPixel(Point point, Color color) = 0;
    /// Pixel by pixel over what is there, as far as each is opaque.
    virtual void DrawPicture(const CPicture& picture, Point leftTop) = 0;

    /// One line of GBK text, the left top corner of its first cell at `point`; a font with an escapement turns it
    /// around that corner.
    virtual void WriteText(Point point, std::string_view text) = 0;
    /// In the selected font, along the text.
    [[nodiscard]] virtual TextExtent MeasureText(std::string_view text) const = 0;
    [[nodiscard]] virtual TextMetrics Metrics() const = 0;
};

/// A canvas on `bitmap`.
/// REQUIRES: `bitmap` outlives the canvas, and no other canvas paints on it meanwhile.
[[nodiscard]] std::unique_ptr<CCanvas> MakeCanvas(CBitmap& bitmap);

/// Another tool for as long as it lives; then the one before comes back.
/// REQUIRES: the canvas outlives it, and scopes of one tool end in the reverse order of their beginning.
template <class Tool, Tool (CCanvas::*Select)(const Tool&)>
class CSelectScope {
public:
    CSelectScope(CCanvas& canvas, const Tool& tool) : canvas_(canvas), before_((canvas.*Select)(tool)) {}
    ~CSelectScope() { (canvas_.*Select)(before_); }
    CSelectScope(const CSelectScope&) = delete;
    CSelectScope& operator=(const CSelectScope&) = delete;

private:
    CCanvas& canvas_;
    Tool before_;
};

using CPenScope = CSelectScope<Pen, &CCanvas::SelectPen>;
using CBrushScope = CSelectScope<Brush, &CCanvas::SelectBrush>;
using CFontScope = CSelectScope<Font, &CCanvas::SelectFont>;

/// Nothing outside of `box` is painted for as long as it lives, nor anything that was hidden before.
/// REQUIRES: as CSelectScope.
class CClipScope {
public:
    CClipScope(CCanvas& canvas, const Box& box) : canvas_(canvas), before_(canvas.SelectClip(box)) {
        if (before_) canvas_.SelectClip(Intersection(*before_, box));
    }
    ~CClipScope() { canvas_.SelectClip(before_); }
    CClipScope(const CClipScope&) = delete;
    CClipScope& operator=(const CClipScope&) = delete;

private:
    CCanvas& canvas_;
    Clip before_;
};

}  // namespace tradebill
