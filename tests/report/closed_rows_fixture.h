// Closed positions on their way into the tally, and a host that is asked for units.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "driver/host_products.h"
#include "report/closed_rows.h"
#include "report/record_makers.h"
#include "report/report.h"
#include "support/gbk_text.h"
#include "support/store_fixture.h"

namespace tradebill {

struct Question {
    std::string account;
    std::string contract;
    std::string delivery;
};
inline std::vector<Question> questions;  ///< that UnitOfTen was asked

inline std::int32_t UnitOfTen(const char* account, const char* contract, const char* delivery) {
    questions.push_back({account, contract, delivery});
    return 10;
}

class ClosedRows : public StoreFixture {
protected:
    ClosedRows() {
        questions.clear();
        report.Request.StatementFormat = 2;
        report.Products = &products_;
    }
    void Fold(const PingDetail& row) { FoldClosedRow(row, report); }
    [[nodiscard]] const ContractOffset& First() const { return *report.ReportDocument.Offsets.at(0); }
    [[nodiscard]] std::vector<std::string> Contracts() const {
        std::vector<std::string> contracts;
        for (const auto& offset : report.ReportDocument.Offsets) {
            contracts.push_back(offset->CONTRACT + std::string("/") + offset->DELIVERY);
        }
        return contracts;
    }
    void ExpectCounters(std::int32_t wins, std::int32_t losses, std::int32_t flats) const {
        EXPECT_EQ(report.AccountStatistics.WinCount, wins);
        EXPECT_EQ(report.AccountStatistics.LoseCount, losses);
        EXPECT_EQ(report.AccountStatistics.FlatCount, flats);
    }

private:
    CHostProducts products_{report.Request};
};

}  // namespace tradebill
