// A list of statement rows: trades, closed positions, open positions.
#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

#include "platform/lock.h"
#include "report/records.h"

namespace tradebill {

/// Rows in the order of reading. A row belongs to the store until Clear; the same row twice is two rows.
///
/// REQUIRES: nobody adds while Rows is read, which takes no lock.
template <class Record>
class CRowStore {
public:
    std::vector<std::unique_ptr<Record>> Rows;

    [[nodiscard]] std::int32_t Count() const { return static_cast<std::int32_t>(Rows.size()); }

    /// Takes over `row`. Returns false and changes nothing if it is null.
    bool Add(std::unique_ptr<Record> row) {
        if (row == nullptr) return false;
        const std::scoped_lock guard(lock_);
        Rows.push_back(std::move(row));
        return true;
    }

    /// Frees all rows; the store is as new.
    void Clear() {
        const std::scoped_lock guard(lock_);
        Rows.clear();
    }

private:
    CLock lock_;
};

using CMatchStore = CRowStore<MatchRecord>;
using CPingDetailStore = CRowStore<PingDetail>;
using COpiDetailStore = CRowStore<OpiDetail>;
using COpiSumStore = CRowStore<OpiSum>;

}  // namespace tradebill
