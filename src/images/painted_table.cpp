#include "images/painted_table.h"

#include <cstdint>
#include <span>
#include <string_view>

#include "base/scale.h"
#include "paint/canvas.h"
#include "paint/geometry.h"

namespace tradebill {
namespace {

constexpr Color kTableTextColor = 0x383838;
constexpr Color kTableLineColor = 0xD7D7D7;

Point Clamped(TablePlace place) {
    return {ClampCoordinate(place.x), ClampCoordinate(place.y)};
}

}  // namespace

CTableTools::CTableTools(CCanvas& canvas, std::int32_t dpi)
    : font_(canvas, {.face = "Arial", .cellHeight = ScaleByDpi(15, dpi), .weight = 400}),
      pen_(canvas, {.width = 1, .color = kTableLineColor}) {
    canvas.SelectTextColor(kTableTextColor);
}

void DrawTableLine(CCanvas& canvas, TablePlace from, TablePlace to) {
    canvas.MoveTo(Clamped(from));
    canvas.LineTo(Clamped(to));
}

void WriteTableText(CCanvas& canvas, TablePlace at, std::string_view text) {
    canvas.WriteText(Clamped(at), text);
}

LabelTable MeasureLabelTable(std::int32_t dpi) {
    return {.indent = ScaleByDpi(12, dpi), .column = ScaleByDpi(140, dpi), .padding = ScaleByDpi(5, dpi)};
}

void PaintLabelTable(CCanvas& canvas, std::span<const LabelledText> rows, const TableScale& scale) {
    const LabelTable table = MeasureLabelTable(scale.dpi);
    const std::int64_t top = kTableTop - table.padding;
    DrawTableLine(canvas, {table.Left(), top}, {table.Right(), top});
    std::int64_t bottom = top;
    for (const LabelledText& row : rows) {
        const std::int64_t textTop = bottom + table.padding;
        WriteTableText(canvas, {table.indent + kTableLeft, textTop}, row.label);
        WriteTableText(canvas, {table.column + kTableLeft, textTop}, row.value);
        bottom += scale.rowHeight;
        DrawTableLine(canvas, {table.Left(), bottom}, {table.Right(), bottom});
    }
    const std::int64_t step = table.column - table.indent;
    for (const std::int64_t x : {table.Left(), table.Left() + step, table.Right()}) {
        DrawTableLine(canvas, {x, top}, {x, bottom});
    }
}

}  // namespace tradebill
