#include "analysis/opened_before.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string_view>

#include "analysis/account_days.h"
#include "base/day_number.h"
#include "base/gbk.h"
#include "base/number.h"
#include "base/text.h"
#include "base/text_hash.h"
#include "report/product_text.h"
#include "report/records.h"
#include "report/report.h"

namespace tradebill {
namespace {

/// Lots bought less sold; nothing without a side.
std::optional<std::int64_t> SignedLots(std::string_view bid, std::int64_t lots) {
    if (Contains(bid, "买"_gbk)) return lots;
    if (Contains(bid, "卖"_gbk)) return -lots;
    return std::nullopt;
}

/// What a day's rows tell of the evening before.
class CMorningBook {
public:
    explicit CMorningBook(std::int64_t day) : day_(day) {}

    void AddTrade(const MatchRecord& row) {
        const std::int64_t lots = IntegerIn(row.MATCH_VOL);
        if (IsOfDay(row)) Add(row, SignedLots(FieldText(row.BID), -lots));
    }
    void AddOpen(const OpiDetail& row) {
        if (!IsOfDay(row)) return;
        AddOpening(row);
        Add(row, SignedLots(FieldText(row.BID), IntegerIn(row.POSITION_VOL)));
    }
    void AddClosed(const PingDetail& row) {
        if (IsOfDay(row)) AddOpening(row);
    }

    [[nodiscard]] bool MayHold() const {
        return mayHold_ || std::ranges::any_of(lots_, [](const auto& contract) { return contract.second != 0; });
    }

private:
    template <class Row>
    [[nodiscard]] bool IsOfDay(const Row& row) const {
        return DayNumberOf(FieldText(row.BILL_DATE)) == day_;
    }
    template <class Row>
    void AddOpening(const Row& row) {
        const auto opened = DayNumberOf(FieldText(row.OPEN_DATE));
        mayHold_ |= !opened || *opened < day_;
    }
    template <class Row>
    void Add(const Row& row, std::optional<std::int64_t> lots) {
        mayHold_ |= !lots;
        lots_[ContractKey(FieldText(row.CONTRACT), FieldText(row.DELIVERY), true)] += lots.value_or(0);
    }

    std::int64_t day_;
    bool mayHold_ = false;
    TextMap<std::int64_t> lots_;  // net, of the evening before
};

}  // namespace

bool MayHoldBefore(const CReport& report, const AccountDay& first) {
    if (IsLive(*first.record)) return true;
    CMorningBook book(first.number);
    for (const MatchRecord& row : report.MatchStore.Rows) book.AddTrade(row);
    for (const OpiDetail& row : report.OpiDetailStore.Rows) book.AddOpen(row);
    for (const PingDetail& row : report.ForeignClosedStore.Rows) book.AddClosed(row);
    return book.MayHold();
}

}  // namespace tradebill
