// The display that a report is looked at on.
#pragma once

namespace tradebill {

/// Width in pixels: the value labels of a chart keep a distance that follows it, whatever the chart's own size. Until
/// it is set to something else that of the display, or 1920 where displays are not asked for or are not there.
[[nodiscard]] int ScreenWidth();

/// Values below 1 set it back.
void SetScreenWidthPixels(int width);

}  // namespace tradebill
