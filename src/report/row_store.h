// A list of statement rows: trades, closed positions, open positions.
#pragma once

#include <cstdint>

#include "report/records.h"
#include "report/row_list.h"

namespace tradebill {

/// Rows in the order of reading. A row belongs to the store until Clear; the same row twice is two rows.
template <class Record>
class CRowStore {
public:
    CRowList<Record> Rows;

    [[nodiscard]] std::int32_t Count() const { return static_cast<std::int32_t>(Rows.size()); }

    /// Adds a cleared row and returns it.
    Record& Add() {
        Record& row = Rows.NewRow();
        Rows.KeepRow();
        return row;
    }

    /// Frees all rows; the store is as new.
    void Clear() { Rows.Clear(); }
};

using CMatchStore = CRowStore<MatchRecord>;
using CPingDetailStore = CRowStore<PingDetail>;
using COpiDetailStore = CRowStore<OpiDetail>;
using COpiSumStore = CRowStore<OpiSum>;

}  // namespace tradebill
