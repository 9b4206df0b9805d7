// The tables that the sum of several accounts has of its own; rows of statements are those of the accounts.
#pragma once

#include <span>

#include "export/table.h"

namespace tradebill {

/// Their sources have an analysis and no report.
[[nodiscard]] std::span<const ExportTable> SumTables();

}  // namespace tradebill
