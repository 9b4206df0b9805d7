// The passes over a report's daily series, once all days are read: what the margin of opposite positions comes to, and
// each day's yield.
#pragma once

namespace tradebill {

class CReport;

/// Nets opposite positions of products in one chain: the smaller margin is taken off the larger. Then margin and Risk
/// of each day that has positions are worked out anew.
///
/// REQUIRES: all days are read, and the chain table is loaded. Not to be run twice.
void OffsetMargins(CReport& report);

/// Computes each day's Yield: the gain since the start, net of all money paid in, as a fraction of the opening equity,
/// or of the money paid in if the account was opened with nothing.
///
/// REQUIRES: all days are read.
void ComputeYields(CReport& report);

}  // namespace tradebill
