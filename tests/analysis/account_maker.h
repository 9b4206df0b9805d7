// Small accounts, day by day and row by row, for the tests of their analysis.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/analysis.h"
#include "analysis/day_figures.h"
#include "analysis/product_names.h"
#include "analysis/trade_tally.h"
#include "report/money_store.h"
#include "report/product_source.h"
#include "report/record_makers.h"
#include "report/report.h"
#include "support/gbk_text.h"
#include "support/store_fixture.h"

namespace tradebill {

/// Units and codes by texts in GBK; the unit is 1 for others.
class CListedProducts final : public CProductSource {
public:
    std::map<std::string, std::int32_t, std::less<>> units;
    std::map<std::string, std::string, std::less<>> codes;

    [[nodiscard]] std::int32_t UnitOf(std::string_view contract, std::string_view /*delivery*/) const override {
        const auto found = units.find(contract);
        return found == units.end() ? 1 : found->second;
    }
    [[nodiscard]] std::optional<std::string> CodeOf(std::string_view name) const override {
        const auto found = codes.find(name);
        return found == codes.end() ? std::nullopt : std::optional(found->second);
    }
};

/// A closed position or trade by what matters here; sides in UTF-8.
struct MadeClosed {
    std::string_view day;
    std::string_view contract;
    std::string_view side;  ///< "买" or "卖"
    std::string_view lots;
    std::string_view openDay;
    std::string_view openPrice;
    std::string_view closePrice;
    std::string_view stated = "0.00";
    std::string_view delivery = "";
    std::string_view exchange = "";
};
struct MadeTrade {
    std::string_view day;
    std::string_view contract;
    std::string_view lots;
    std::string_view fee;
    std::string_view turnover = "0.00";
    std::string_view exchange = "";
    std::string_view delivery = "";
};

class AccountMaker : public StoreFixture {
protected:
    AccountMaker() {
        report.Request.StatementFormat = 2;  // full contract codes
        report.Products = &products;
    }

    /// Kept as it is, whatever it says of its day.
    void AddRecord(const MoneyRecord& record) { report.MoneyStore.Add(CopyOf(record), MoneySource::Statement); }

    /// A day of this equity and cash flow, opened with `opening` if one is given.
    void AddDay(std::string_view day, std::string_view equity, std::string_view cashFlow = "0.00",
                std::string_view opening = "") {
        AddRecord(Money(day, {{"KHQY", equity}, {"CRJ", cashFlow}, {"QCQY", opening}}));
    }

    /// Days from 2 January 2024 on, whose indexes are these: the account starts with 1000 and has no cash flow.
    void AddIndexes(std::initializer_list<double> indexes) {
        std::string_view opening = "1000.00";
        for (const double index : indexes) {
            const std::string day = "202401" + std::string(nextDay_ < 10 ? "0" : "") + std::to_string(nextDay_);
            ++nextDay_;
            AddDay(day, std::to_string(index * 1000), "0.00", opening);
            opening = "";
        }
    }

    void AddClosed(const MadeClosed& made) {
        report.PingDetailStore.Add() = Closed({{"BILL_DATE", made.day},
                                               {"CONTRACT", Gbk(made.contract)},
                                               {"DELIVERY", made.delivery},
                                               {"EXCH_NAME", Gbk(made.exchange)},
                                               {"BID", Gbk(made.side)},
                                               {"MATCH_VOL", made.lots},
                                               {"OPEN_DATE", made.openDay},
                                               {"OPEN_PRICE", made.openPrice},
                                               {"MATCH_PRICE", made.closePrice},
                                               {"OFFSETPL", made.stated}});
    }

    void AddTrade(const MadeTrade& made) {
        MatchRecord& row = report.MatchStore.Add();
        FillFields<MatchRecord>(row, kMatchFields,
                                {{"BILL_DATE", made.day},
                                 {"CONTRACT", Gbk(made.contract)},
                                 {"DELIVERY", made.delivery},
                                 {"EXCH_NAME", Gbk(made.exchange)},
                                 {"MATCH_VOL", made.lots},
                                 {"POUNDAGE", made.fee},
                                 {"TURNOVER", made.turnover}});
    }

    [[nodiscard]] DayFigures Days() const {
        CProductNames names(report);
        return DayFiguresOf(report, CTradeTally(report, names));
    }

    [[nodiscard]] Analysis Analysed(std::int64_t tradingDays = kUsualTradingDays) const {
        return Analyse(report, {.tradingDays = tradingDays});
    }

    /// Empty if there is none.
    [[nodiscard]] static std::string ReasonOf(const Analysis& analysis, std::string_view path) {
        for (const NullReason& reason : analysis.reasons) {
            if (reason.path == path) return std::string(reason.reason);
        }
        return {};
    }

    CListedProducts products;

private:
    int nextDay_ = 2;
};

}  // namespace tradebill
