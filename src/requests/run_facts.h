// What a run of the program read and left, for whoever tells one run from another.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "driver/report_run.h"
#include "export/run_json.h"
#include "readers/scan_listener.h"
#include "readers/statement_loader.h"
#include "requests/report_options.h"

namespace tradebill {

class CReport;

/// Listens to a run, keeps the digest of each statement that it reads, and hands on all that it hears.
class CStatementLog final : public CStatementListener {
public:
    /// `next` must outlive the run.
    explicit CStatementLog(CStatementListener& next) : next_(next) {}

    /// In the order of reading.
    [[nodiscard]] const std::vector<StatementRead>& Statements() const { return statements_; }

    void OnStatement(std::string_view day, const std::string& path, const StatementFile& file) override;
    void OnStatementEnd() override { next_.OnStatementEnd(); }
    void OnTemplate(const TemplateSeen& seen) override;
    void OnReader(std::string_view layout) override;
    void OnDate(std::string_view dateWord, std::string_view date) override { next_.OnDate(dateWord, date); }
    void OnSection(const SectionSeen& seen) override { next_.OnSection(seen); }
    void OnColumns(std::span<const ColumnSeen> columns) override { next_.OnColumns(columns); }
    void OnRow(std::string_view row, Row columns, const RowVerdict& verdict) override {
        next_.OnRow(row, columns, verdict);
    }
    void OnLabelWanted(std::string_view label) override { next_.OnLabelWanted(label); }
    void OnLabelMet(std::string_view label) override { next_.OnLabelMet(label); }
    void OnLabelledValue(const LabelledValue& value) override { next_.OnLabelledValue(value); }
    void OnMoney(const MoneyRecord& record, std::string_view currency) override { next_.OnMoney(record, currency); }
    void OnRecord(const RecordSeen& record) override { next_.OnRecord(record); }
    void OnStop(std::string_view row) override { next_.OnStop(row); }

private:
    CStatementListener& next_;
    std::vector<StatementRead> statements_;
};

/// All that is known of a run that is over. Chain file, template and page are read again; a file among them that is
/// there and can't be read goes to `unread`, unless the run has told it already.
[[nodiscard]] RunFacts FactsOf(const CReport& report, const PreparedRequest& prepared, const RunResult& result,
                               const CStatementLog& log, std::vector<UnreadFile>& unread);

}  // namespace tradebill
