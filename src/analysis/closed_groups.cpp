#include "analysis/closed_groups.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "analysis/account_days.h"
#include "analysis/closed_results.h"
#include "analysis/closed_tally.h"
#include "analysis/concentration.h"
#include "analysis/group_key.h"
#include "analysis/periods.h"
#include "analysis/product_names.h"
#include "analysis/stated_amount.h"
#include "analysis/trade_tally.h"
#include "base/day_number.h"
#include "base/number.h"
#include "base/text.h"
#include "base/text_hash.h"
#include "report/closed_rows.h"
#include "report/product_text.h"
#include "report/records.h"
#include "report/report.h"

namespace tradebill {
namespace {

/// A closed row, and all that it is grouped by.
struct GroupedRow {
    ClosedRow row;
    std::string_view currency;
    const ProductName& product;
    std::string contract;
    std::string_view side;  ///< empty for a foreign row that doesn't tell
    std::string_view exchange;
    std::string month;  ///< empty for a row without a day
};

/// Groups of one kind.
class CGroups {
public:
    void Add(const ClosedRow& row, std::string_view currency, std::string_view key, std::string_view name = {}) {
        const auto [found, isNew] = byKey_.try_emplace(GroupKey(currency, key), groups_.size());
        if (isNew) {
            Entry& entry = groups_.emplace_back();
            entry.group.key = key;
            entry.group.name = name;
            entry.group.currency = currency;
        }
        groups_[found->second].tally.Add(row);
    }

    [[nodiscard]] std::vector<ClosedGroup> Finish() {
        std::vector<ClosedGroup> finished;
        finished.reserve(groups_.size());
        for (Entry& entry : groups_) {
            entry.tally.Fill(entry.group);
            finished.push_back(std::move(entry.group));
        }
        std::ranges::sort(finished, {}, [](const ClosedGroup& group) {
            return std::tuple<std::string_view, double, std::string_view>(group.currency, group.pl, group.key);
        });
        return finished;
    }

private:
    struct Entry {
        ClosedGroup group;
        CClosedTally tally;
    };
    std::vector<Entry> groups_;
    TextMap<std::size_t> byKey_;
};

class CClosedWalk {
public:
    CClosedWalk(const CReport& report, const CTradeTally& trades, CProductNames& products)
        : report_(report), trades_(trades), products_(products) {}

    void AddDomestic(const PingDetail& row) {
        const auto closed = ClosedFiguresOf(row, report_);
        if (!closed) return;
        GroupedRow grouped = Begin(row);
        grouped.side = ClosedSidesOf(row, false).position;
        grouped.row.lots = closed->lots;
        grouped.row.pl = closed->pl;
        grouped.row.turnover = static_cast<double>(closed->lots) * closed->closePrice * closed->unit;
        Add(grouped, row);
    }

    /// Its P/L can't be worked out: opening prices and units are missing.
    void AddForeign(const PingDetail& row) {
        GroupedRow grouped = Begin(row);
        grouped.side = ClosedSidesOf(row, true).position;
        grouped.row.lots = IntegerIn(row.MATCH_VOL);
        grouped.row.pl = grouped.row.statedPl.value_or(0);
        Add(grouped, row);
    }

    [[nodiscard]] ClosedFiguresByGroup Finish() {
        ClosedFiguresByGroup figures{.products = by_.products.Finish(),
                                     .contracts = by_.contracts.Finish(),
                                     .sides = by_.sides.Finish(),
                                     .exchanges = by_.exchanges.Finish(),
                                     .months = by_.months.Finish(),
                                     .concentration = {}};
        for (const auto& [currency, rows] : rows_) {
            const auto share = [&wanted = currency](const std::vector<ClosedGroup>& groups) {
                CConcentration shares;
                for (const ClosedGroup& group : groups) {
                    if (group.currency == wanted) shares.Add(group.pl);
                }
                return shares.Share();
            };
            figures.concentration.push_back(
                {currency, share(figures.products), share(figures.contracts), rows.Share()});
        }
        return figures;
    }

private:
    /// All that both families state alike.
    [[nodiscard]] GroupedRow Begin(const PingDetail& row) {
        const std::string_view contract = FieldText(row.CONTRACT);
        const std::string_view delivery = FieldText(row.DELIVERY);
        GroupedRow grouped{.row = {},
                           .currency = CurrencyOf(row, report_),
                           .product = products_.Of(contract, delivery),
                           .contract = ContractKey(contract, delivery, report_.Format().namesDeliveryApart),
                           .side = {},
                           .exchange = TrimBlanks(FieldText(row.EXCH_NAME)),
                           .month = {}};
        grouped.row.statedPl = StatedAmount(row.OFFSETPL);
        if (grouped.exchange.empty()) grouped.exchange = trades_.ExchangeOf(grouped.contract);
        return grouped;
    }

    /// REQUIRES: the row's lots are set.
    void TakeDays(const PingDetail& row, GroupedRow& grouped) const {
        const auto closed = RowDayOf(FieldText(row.BILL_DATE), FieldText(row.MATCH_DATE));
        const auto opened = DayNumberOf(FieldText(row.OPEN_DATE));
        if (closed) grouped.month = NumberedDay(*closed).substr(0, kMonthLength);
        if (closed && opened) grouped.row.holdingDays = *closed - *opened;
        double perLot = 0;
        int known = 0;
        for (const auto& day : {closed, opened}) {
            const auto fee = day ? trades_.FeePerLot(grouped.currency, grouped.product.key, *day) : std::nullopt;
            perLot += fee.value_or(0);
            known += fee ? 1 : 0;
        }
        if (known > 0) grouped.row.fees = perLot * static_cast<double>(grouped.row.lots);
        grouped.row.lacksFees = known < 2;
    }

    void Add(GroupedRow& grouped, const PingDetail& row) {
        TakeDays(row, grouped);
        by_.products.Add(grouped.row, grouped.currency, grouped.product.key, grouped.product.name);
        by_.contracts.Add(grouped.row, grouped.currency, grouped.contract);
        by_.sides.Add(grouped.row, grouped.currency, grouped.side);
        by_.exchanges.Add(grouped.row, grouped.currency, grouped.exchange);
        if (!grouped.month.empty()) by_.months.Add(grouped.row, grouped.currency, grouped.month);
        rows_[std::string(grouped.currency)].Add(grouped.row.pl);
    }

    struct Kinds {
        CGroups products;
        CGroups contracts;
        CGroups sides;
        CGroups exchanges;
        CGroups months;
    };

    const CReport& report_;
    const CTradeTally& trades_;
    CProductNames& products_;
    Kinds by_;
    std::map<std::string, CConcentration> rows_;  // by currencies
};

}  // namespace

ClosedFiguresByGroup ClosedGroupsOf(const CReport& report, const CTradeTally& trades, CProductNames& products) {
    CClosedWalk walk(report, trades, products);
    for (const PingDetail& row : report.PingDetailStore.Rows) walk.AddDomestic(row);
    for (const PingDetail& row : report.ForeignClosedStore.Rows) walk.AddForeign(row);
    return walk.Finish();
}

}  // namespace tradebill
