// The figures of a money store as rows of the painted tables.
#pragma once

#include "images/painted_table.h"
#include "report/money_store.h"

namespace tradebill {

using MoneyRow = FigureRow<CMoneyStore>;

template <double CMoneyStore::*Figure>
[[nodiscard]] double MoneyFigure(const CMoneyStore& store) {
    return store.*Figure;
}

/// Both addends of what pending orders hold back.
[[nodiscard]] inline double FrozenByOrders(const CMoneyStore& store) {
    return store.FrozenA + store.FrozenB;
}

}  // namespace tradebill
