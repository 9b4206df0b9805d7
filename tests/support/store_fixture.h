// Clears all that a run leaves behind, before and after each test.
#pragma once

#include <gtest/gtest.h>

#include "driver/report_run.h"
#include "report/account_statistics.h"
#include "report/chain_table.h"
#include "report/report_document.h"
#include "report/request_copy.h"
#include "report/stores.h"
#include "report/trade_statistics.h"

namespace tradebill {

class StoreFixture : public testing::Test {
protected:
    StoreFixture() { ClearAll(); }
    ~StoreFixture() override { ClearAll(); }

    static void ClearAll() {
        Request = ClearedRequest();
        ReportDays = {};
        ClearResults();
        MoneyStore.TotalPremium = 0;
        MoneyStore.StartDateText.clear();
        MoneyStore.EndDateText.clear();
        MoneyStore.ChartSizes = {};
        ReportDocument.BillFolder.clear();
        ReportDocument.ImageFolderName.clear();
        ReportDocument.PageWidth = 0;
    }
};

}  // namespace tradebill
