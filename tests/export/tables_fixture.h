// Tables of a report that a test fills, row by row as texts.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "analysis/analysis.h"
#include "export/row_values.h"
#include "export/table.h"
#include "export/table_list.h"
#include "findings/finding.h"
#include "support/store_fixture.h"

namespace tradebill {

using TextRows = std::vector<std::vector<std::string>>;

/// What stands in a cell, for comparing: "-" for nothing.
inline std::string ShownValue(const CellValue& value) {
    if (const auto* const text = std::get_if<std::string_view>(&value)) return std::string(*text);
    if (const auto* const count = std::get_if<std::int64_t>(&value)) return std::to_string(*count);
    const auto* const number = std::get_if<double>(&value);
    if (number == nullptr) return "-";
    std::string text = std::to_string(*number);
    text.erase(text.find_last_not_of('0') + 1);
    return text.back() == '.' ? text + "0" : text;
}

class TablesFixture : public StoreFixture {
protected:
    static const ExportTable& TableOf(std::string_view name) {
        const auto tables = Tables();
        const auto found = std::ranges::find(tables, name, &ExportTable::name);
        EXPECT_NE(found, tables.end()) << name;
        return *found;
    }

    [[nodiscard]] ExportSource Source() const {
        analysis_ = Analyse(report);
        return {.report = report, .analysis = analysis_, .findings = findings};
    }

    /// The rows of a table, of these columns alone.
    [[nodiscard]] TextRows RowsOf(std::string_view name, const std::vector<std::string_view>& columns) const {
        class CTexts final : public CRowSink {
        public:
            void OnRow(std::span<const ExportCell> cells) override {
                const auto row = values.Of(cells);
                for (const std::size_t place : places) texts.emplace_back(ShownValue(row[place]));
                rows.push_back(std::move(texts));
            }
            std::vector<std::size_t> places;
            std::vector<std::string> texts;
            CRowValues values;
            TextRows rows;
        };
        const ExportTable& table = TableOf(name);
        CTexts texts;
        for (const std::string_view column : columns) {
            const auto found = std::ranges::find(table.columns, column, &ExportColumn::name);
            EXPECT_NE(found, table.columns.end()) << column;
            texts.places.push_back(static_cast<std::size_t>(found - table.columns.begin()));
        }
        table.walk(Source(), texts);
        return texts.rows;
    }

    std::vector<Finding> findings;

private:
    mutable Analysis analysis_;
};

}  // namespace tradebill
