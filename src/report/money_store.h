// The account's days: every MoneyRecord read, and the running totals that most figures of the report are read from.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "report/money_record.h"
#include "report/statement_format.h"

namespace tradebill {

/// Width and height, in pixels, of equity, realised, account-yield and trading-yield chart.
using ChartSizes = std::array<int, 8>;

/// Where a MoneyRecord comes from: it decides which of its fields count.
enum class MoneySource : std::uint32_t { Live = 0, Statement = 1 };

/// Whether a record comes from a host: statements don't state what it has of live margin.
[[nodiscard]] bool IsLive(const MoneyRecord& record);

/// Amounts are in base currency: each is divided by its record's rate. A rate of 0 gives infinities.
class CMoneyStore {
public:
    // Figures of all records added since Clear.
    double LastHostCurrent = 0;  ///< HOST_CURRENT of the latest record
    double OpeningEquity = 0;    ///< QCQY of the first record
    double ClosingEquity = 0;    ///< QMJC of the latest record
    double TotalClosedPL = 0;    ///< sum of PCYK
    double TotalPositionPL = 0;  ///< sum of CCDSYK, and of HOST_POSITION_PL of live records
    double TotalCashFlow = 0;    ///< sum of CRJ
    double FirstCashFlow = 0;    ///< CRJ of the first record
    double Available = 0;        ///< KYZJ of the latest record
    double MinEquity = 0;        ///< lowest and highest KHQY
    double MaxEquity = 0;
    double MinDayPL = 0;  ///< lowest and highest PCYK
    double MaxDayPL = 0;
    double FrozenB = 0;         ///< sum of HOST_FROZEN_B of live records
    double FrozenA = 0;         ///< sum of HOST_FROZEN_A of live records
    double HostPositionPL = 0;  ///< sum of HOST_POSITION_PL of live records
    double PositionMargin = 0;  ///< of the latest record: live, its own field; from a statement, closing less available
    double TotalFees = 0;       ///< sum of the magnitudes of SXF and XQSXF

    // Clear leaves these alone.
    double TotalPremium = 0;    ///< sum of QLJSZ; only the first record's is divided by the rate
    std::string StartDateText;  ///< first day of the report, yyyy-mm-dd
    std::string EndDateText;    ///< last day
    tradebill::ChartSizes ChartSizes{};

    /// In order of adding; a day that came again stands where it came last.
    std::vector<std::unique_ptr<MoneyRecord>> Records;

    [[nodiscard]] std::int32_t Count() const { return static_cast<std::int32_t>(Records.size()); }

    /// Takes over `record` and adds it to the figures. A record of a day that is already here replaces the old one in
    /// the list, but the old one's amounts stay in the totals. Returns false for null. Where no equity is printed, KHQY
    /// is replaced by BZJZY + KYZJ.
    bool Add(std::unique_ptr<MoneyRecord> record, MoneySource source, EquityRule equity = EquityRule::AsPrinted);

    /// Whether a statement's record states a cash flow. Where none does, the layout keeps none.
    [[nodiscard]] bool KeepsCashFlow() const;

    /// Whether a record of `day` is here. Up to 14 bytes of `day` are compared with the whole key.
    [[nodiscard]] bool HasDay(std::string_view day) const;

    /// The record of `day`, likewise, or null. Valid until the day comes again or Clear().
    [[nodiscard]] const MoneyRecord* FindDay(std::string_view day) const;

    /// Sets PCYK of the day's record and adds it to TotalClosedPL without taking off what was there before. Nothing for
    /// a day that isn't here.
    void SetDayClosedPL(std::string_view day, std::string_view value);

    /// Sets CCDSYK of the day's record and adds `amount` to TotalPositionPL, not divided by the rate.
    void SetDayPositionPL(std::string_view day, std::string_view value, double amount);

    /// Frees all records and zeroes the figures, but for TotalPremium, the date texts and ChartSizes.
    void Clear();

private:
    [[nodiscard]] MoneyRecord* Find(std::string_view day) const;
    void TakeFirst(const MoneyRecord& record, MoneySource source);
    void TakeLater(const MoneyRecord& record, MoneySource source);
    void Keep(std::unique_ptr<MoneyRecord> record);

    std::unordered_map<std::string, MoneyRecord*> byDay_;
};

}  // namespace tradebill
