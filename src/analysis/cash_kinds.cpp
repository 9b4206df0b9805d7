#include "analysis/cash_kinds.h"

#include <cstddef>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "analysis/compensated_sum.h"
#include "base/decimal.h"
#include "report/report.h"
#include "report/side_records.h"

namespace tradebill {
namespace {

struct Sums {
    CCompensatedSum in;
    CCompensatedSum out;
};

double AmountOf(std::string_view text) {
    const auto amount = ParseDecimal(text);
    return amount ? static_cast<double>(amount->steps) / kDecimalSteps : 0;
}

}  // namespace

std::vector<CashKind> CashKindsOf(const CReport& report) {
    std::vector<CashKind> kinds;
    std::vector<Sums> sums;
    std::unordered_map<std::string_view, std::size_t> places;  // in `kinds`
    for (const CashRecord& row : report.SideRecords.Cash) {
        const auto [place, isNew] = places.try_emplace(row.CASH_TYPE, kinds.size());
        if (isNew) {
            kinds.push_back({.type = row.CASH_TYPE});
            sums.emplace_back();
        }
        ++kinds[place->second].count;
        sums[place->second].in.Add(AmountOf(row.CASH_IN));
        sums[place->second].out.Add(AmountOf(row.CASH_OUT));
    }
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        kinds[i].cashIn = sums[i].in.Total();
        kinds[i].cashOut = sums[i].out.Total();
    }
    return kinds;
}

}  // namespace tradebill
