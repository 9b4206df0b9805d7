// All tables that are written for other programs.
#pragma once

#include <cstdint>
#include <span>

#include "export/table.h"

namespace tradebill {

/// Counts up when what stands in a table changes its meaning; not with new tables or columns.
inline constexpr std::int32_t kTableSchema = 1;

[[nodiscard]] std::span<const ExportTable> Tables();

}  // namespace tradebill
