// The display that a report is looked at on.
#pragma once

namespace tradebill {

/// Width in pixels: the value labels of a chart keep a distance that follows it, whatever the chart's own size. 1920
/// until it is set to something else.
[[nodiscard]] int ScreenWidth();

/// Values below 1 set it back.
void SetScreenWidthPixels(int width);

}  // namespace tradebill
