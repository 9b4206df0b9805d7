// The room of one report: what a run is asked and all that it keeps. Readers fill a report row by row, passes complete
// it, pictures, page and exports read it. Nothing of a run lives outside of its report, so two can be made at once.
//
// records.h tells what a row is; statement_format.h in what formats differ; money_store.h the account's days and
// totals; row_store.h the plain lists; report_document.h the tally of closed positions; trade_statistics.h the daily
// series; chain_table.h which products belong together.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/scale.h"
#include "driver/report_request.h"
#include "report/account_statistics.h"
#include "report/chain_table.h"
#include "report/currency_money_store.h"
#include "report/money_identity.h"
#include "report/money_store.h"
#include "report/printed_money.h"
#include "report/product_source.h"
#include "report/report_document.h"
#include "report/request_copy.h"
#include "report/row_store.h"
#include "report/side_records.h"
#include "report/statement_format.h"
#include "report/trade_statistics.h"

namespace tradebill {

/// One run's data. Used by one thread at a time.
class CReport {
public:
    // What the run is asked.
    GenerateBillRequest Request = ClearedRequest();  ///< a copy (CopyRequest)
    ReportRange ReportDays;
    std::string RootFolder;    ///< holds "Users", "sys" and "BillTemplate"; no separator at the end
    std::string TemplatePath;  ///< of the statement template, which needn't be there; empty: none is looked for
    std::string_view CarriedTemplate = {};  ///< INI text in place of a template that isn't there; outlives the report
    std::int32_t ScreenWidth = 1920;        ///< pixels; value labels of charts keep a distance that follows it
    const CProductSource* Products = nullptr;  ///< not owned; null: every unit is 1, names have no codes

    // What the run keeps.
    CChainTable ChainTable;
    CMoneyStore MoneyStore;
    CCurrencyMoneyStore CurrencyMoneyStore;
    CMatchStore MatchStore;
    CPingDetailStore PingDetailStore;     ///< of the domestic family, whose rows the page shows
    CPingDetailStore ForeignClosedStore;  ///< of the foreign family; BID is the closing trade's side, as it is printed
    COpiDetailStore OpiDetailStore;
    COpiSumStore OpiSumStore;
    CReportDocument ReportDocument;
    CTradeStatistics TradeStatistics;
    CAccountStatistics AccountStatistics;
    PrintedMoneyList PrintedMoney;           ///< empty in runs that don't ask for it
    tradebill::MoneyIdentity MoneyIdentity;  ///< likewise
    tradebill::SideRecords SideRecords;      ///< likewise; a foreign account has none

    [[nodiscard]] bool IsForeign() const { return Request.StatementKind == kForeignKind; }

    /// The closed positions of the account's family.
    [[nodiscard]] const CPingDetailStore& ClosedStore() const {
        return IsForeign() ? ForeignClosedStore : PingDetailStore;
    }

    [[nodiscard]] const StatementFormat& Format() const { return FormatOf(Request.StatementFormat); }

    /// A measure of 96 dots per inch in pixels at the request's resolution.
    [[nodiscard]] int Scaled(int value) const { return ScaleByDpi(value, Request.Dpi); }

    /// The unit of a contract, texts cut to 63 bytes; 1 without a source.
    [[nodiscard]] std::int32_t AskContractUnit(std::string_view contract, std::string_view delivery) const;

    /// Empties stores, tallies, series and chains, as at the start of a run, and forgets the pictures. What the run is
    /// asked stays, and so does what the stores and the document say of themselves.
    void Clear();
};

}  // namespace tradebill
