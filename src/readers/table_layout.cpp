#include "readers/table_layout.h"

#include <vector>

#include "readers/scan_listener.h"
#include "readers/seen_columns.h"

namespace tradebill {

void TellColumns(const SidesLayout& layout, CScanListener* listener) {
    if (listener == nullptr) return;
    std::vector<ColumnSeen> seen;
    AddColumns(layout.shared, seen);
    for (const PositionSide& side : layout.sides) AddColumns(side.columns, seen);
    listener->OnColumns(seen);
}

}  // namespace tradebill
