// What the painted tables of the account share: font, pen and colour, rows that are told as data, and the table of
// labels and values. account_table.h, currency_tables.h and statistics_panel.h are the tables.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/number.h"
#include "paint/canvas.h"

namespace tradebill {

/// A row of a table: a label (GBK) and the figure of a store that stands beside it.
template <class Source>
struct FigureRow {
    std::string_view label;
    double (*figure)(const Source&);
    std::string_view unit = {};  ///< behind the figure
};

/// A figure as tables show it: two decimals, no thousands mark.
template <class Source>
[[nodiscard]] std::string FigureText(const FigureRow<Source>& row, const Source& source) {
    std::string text(CNumberText(row.figure(source)).View());
    text += row.unit;
    return text;
}

struct LabelledText {
    std::string_view label;
    std::string value;
};

template <class Source>
[[nodiscard]] std::vector<LabelledText> LabelledFigures(std::span<const FigureRow<Source>> rows, const Source& source) {
    std::vector<LabelledText> texts;
    for (const FigureRow<Source>& row : rows) texts.push_back({row.label, FigureText(row, source)});
    return texts;
}

/// Font, pen and text colour of tables. Font and pen end with it; the colour stays.
class CTableTools {
public:
    CTableTools(CCanvas& canvas, std::int32_t dpi);

private:
    CFontScope font_;
    CPenScope pen_;
};

/// A place in a table. At an absurd resolution it may lie outside of 32 bits, and is held at their ends.
struct TablePlace {
    std::int64_t x = 0;
    std::int64_t y = 0;
};

void DrawTableLine(CCanvas& canvas, TablePlace from, TablePlace to);
void WriteTableText(CCanvas& canvas, TablePlace at, std::string_view text);

inline constexpr std::int64_t kTableLeft = 10;  ///< pixels at every resolution
inline constexpr std::int64_t kTableTop = 20;

/// Measures of the table of labels and values at some resolution.
struct LabelTable {
    std::int64_t indent;   ///< of the labels
    std::int64_t column;   ///< from the left margin to the values, and twice to the right edge
    std::int64_t padding;  ///< between texts and the lines around them

    [[nodiscard]] std::int64_t Left() const { return indent - padding + kTableLeft; }
    [[nodiscard]] std::int64_t Right() const { return 2 * column + kTableLeft - padding; }
};

[[nodiscard]] LabelTable MeasureLabelTable(std::int32_t dpi);

struct TableScale {
    std::int64_t rowHeight = 0;  ///< pixels from row to row
    std::int32_t dpi = 0;        ///< of the screen
};

/// Paints rows of a label and a value.
void PaintLabelTable(CCanvas& canvas, std::span<const LabelledText> rows, const TableScale& scale);

}  // namespace tradebill
