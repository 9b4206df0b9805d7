#include "readers/statement_template.h"

#include <cstddef>
#include <cstdint>
#include <ctime>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/day.h"
#include "base/gbk.h"
#include "base/ini_file.h"
#include "base/number.h"
#include "base/report_error.h"
#include "base/text.h"
#include "platform/file.h"
#include "readers/columns.h"
#include "readers/money_labels.h"
#include "readers/money_row.h"
#include "readers/scan_listener.h"
#include "readers/template_keys.h"
#include "report/records.h"

namespace tradebill {
namespace {

constexpr std::int32_t kNoKey = -1;

/// The keys of one INI section of the template, found once.
class CKeys {
public:
    CKeys(const CIniFile& file, std::string_view section) : section_(file.FindSection(section)) {}

    [[nodiscard]] std::string_view Text(std::string_view key, std::string_view fallback = {}) const {
        const CIniFile::Entry* const entry = Find(key);
        return (entry != nullptr ? std::string_view(entry->value) : fallback).substr(0, kLongestTemplateText);
    }
    [[nodiscard]] std::int32_t Integer(std::string_view key, std::int32_t fallback) const {
        const CIniFile::Entry* const entry = Find(key);
        return entry != nullptr ? ParseInteger(entry->value) : fallback;
    }
    /// A column's number; kNoColumn for a key that is missing or below 0.
    [[nodiscard]] std::size_t Column(std::string_view key) const {
        const std::int32_t column = Integer(key, kNoKey);
        return column < 0 ? kNoColumn : static_cast<std::size_t>(column);
    }

private:
    [[nodiscard]] const CIniFile::Entry* Find(std::string_view key) const {
        return section_ != nullptr ? FindEntry(*section_, key) : nullptr;
    }

    const CIniFile::Section* section_;
};

template <class Record>
std::vector<Column<Record>> ColumnsOf(const CKeys& keys, std::span<const TemplateColumnKey<Record>> table) {
    std::vector<Column<Record>> columns;
    for (const auto& entry : table) {
        const std::size_t column = keys.Column(entry.key);
        if (column != kNoColumn) columns.push_back({entry.field, column, entry.treatment});
    }
    return columns;
}

template <class Record, std::size_t N>
std::vector<Column<Record>> ColumnsOf(const CKeys& keys, const TemplateColumnKey<Record> (&table)[N]) {
    return ColumnsOf(keys, std::span<const TemplateColumnKey<Record>>(table));
}

std::vector<MoneyLabel> LabelsOf(const CKeys& keys) {
    std::vector<MoneyLabel> labels;
    for (const auto& entry : kMoneyLabelKeys) {
        const std::string_view word = keys.Text(entry.key);
        if (!word.empty()) labels.push_back({entry.field, LabelMatch::Equals, word});
    }
    return labels;
}

TemplateSide TemplateSideOf(const CKeys& keys, std::string_view side, std::string_view lotsKey,
                            std::span<const TemplateColumnKey<OpiSum>> table) {
    return {keys.Column(lotsKey), side, ColumnsOf(keys, table)};
}

/// Reads one of the two schemes.
class CSchemeReader {
public:
    CSchemeReader(const CIniFile& file, bool isNew)
        : file_(file), common_(file, kTemplateCommonSection), isNew_(isNew) {}

    [[nodiscard]] TemplateScheme Read() const {
        TemplateScheme scheme;
        scheme.dateWord =
            isNew_ ? common_.Text("DATE_FORMAT_NEW", "日期 Date："_gbk) : common_.Text("DATE_FORMAT", "日期："_gbk);
        scheme.moneyMode = MoneyMode();
        ReadMoney(scheme);
        ReadTables(scheme);
        return scheme;
    }

private:
    [[nodiscard]] std::string SectionName(std::string_view part) const {
        return std::string(part) + (isNew_ ? "_NEW" : "");
    }

    [[nodiscard]] std::int32_t MoneyMode() const {
        const std::int32_t own = isNew_ ? common_.Integer("MONEY_MODE_NEW", kNoKey) : kNoKey;
        return own != kNoKey ? own : common_.Integer("MONEY_MODE", kMoneyLabelled);
    }

    /// "SPACE" is one blank, in the money block two: its labels may hold single ones.
    [[nodiscard]] TemplateSection Frame(std::string_view part, bool isEnabled, std::string_view space) const {
        TemplateSection section{.isEnabled = isEnabled, .name = SectionName(part)};
        const CKeys keys(file_, section.name);
        section.title = keys.Text("START_FLAG");
        section.terminator = keys.Text("END_FLAG");
        section.delimiter = keys.Text("DELIMITER");
        if (section.delimiter == "SPACE") section.delimiter = space;
        section.firstRow = keys.Integer("START_OFFSET", kNoKey);
        section.endOffset = keys.Integer("END_OFFSET", kNoKey);
        return section;
    }
    [[nodiscard]] TemplateSection TableFrame(std::string_view part) const {
        return Frame(part, common_.Integer(part, 0) != 0, " ");
    }

    void ReadMoney(TemplateScheme& scheme) const {
        const bool isRead = scheme.moneyMode == kMoneyLabelled || scheme.moneyMode == kMoneyInOneRow;
        scheme.money = Frame("MONEY_RECORD", isRead, "  ");
        const CKeys keys(file_, scheme.money.name);
        const TemplateLabels usual;
        scheme.labels = {.firstRow = keys.Integer("ROWS_FROM", usual.firstRow),
                         .endOffset = keys.Integer("ROWS_TO", usual.endOffset),
                         .labelEnd = keys.Text("LABEL_END"),
                         .premiumReceived = keys.Text("QLSR_NAME"),
                         .premiumPaid = keys.Text("QLZC_NAME")};
        scheme.moneyLabels = LabelsOf(keys);
        scheme.depositsLabel = keys.Text("RJ_NAME");
        scheme.withdrawalsLabel = keys.Text("CJ_NAME");
        scheme.moneyColumns = ColumnsOf(keys, kMoneyRowKeys);
        scheme.cashFlow = {.deposits = keys.Column("RJ_NAME"), .withdrawals = keys.Column("CJ_NAME")};
    }

    void ReadTables(TemplateScheme& scheme) const {
        scheme.trades.section = TableFrame("MATCH_RECORD");
        scheme.trades.columns = ColumnsOf(CKeys(file_, scheme.trades.section.name), kTradeKeys);

        scheme.closed.section = TableFrame("PING_DETAIL");
        const CKeys closed(file_, scheme.closed.section.name);
        scheme.closed.columns = ColumnsOf(closed, kClosedKeys);
        scheme.closedSideColumn = closed.Column("BID");

        scheme.open.section = TableFrame("OPI_DETAIL");
        const CKeys open(file_, scheme.open.section.name);
        scheme.open.columns = ColumnsOf(open, kOpenKeys);
        scheme.openShared = ColumnsOf(open, kOpenSharedKeys);
        scheme.openSides[0] = TemplateSideOf(open, "买"_gbk, "BID_VOL", kOpenBuyKeys);
        scheme.openSides[1] = TemplateSideOf(open, "卖"_gbk, "ASK_VOL", kOpenSellKeys);
        scheme.openPLColumn = open.Column("DSYK");

        scheme.summary = TableFrame("OPI_SUM");
        const CKeys summary(file_, scheme.summary.name);
        scheme.summaryShared = ColumnsOf(summary, kSummarySharedKeys);
        scheme.summarySides[0] = TemplateSideOf(summary, "买"_gbk, "BID_POSITION_VOL", kSummaryBuyKeys);
        scheme.summarySides[1] = TemplateSideOf(summary, "卖"_gbk, "ASK_POSITION_VOL", kSummarySellKeys);
    }

    const CIniFile& file_;
    CKeys common_;
    bool isNew_;
};

}  // namespace

std::string_view TemplateSection::MissingKey() const {
    if (title.empty()) return "START_FLAG";
    if (terminator.empty()) return "END_FLAG";
    return delimiter.empty() ? "DELIMITER" : "";
}

const TemplateSection& TemplateScheme::Section(SectionKind kind) const {
    switch (kind) {
        case SectionKind::Money:
        case SectionKind::Cash:
        case SectionKind::Exercises:
        case SectionKind::Deliveries:
            break;
        case SectionKind::Trades:
            return trades.section;
        case SectionKind::Closed:
            return closed.section;
        case SectionKind::Open:
            return open.section;
        case SectionKind::Summary:
            return summary;
    }
    return money;
}

CStatementTemplate::CStatementTemplate(CIniFile file)
    : file_(std::move(file)),
      changeDate_(Trim(CKeys(file_, kTemplateCommonSection).Text(kTemplateChangeDate))),
      oldScheme_(CSchemeReader(file_, false).Read()),
      newScheme_(CSchemeReader(file_, true).Read()) {}

bool CStatementTemplate::HoldsNewScheme(std::string_view day) const {
    if (changeDate_.empty()) return false;
    try {
        const std::time_t time = MidnightOf(ParsePackedDay(day));
        return time >= MidnightOf(ParsePackedDay(changeDate_));
    } catch (const CReportError& error) {
        throw CReportError(error.Code(), {.section = "template"});
    }
}

const CStatementTemplate* CTemplateFile::Carried() {
    if (carried_.empty()) return nullptr;
    if (parsedCarried_ == nullptr) parsedCarried_ = std::make_unique<CStatementTemplate>(CIniFile::Parse(carried_));
    return parsedCarried_.get();
}

const CStatementTemplate* CTemplateFile::Present() {
    if (path_.empty()) return Carried();
    const auto stamp = StampOf(path_);
    if (parsed_ != nullptr && stamp && stamp_ == stamp) return parsed_.get();
    IniFileContent content = LoadIniFile(path_);  // what has no stamp too: it tells why
    if (content.state != FileState::Read) {
        if (content.state == FileState::Missing) return Carried();
        problem_ = {path_, content.state, std::move(content.reason)};
        return nullptr;
    }
    parsed_ = std::make_unique<CStatementTemplate>(std::move(content.file));
    stamp_ = stamp;
    return parsed_.get();
}

}  // namespace tradebill
