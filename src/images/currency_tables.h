// The figures of a foreign account, a column for each currency, in as many blocks below each other as the width asks
// for.
#pragma once

#include <cstdint>

#include "paint/canvas.h"

namespace tradebill {

/// Blocks that the currencies of CurrencyMoneyStore need on a picture of `width` pixels: 1 to 11. The eleventh may
/// leave currencies out, and so do all on a picture that is too narrow for two columns.
[[nodiscard]] int CountCurrencyBlocks(int width);

struct CurrencyTablesSize {
    std::int32_t width = 0;        ///< of the picture, pixels
    std::int32_t blockHeight = 0;  ///< from the top of a block to that of the next, pixels
};

/// Paints the blocks on a canvas of white ground and transparent texts. The first currency found is the total of all
/// and says so; a name without a store takes no column.
void PaintCurrencyTables(CCanvas& canvas, const CurrencyTablesSize& size);

}  // namespace tradebill
