#include "analysis/closed_groups.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "analysis/closed_results.h"
#include "analysis/closed_row.h"
#include "analysis/closed_tally.h"
#include "analysis/concentration.h"
#include "analysis/group_key.h"
#include "analysis/product_names.h"
#include "base/text_hash.h"
#include "report/records.h"
#include "report/report.h"

namespace tradebill {
namespace {

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
    void Add(const GroupedRow& grouped) {
        by_.products.Add(grouped.row, grouped.currency, grouped.product.key, grouped.product.name);
        by_.contracts.Add(grouped.row, grouped.currency, grouped.contract);
        by_.sides.Add(grouped.row, grouped.currency, grouped.side);
        by_.exchanges.Add(grouped.row, grouped.currency, grouped.exchange);
        if (!grouped.month.empty()) by_.months.Add(grouped.row, grouped.currency, grouped.month);
        rows_[std::string(grouped.currency)].Add(grouped.row.pl);
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
    struct Kinds {
        CGroups products;
        CGroups contracts;
        CGroups sides;
        CGroups exchanges;
        CGroups months;
    };

    Kinds by_;
    std::map<std::string, CConcentration> rows_;  // by currencies
};

}  // namespace

ClosedFiguresByGroup ClosedGroupsOf(const CReport& report, const CTradeTally& trades, CProductNames& products) {
    const CClosedRows rows(report, trades, products);
    CClosedWalk walk;
    for (const PingDetail& row : report.PingDetailStore.Rows) {
        if (const auto grouped = rows.OfDomestic(row)) walk.Add(*grouped);
    }
    for (const PingDetail& row : report.ForeignClosedStore.Rows) walk.Add(rows.OfForeign(row));
    return walk.Finish();
}

}  // namespace tradebill
