// The figures of a foreign account, a column for each currency, in as many blocks below each other as the width asks
// for.
#pragma once

#include <cstdint>

#include "paint/canvas.h"

namespace tradebill {

class CReport;

/// Blocks that the currencies of a report need on a picture of `width` pixels: 1 to 11. The eleventh may
/// leave currencies out, and so do all on a picture that is too narrow for two columns.
[[nodiscard]] int CountCurrencyBlocks(const CReport& report, int width);

struct CurrencyTablesSize {
    std::int32_t width = 0;        ///< of the picture, pixels
    std::int32_t blockHeight = 0;  ///< from the top of a block to that of the next, pixels
};

/// Paints the blocks. The first currency found is the total of all and says so; a name without a store takes no column.
///
/// REQUIRES: the ground of `canvas` is white, its texts transparent.
void PaintCurrencyTables(CCanvas& canvas, const CReport& report, const CurrencyTablesSize& size);

}  // namespace tradebill
