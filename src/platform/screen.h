// The display that a report is looked at on.
#pragma once

namespace tradebill {

/// Width in pixels: the value labels of a chart keep a distance that follows it, whatever the chart's own size. 1920
/// where displays are not asked for or are not there.
[[nodiscard]] int DisplayWidth();

}  // namespace tradebill
