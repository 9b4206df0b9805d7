// The two sides of a ContractOffset, so that whoever fills or shows one says it once for both.
#pragma once

#include <cstdint>

#include "report/records.h"

namespace tradebill {

/// The fields of one side of a ContractOffset.
struct OffsetSide {
    std::int32_t ContractOffset::*lots;
    double ContractOffset::*pl;
    std::int32_t ContractOffset::*count;
    std::int32_t ContractOffset::*winCount;
    std::int32_t ContractOffset::*winLots;
    double ContractOffset::*winPL;
    std::int32_t ContractOffset::*loseCount;
    std::int32_t ContractOffset::*loseLots;
    double ContractOffset::*losePL;
    double ContractOffset::*maxWin;
    double ContractOffset::*maxLoss;
};

inline constexpr OffsetSide kLongSide{
    .lots = &ContractOffset::LONG_VOL,
    .pl = &ContractOffset::LONG_PL,
    .count = &ContractOffset::LONG_COUNT,
    .winCount = &ContractOffset::LONG_WIN_COUNT,
    .winLots = &ContractOffset::LONG_WIN_VOL,
    .winPL = &ContractOffset::LONG_WIN_PL,
    .loseCount = &ContractOffset::LONG_LOSE_COUNT,
    .loseLots = &ContractOffset::LONG_LOSE_VOL,
    .losePL = &ContractOffset::LONG_LOSE_PL,
    .maxWin = &ContractOffset::LONG_MAX_WIN,
    .maxLoss = &ContractOffset::LONG_MAX_LOSS,
};

inline constexpr OffsetSide kShortSide{
    .lots = &ContractOffset::SHORT_VOL,
    .pl = &ContractOffset::SHORT_PL,
    .count = &ContractOffset::SHORT_COUNT,
    .winCount = &ContractOffset::SHORT_WIN_COUNT,
    .winLots = &ContractOffset::SHORT_WIN_VOL,
    .winPL = &ContractOffset::SHORT_WIN_PL,
    .loseCount = &ContractOffset::SHORT_LOSE_COUNT,
    .loseLots = &ContractOffset::SHORT_LOSE_VOL,
    .losePL = &ContractOffset::SHORT_LOSE_PL,
    .maxWin = &ContractOffset::SHORT_MAX_WIN,
    .maxLoss = &ContractOffset::SHORT_MAX_LOSS,
};

}  // namespace tradebill
