// Listens to the reading of a run and keeps what findings need to know of each statement.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/line_counter.h"
#include "findings/lots_book.h"
#include "findings/section_watch.h"
#include "findings/statement_facts.h"
#include "readers/scan_listener.h"
#include "readers/statement_loader.h"
#include "report/money_record.h"
#include "report/printed_money.h"
#include "report/trade_units.h"

namespace tradebill {

class CReport;

class CStatementWatch final : public CStatementListener {
public:
    /// The printed money figures of each statement go to `report`, and the rows of ReadSideRows; it is otherwise only
    /// looked at.
    ///
    /// REQUIRES: `report` is the one that is read into, and outlives this.
    explicit CStatementWatch(CReport& report) : report_(report) {}

    /// Tallies what the trades say of contract units, too.
    void TallyUnits() { talliesUnits_ = true; }
    /// Reads the tables beside the page's own as well: their rows go to the report's SideRecords.
    void ReadSideRows() { readsSideRows_ = true; }
    [[nodiscard]] const CTradeUnits& Units() const { return units_; }

    /// Of all days that have a file, in the order of reading.
    [[nodiscard]] const std::vector<StatementFacts>& Statements() const { return statements_; }

    void OnStatement(std::string_view day, const std::string& path, const StatementFile& file) override;
    void OnStatementEnd() override;
    void OnTemplate(const TemplateSeen& seen) override;
    void OnReader(std::string_view layout) override;
    void OnDate(std::string_view dateWord, std::string_view date) override;
    void OnSection(const SectionSeen& seen) override;
    void OnColumns(std::span<const ColumnSeen> columns) override;
    void OnRow(std::string_view row, Row columns, const RowVerdict& verdict) override;
    void OnLabelWanted(std::string_view label) override;
    void OnLabelMet(std::string_view label) override;
    void OnMoney(const MoneyRecord& record, std::string_view currency) override;
    void OnRecord(const RecordSeen& record) override;

private:
    StatementFacts& Facts() { return statements_.back(); }
    void LookAtOrigin();
    void BeginPass();
    void EndSection();
    void TakeTrade(const MatchRecord& row);
    void TakeMoney();
    void LookForLostMoney();
    void LookForOtherCurrencies();
    void TakeSideRows();
    void LookForCutTable();
    void LookForCut();
    /// Whether a statement of its date has been read before, and this one wasn't.
    [[nodiscard]] bool IsPassedOver() const;
    [[nodiscard]] bool IsRecognised();
    void TellUnrecognised();
    void Tell(FindingCode code, std::string expected, std::string found, std::string text, std::optional<int> row = {},
              std::optional<SectionKind> section = {});

    CReport& report_;
    std::vector<StatementFacts> statements_;
    CLotsBook lots_;
    CTradeUnits units_;
    bool talliesUnits_ = false;
    bool readsSideRows_ = false;

    // Of the statement at hand.
    std::string_view text_;
    CLineCounter lines_;
    CSectionWatch section_;
    std::string layout_;  ///< of the last reader
    SectionSeen moneySeen_{};
    std::optional<MoneyRecord> money_;
    bool wantsLabels_ = false;  ///< of money
    bool hasLabel_ = false;
    PrintedMoney printed_;
    std::optional<TemplateSeen::Outcome> template_;
    bool hasReader_ = false;
    bool hasLookedForSections_ = false;
};

}  // namespace tradebill
