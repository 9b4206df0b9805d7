// What readers have left in the stores, spelled out field by field.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "platform/text_encoding.h"
#include "readers/statement_loader.h"
#include "readers/statement_template.h"
#include "readers/statement_text.h"
#include "report/record_fields.h"
#include "report/report.h"
#include "support/gbk_text.h"
#include "support/store_fixture.h"

namespace tradebill {

/// Names and texts (UTF-8) of fields that aren't empty.
using Fields = std::map<std::string, std::string>;

template <class Record, std::size_t N>
Fields NamedFields(const Record& record, const TextField<Record> (&table)[N]) {
    Fields fields;
    for (const auto& field : table) {
        if (!field.Text(record).empty()) fields.emplace(field.name, GbkToUtf8(field.Text(record)));
    }
    return fields;
}

template <std::size_t N>
void AddSpare(Fields& fields, const char (&field)[N], const char* name) {
    for (const char byte : field) {
        if (byte != '\0') fields[name] = "written";
    }
}

inline Fields FieldsOf(const MatchRecord& record) {
    return NamedFields(record, kMatchFields);
}
inline Fields FieldsOf(const PingDetail& record) {
    return NamedFields(record, kPingFields);
}
inline Fields FieldsOf(const OpiDetail& record) {
    return NamedFields(record, kOpiDetailFields);
}
inline Fields FieldsOf(const OpiSum& record) {
    Fields fields = NamedFields(record, kOpiSumFields);
    AddSpare(fields, record.SPARE_OPI_1, "SPARE_OPI_1");
    AddSpare(fields, record.SPARE_OPI_2, "SPARE_OPI_2");
    return fields;
}
inline Fields FieldsOf(const MoneyRecord& record) {
    Fields fields = NamedFields(record, kMoneyFields);
    AddSpare(fields, record.SPARE_MONEY_1, "SPARE_MONEY_1");
    AddSpare(fields, record.SPARE_MONEY_2, "SPARE_MONEY_2");
    AddSpare(fields, record.SPARE_MONEY_3, "SPARE_MONEY_3");
    AddSpare(fields, record.SPARE_MONEY_4, "SPARE_MONEY_4");
    AddSpare(fields, record.SPARE_MONEY_5, "SPARE_MONEY_5");
    AddSpare(fields, record.SPARE_MONEY_6, "SPARE_MONEY_6");
    AddSpare(fields, record.SPARE_MONEY_7, "SPARE_MONEY_7");
    AddSpare(fields, record.SPARE_MONEY_8, "SPARE_MONEY_8");
    return fields;
}

template <class Record>
Fields FieldsOf(const std::unique_ptr<Record>& record) {
    return FieldsOf(*record);
}

/// The filled fields of all rows of a list, in their order.
template <class List>
std::vector<Fields> FieldsOfAll(const List& rows) {
    std::vector<Fields> all;
    for (const auto& row : rows) all.push_back(FieldsOf(row));
    return all;
}

/// One field of all rows of a list, in their order; empty texts stand too.
template <class List>
std::vector<std::string> TextsOf(const List& rows, const std::string& name) {
    std::vector<std::string> texts;
    for (const auto& row : rows) {
        const Fields fields = FieldsOf(row);
        const auto found = fields.find(name);
        texts.push_back(found == fields.end() ? std::string() : found->second);
    }
    return texts;
}

using Texts = std::vector<std::string>;

class ReaderFixture : public StoreFixture {
protected:
    /// Puts a new report, with a request of this format, in the place of the one at hand.
    void MakeReport(std::int32_t format = 0) {
        std::destroy_at(&report);
        std::construct_at(&report);
        report.Request.StatementFormat = format;
        template_.reset();
    }

    /// Reads one statement into the report by `reader`, which gets the template of the report's template path, if there
    /// is one. As in a run, the template is kept from statement to statement.
    void Read(Reader* reader, std::string_view day, std::string_view text, CScanListener* listener = nullptr) {
        reader({.day = day, .text = text, .byTemplate = Template(), .listener = listener}, report);
    }

    /// Reads one statement into the report by the reader that the report's request asks for.
    void ReadStatement(std::string_view day, std::string_view text, CScanListener* listener = nullptr) {
        CStatementLoader(report).Read(day, text, listener);
    }
    bool LoadStatement(std::string_view day, const std::string& path) {
        return CStatementLoader(report).Load(day, path).state == StatementState::Read;
    }

    /// The template of the report's template path, or null.
    const CStatementTemplate* Template() {
        if (!template_ || templatePath_ != report.TemplatePath) {
            templatePath_ = report.TemplatePath;
            template_.emplace(templatePath_);
        }
        return template_->Present();
    }

    /// The only money record, field by field.
    [[nodiscard]] Fields Money() const {
        EXPECT_EQ(report.MoneyStore.Count(), 1);
        return report.MoneyStore.Records.empty() ? Fields{} : FieldsOf(*report.MoneyStore.Records.front());
    }

    [[nodiscard]] bool NothingRead() const {
        return report.MoneyStore.Count() == 0 && report.MatchStore.Count() == 0 &&
               report.PingDetailStore.Count() == 0 && report.OpiDetailStore.Count() == 0 &&
               report.OpiSumStore.Count() == 0 && report.ReportDocument.Offsets.empty() &&
               report.TradeStatistics.DayFigures.Days.empty() && report.TradeStatistics.DayUsages.Days.empty();
    }

private:
    std::string templatePath_;
    std::optional<CTemplateFile> template_;
};

}  // namespace tradebill
