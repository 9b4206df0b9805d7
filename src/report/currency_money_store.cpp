#include "report/currency_money_store.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>
#include "report/money_record.h"
#include "report/money_store.h"
#include "report/statement_format.h"

namespace tradebill {

CMoneyStore* CCurrencyMoneyStore::Find(std::string_view currency) const {
    const auto found = byName_.find(std::string(currency));
    return found == byName_.end() ? nullptr : found->second;
}

bool CCurrencyMoneyStore::Add(std::unique_ptr<MoneyRecord> record, std::string_view currency, MoneySource source,
                              EquityRule equity) {
    if (CMoneyStore* const store = Find(currency); store != nullptr) {
        if (record != nullptr) return store->Add(std::move(record), source, equity);
        std::erase(Names, currency);
        byName_.erase(std::string(currency));
    }
    auto store = std::make_unique<CMoneyStore>();
    store->Add(std::move(record), source, equity);
    byName_.emplace(currency, store.get());
    Names.emplace_back(currency);
    Stores.push_back(std::move(store));
    return true;
}

void CCurrencyMoneyStore::Clear() {
    Stores.clear();
    Names.clear();
    byName_.clear();
}

}  // namespace tradebill
