// A root with one account of two days, a request that names it, and a report that closes itself.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "driver/run_fixture.h"
#include "hosts/tradebill.h"

namespace tradebill {

struct CloseReport {
    void operator()(TradeBillReport* report) const { TradeBillClose(report); }
};
struct CloseTable {
    void operator()(TradeBillTable* table) const { TradeBillCloseTable(table); }
};

inline TradeBillReport* OpenedReport() {
    TradeBillReport* report = nullptr;
    EXPECT_EQ(TradeBillOpen(&report), TRADEBILL_DONE);
    return report;
}

class CHostSide {
public:
    explicit CHostSide(std::string root) : root_(std::move(root)) {
        request.Size = sizeof request;
        request.RootUtf8 = root_.c_str();
    }

    [[nodiscard]] TradeBillReport* Handle() const { return report_.get(); }
    std::int32_t Make() { return TradeBillMake(Handle(), &request); }
    std::int32_t Read() { return TradeBillRead(Handle(), &request); }
    [[nodiscard]] std::string Error() const { return TradeBillErrorUtf8(Handle()); }

    [[nodiscard]] TradeBillTotals Totals() const {
        TradeBillTotals totals{};
        totals.Size = sizeof totals;
        EXPECT_EQ(TradeBillTotal(Handle(), &totals), TRADEBILL_DONE);
        return totals;
    }

    /// Empty if there is none.
    [[nodiscard]] std::string Json() const {
        char* json = nullptr;
        std::size_t bytes = 0;
        if (TradeBillJson(Handle(), &json, &bytes) != TRADEBILL_DONE) return {};
        std::string text(json, bytes);
        EXPECT_EQ(text.size(), std::string_view(json).size());
        TradeBillFree(json);
        return text;
    }

    TradeBillRequest request{};

private:
    std::string root_;
    std::unique_ptr<TradeBillReport, CloseReport> report_{OpenedReport()};
};

class HostFixture : public RunFixture {
protected:
    HostFixture() { PutBothDays(); }

    [[nodiscard]] std::string Bills() const { return root_.Path("Users/u/Data/Bill"); }

    CHostSide host_{root_.Path()};
};

}  // namespace tradebill
