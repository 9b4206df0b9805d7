// Closed positions on their way into the tally, and a host that is asked for units.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "report/record_makers.h"
#include "report/report_document.h"
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
        Request.StatementFormat = 2;
    }
    static void Fold(const PingDetail& row) { ReportDocument.FoldClosedRow(row); }
    static const ContractOffset& First() { return *ReportDocument.Offsets.at(0); }
    static std::vector<std::string> Contracts() {
        std::vector<std::string> contracts;
        for (const auto& offset : ReportDocument.Offsets) {
            contracts.push_back(offset->CONTRACT + std::string("/") + offset->DELIVERY);
        }
        return contracts;
    }
    static void ExpectCounters(std::int32_t wins, std::int32_t losses, std::int32_t flats) {
        EXPECT_EQ(AccountStatistics.WinCount, wins);
        EXPECT_EQ(AccountStatistics.LoseCount, losses);
        EXPECT_EQ(AccountStatistics.FlatCount, flats);
    }
};

}  // namespace tradebill
