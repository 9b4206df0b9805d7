#include "images/painted_table.h"

#include "report/request_copy.h"

namespace tradebill {
namespace {

constexpr Color kTableTextColor = 0x383838;
constexpr Color kTableLineColor = 0xD7D7D7;

Point Held(TablePlace place) {
    return {HeldCoordinate(place.x), HeldCoordinate(place.y)};
}

}  // namespace

CTableTools::CTableTools(CCanvas& canvas)
    : font_(canvas, {.face = "Arial", .cellHeight = ScaleByRequest(15), .weight = 400}),
      pen_(canvas, {.width = 1, .color = kTableLineColor}) {
    canvas.SelectTextColor(kTableTextColor);
}

void DrawTableLine(CCanvas& canvas, TablePlace from, TablePlace to) {
    canvas.MoveTo(Held(from));
    canvas.LineTo(Held(to));
}

void WriteTableText(CCanvas& canvas, TablePlace at, std::string_view text) {
    canvas.WriteText(Held(at), text);
}

LabelTable MeasureLabelTable() {
    return {.indent = ScaleByRequest(12), .column = ScaleByRequest(140), .padding = ScaleByRequest(5)};
}

void PaintLabelTable(CCanvas& canvas, std::span<const LabelledText> rows, std::int64_t rowHeight) {
    const LabelTable table = MeasureLabelTable();
    const std::int64_t top = kTableTop - table.padding;
    DrawTableLine(canvas, {table.Left(), top}, {table.Right(), top});
    std::int64_t bottom = top;
    for (const LabelledText& row : rows) {
        const std::int64_t textTop = bottom + table.padding;
        WriteTableText(canvas, {table.indent + kTableLeft, textTop}, row.label);
        WriteTableText(canvas, {table.column + kTableLeft, textTop}, row.value);
        bottom += rowHeight;
        DrawTableLine(canvas, {table.Left(), bottom}, {table.Right(), bottom});
    }
    const std::int64_t step = table.column - table.indent;
    for (const std::int64_t x : {table.Left(), table.Left() + step, table.Right()}) {
        DrawTableLine(canvas, {x, top}, {x, bottom});
    }
}

}  // namespace tradebill
