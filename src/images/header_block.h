// The head of a section: the title bar, and for the report's first section the banner above it, with the account and
// the days of the report.
#pragma once

#include <cstdint>
#include <string_view>

#include "paint/canvas.h"
#include "report/request_copy.h"

namespace tradebill {

struct HeaderBlock {
    ReportRange days;          ///< printed as local calendar days; one beyond the calendar as zeros
    std::string_view account;  ///< GBK
    std::int32_t width = 0;    ///< pixels; the banner's texts begin 200 to the left of it
    bool withBanner = false;   ///< without it neither days nor account are shown
};

/// Paints at the canvas's left edge from `y` on, in plain pixels whatever the resolution: the page stretches the
/// picture. A picture that can't be loaded is left out. Returns where the title bar begins. Leaves the text white.
///
/// REQUIRES: texts are transparent on `canvas`.
std::int32_t PaintHeaderBlock(CCanvas& canvas, const HeaderBlock& block, std::int32_t y);

}  // namespace tradebill
