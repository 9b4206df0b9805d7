// The foreign family's days: one MoneyStore per currency.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "report/money_record.h"
#include "report/money_store.h"
#include "report/statement_format.h"

namespace tradebill {

/// Stores in the order in which their currencies were first seen.
class CCurrencyMoneyStore {
public:
    std::vector<std::unique_ptr<CMoneyStore>> Stores;
    std::vector<std::string> Names;  ///< of the stores that are in use

    /// The store of `currency`, or null.
    [[nodiscard]] CMoneyStore* Find(std::string_view currency) const;

    /// Adds to the store of `currency`, which is made if it isn't there. A null record is refused by the store; for a
    /// currency that is there it also puts an empty store in the place of the old one. Returns what the store's Add
    /// returns, true when a store was made.
    bool Add(std::unique_ptr<MoneyRecord> record, std::string_view currency, MoneySource source,
             EquityRule equity = EquityRule::AsPrinted);

    void Clear();

private:
    std::unordered_map<std::string, CMoneyStore*> byName_;
};

}  // namespace tradebill
