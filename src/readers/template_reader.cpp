#include "readers/template_reader.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "base/number.h"
#include "base/text.h"
#include "readers/columns.h"
#include "readers/money_labels.h"
#include "readers/money_row.h"
#include "readers/scan_listener.h"
#include "readers/section_scan.h"
#include "readers/seen_columns.h"
#include "readers/statement_template.h"
#include "readers/statement_text.h"
#include "readers/table_layout.h"
#include "report/money_record.h"
#include "report/money_store.h"
#include "report/records.h"
#include "report/report.h"

namespace tradebill {
namespace {

constexpr std::size_t kLeastMoneyColumns = 9;
constexpr std::size_t kLeastColumns = 11;
constexpr std::size_t kLeastSummaryColumns = 12;
constexpr std::size_t kLongestAmount = 15;

SectionLayout LayoutOf(const TemplateSection& section, SectionKind kind, int terminatorOffset, std::size_t minColumns) {
    return {.kind = kind,
            .title = section.title,
            .terminator = section.terminator,
            .terminatorOffset = terminatorOffset,
            .firstRow = section.firstRow,
            .endOffset = section.endOffset,
            .minColumns = minColumns,
            .delimiter = section.delimiter};
}

PositionSide PositionSideOf(const TemplateSide& side) {
    return {.lotsColumn = side.lotsColumn, .side = side.side, .columns = side.columns};
}

bool StatesLabel(Row row, std::string_view label) {
    for (std::size_t column = 0; column + 1 < row.size(); ++column) {
        if (row[column] == label) return true;
    }
    return false;
}

/// Cuts columns that hold a label and its value in two.
class CLabelCutter {
public:
    explicit CLabelCutter(std::string_view labelEnd) : labelEnd_(labelEnd) {}

    /// Valid until the next call, and as long as `row`.
    [[nodiscard]] Row Cut(Row row) {
        if (labelEnd_.empty()) return row;
        columns_.clear();
        for (const std::string_view column : row) {
            const std::size_t end = FindText(column, labelEnd_);
            columns_.push_back(Trim(column.substr(0, end)));
            if (end == std::string_view::npos) continue;
            std::string_view value = Trim(column.substr(end + labelEnd_.size()));
            while (value.starts_with(labelEnd_)) value = Trim(value.substr(labelEnd_.size()));
            columns_.push_back(value);
        }
        return columns_;
    }

private:
    std::string_view labelEnd_;
    std::vector<std::string_view> columns_;
};

/// Option premium whose two directions have labels of their own.
class CTemplatePremium {
public:
    CTemplatePremium(const TemplateLabels& labels, CScanListener* listener) {
        if (!labels.premiumReceived.empty()) received_.emplace(LabelMatch::Equals, labels.premiumReceived, listener);
        if (!labels.premiumPaid.empty()) paid_.emplace(LabelMatch::Equals, labels.premiumPaid, listener);
    }

    void ReadRow(Row row) {
        if (received_) received_->ReadRow(row);
        if (paid_) paid_->ReadRow(row);
    }
    /// A premium that the section states itself stays.
    void Complete(MoneyRecord& record) const {
        if ((!received_ && !paid_) || !FieldText(record.QLJSZ).empty()) return;
        const double net = (received_ ? received_->Amount() : 0) - (paid_ ? paid_->Amount() : 0);
        CopyField(record.QLJSZ, CNumberText(net).View());
    }

private:
    std::optional<CLabelledAmount> received_;
    std::optional<CLabelledAmount> paid_;
};

/// Reads one statement by one scheme, section by section.
class CTemplateReader {
public:
    CTemplateReader(const TemplateScheme& scheme, const StatementText& statement, CReport& report)
        : scheme_(scheme), day_(statement.day), scan_(statement, SearchFrom::Top), sink_(report, statement.listener) {}

    void ReadMoney() {
        if (InOneRow()) {
            ReadMoneyInOneRow();
        } else {
            ReadLabelledMoney();
        }
    }
    void ReadTrades();
    void ReadClosed();
    void ReadOpen();
    void ReadOpenBothSides();
    void ReadSummary();

private:
    [[nodiscard]] bool InOneRow() const { return scheme_.moneyMode == kMoneyInOneRow; }
    void ReadMoneyInOneRow();
    void ReadLabelledMoney();
    RowVerdict ReadOpenRow(Row row, double& total);
    void TellSides(std::span<const Column<OpiSum>> shared, std::span<const TemplateSide> sides) const;

    const TemplateScheme& scheme_;
    std::string_view day_;
    CSectionScan scan_;
    CRecordSink sink_;
};

void CTemplateReader::ReadMoneyInOneRow() {
    const SectionLayout layout{
        .title = scheme_.money.title, .minColumns = kLeastMoneyColumns, .delimiter = scheme_.money.delimiter};
    const auto title = scan_.FindTitle(layout);
    if (!title) return;
    TellMoneyColumns(scheme_.moneyColumns, scheme_.cashFlow, scan_.Listener());
    const auto row = scan_.ReadRowBelow(*title, scheme_.money.firstRow, layout);
    if (row) sink_.Add(MakeMoneyRecord(day_, *row, scheme_.moneyColumns, scheme_.cashFlow));
}

void CTemplateReader::ReadLabelledMoney() {
    SectionLayout layout = LayoutOf(scheme_.money, SectionKind::Money, 2, 0);
    layout.firstRow = scheme_.labels.firstRow;
    layout.endOffset = scheme_.labels.endOffset;
    const auto rows = scan_.Find(layout);
    if (!rows) return;
    TellLabels(scheme_.moneyLabels, scan_.Listener());
    CTemplatePremium premium(scheme_.labels, scan_.Listener());
    CLabelCutter cutter(scheme_.labels.labelEnd);
    auto record = MakeCleared<MoneyRecord>();
    CopyField(record->BILL_DATE, day_);
    bool statesDeposits = false;
    bool statesWithdrawals = false;
    scan_.ReadRows(layout, *rows, [&](Row columns) {
        const Row row = cutter.Cut(columns);
        ReadMoneyRow(row, scheme_.moneyLabels, *record, scan_.Listener());
        premium.ReadRow(row);
        statesDeposits |= StatesLabel(row, scheme_.depositsLabel);
        statesWithdrawals |= StatesLabel(row, scheme_.withdrawalsLabel);
    });
    // Both amounts are what the label of the deposits reads as, not the values behind the labels. Words read as 0, so
    // CRJ has only its own label in practice.
    const double labelAmount = ParseAmount(scheme_.depositsLabel);
    const double deposits = statesDeposits ? labelAmount : 0;
    const double withdrawals = statesWithdrawals ? labelAmount : 0;
    if ((deposits > 0 || withdrawals > 0) && FieldText(record->CRJ).empty()) {
        CopyField(record->CRJ, CNumberText(deposits - withdrawals).View());
    }
    premium.Complete(*record);
    sink_.Add(std::move(record));
}

void CTemplateReader::ReadTrades() {
    const auto& table = scheme_.trades;
    ReadTable(scan_,
              TableLayout<MatchRecord>{LayoutOf(table.section, SectionKind::Trades, 2, kLeastColumns), table.columns},
              day_, sink_);
}

/// Where the money section is one row, it has no realised P/L, and the rows' sum stands in for it.
void CTemplateReader::ReadClosed() {
    const auto& table = scheme_.closed;
    const TableLayout<PingDetail> layout{LayoutOf(table.section, SectionKind::Closed, 3, kLeastColumns), table.columns};
    const auto rows = scan_.Find(layout.section);
    if (!rows) return;
    double total = 0;
    TellColumns(layout.columns, scan_.Listener());
    scan_.ReadRows(layout.section, *rows, [&](Row row) {
        RequireColumn(row, scheme_.closedSideColumn);
        PingDetail& record = sink_.NewRow<PingDetail>();
        FillRecord(record, day_, row, layout.columns);
        total += AmountIn(record.OFFSETPL);
        sink_.Add(record);
    });
    if (InOneRow()) sink_.SetDayClosedPL(day_, CNumberText::SixDecimals(total).View(), total);
}

void CTemplateReader::ReadOpen() {
    const auto& table = scheme_.open;
    ReadTable(scan_,
              TableLayout<OpiDetail>{LayoutOf(table.section, SectionKind::Open, 2, kLeastColumns), table.columns}, day_,
              sink_);
}

/// A side without a lots column is read by none of its columns.
void CTemplateReader::TellSides(std::span<const Column<OpiSum>> shared, std::span<const TemplateSide> sides) const {
    std::vector<PositionSide> read;
    for (const TemplateSide& side : sides) {
        if (side.lotsColumn != kNoColumn) read.push_back(PositionSideOf(side));
    }
    TellColumns(SidesLayout{.shared = shared, .sides = read}, scan_.Listener());
}

/// A lots column that the template names must be in every row. The P/L joins the total with or without lots.
RowVerdict CTemplateReader::ReadOpenRow(Row row, double& total) {
    RowVerdict verdict{RowFate::NoLots};
    for (const TemplateSide& side : scheme_.openSides) {
        if (side.lotsColumn == kNoColumn) continue;
        RequireColumn(row, side.lotsColumn);
        const bool made =
            ReadSide(row, scheme_.openShared, PositionSideOf(side), day_, SumFeed::Yes, sink_, [](const OpiSum&) {});
        if (made) verdict.fate = RowFate::Read;
    }
    if (scheme_.openPLColumn < row.size()) {
        total += ParseAmount(row[scheme_.openPLColumn].substr(0, kLongestAmount));
    }
    return verdict;
}

void CTemplateReader::ReadOpenBothSides() {
    const SectionLayout layout = LayoutOf(scheme_.open.section, SectionKind::Open, 2, kLeastColumns);
    const auto rows = scan_.Find(layout);
    if (!rows) return;
    TellSides(scheme_.openShared, scheme_.openSides);
    double total = 0;
    scan_.ReadRows(layout, *rows, [&](Row row) { return ReadOpenRow(row, total); });
    if (InOneRow()) sink_.SetDayPositionPL(day_, CNumberText::SixDecimals(total).View(), total);
}

void CTemplateReader::ReadSummary() {
    const SectionLayout layout = LayoutOf(scheme_.summary, SectionKind::Summary, 2, kLeastSummaryColumns);
    const auto rows = scan_.Find(layout);
    if (!rows) return;
    TellSides(scheme_.summaryShared, scheme_.summarySides);
    scan_.ReadRows(layout, *rows, [&](Row row) {
        RowVerdict verdict{RowFate::NoLots};
        for (const TemplateSide& side : scheme_.summarySides) {
            if (side.lotsColumn >= row.size()) continue;
            const bool made = ReadSide(row, scheme_.summaryShared, PositionSideOf(side), day_, SumFeed::No, sink_,
                                       [](const OpiSum&) {});
            if (made) verdict.fate = RowFate::Read;
        }
        return verdict;
    });
}

/// One section's turn: whether the template must describe it fully, or the reader goes on with what there is.
struct Step {
    const TemplateSection& section;
    bool mustBeComplete;
    void (CTemplateReader::*read)();
};

/// Reads the enabled sections in their order up to one that is incomplete, which it returns. `apart`: product and
/// delivery month have columns of their own.
const TemplateSection* ReadSections(const TemplateScheme& scheme, bool apart, CTemplateReader& reader) {
    const Step steps[] = {
        {scheme.money, scheme.moneyMode == kMoneyLabelled, &CTemplateReader::ReadMoney},
        {scheme.trades.section, true, &CTemplateReader::ReadTrades},
        {scheme.closed.section, true, &CTemplateReader::ReadClosed},
        {scheme.open.section, apart, apart ? &CTemplateReader::ReadOpen : &CTemplateReader::ReadOpenBothSides},
        {scheme.summary, true, &CTemplateReader::ReadSummary},
    };
    for (const Step& step : steps) {
        if (!step.section.isEnabled) continue;
        if (step.mustBeComplete && !step.section.MissingKey().empty()) return &step.section;
        (reader.*step.read)();
    }
    return nullptr;
}

/// Whether a statement of the same date, by what the text says of itself, has been read.
bool IsKnownDay(const StatementText& statement, std::string_view dateWord, const CMoneyStore& store) {
    const auto date = FindDate(statement.text, dateWord);
    if (statement.listener != nullptr) statement.listener->OnDate(dateWord, date.value_or(std::string_view()));
    return date && store.HasDay(*date);
}

void Tell(CScanListener* listener, const TemplateSeen& seen) {
    if (listener != nullptr) listener->OnTemplate(seen);
}

}  // namespace

bool ReadTemplateStatement(const StatementText& statement, CReport& report) {
    using enum TemplateSeen::Outcome;
    if (statement.byTemplate == nullptr) {
        Tell(statement.listener, {.outcome = NoFile});
        return false;
    }
    const bool isNew = statement.byTemplate->HoldsNewScheme(statement.day);
    const TemplateScheme& scheme = statement.byTemplate->Scheme(isNew);
    if (IsKnownDay(statement, scheme.dateWord, report.MoneyStore)) {
        Tell(statement.listener, {.outcome = KnownDay, .newScheme = isNew});
        return true;
    }
    CTemplateReader reader(scheme, statement, report);
    const TemplateSection* const incomplete = ReadSections(scheme, report.Format().namesDeliveryApart, reader);
    if (incomplete == nullptr) {
        Tell(statement.listener, {.outcome = Read, .newScheme = isNew});
        return true;
    }
    Tell(statement.listener, {.outcome = Incomplete,
                              .newScheme = isNew,
                              .section = incomplete->name,
                              .missingKey = incomplete->MissingKey()});
    return false;
}

}  // namespace tradebill
