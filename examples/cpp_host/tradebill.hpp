// tradebill for C++: the interface of tradebill.h with owners, texts and exceptions. C++17, this header alone.
//
//     tradebill::Report report;
//     TradeBillRequest request{};
//     request.RootUtf8 = "samples/one-year/root";
//     report.Read(request);
//     const tradebill::Table days = report.Rows("days");
#pragma once

#include <tradebill/tradebill.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace tradebill {

/// A report that can't be made, or a question that it can't answer. Its words are UTF-8.
class Error : public std::runtime_error {
public:
    Error(std::int32_t result, const std::string& words)
        : std::runtime_error(words.empty() ? TradeBillResultName(result) : words), result_(result) {}

    /// A TradeBillResult.
    [[nodiscard]] std::int32_t Result() const noexcept { return result_; }

private:
    std::int32_t result_;
};

/// A buffer of the library.
class Buffer {
public:
    Buffer(void* bytes, std::size_t size) : bytes_(static_cast<char*>(bytes)), size_(size) {}

    [[nodiscard]] std::string_view View() const { return {bytes_.get(), size_}; }

private:
    struct Free {
        void operator()(char* bytes) const { TradeBillFree(bytes); }
    };
    std::unique_ptr<char, Free> bytes_;
    std::size_t size_;
};

/// Rows of a report, by column. It stays as it is, whatever becomes of the report.
class Table {
public:
    explicit Table(TradeBillTable* table) : table_(table) {}

    [[nodiscard]] std::int64_t RowCount() const { return TradeBillRowCount(table_.get()); }
    /// As many as there are rows, NaN for nothing; null for a column of another kind.
    [[nodiscard]] const double* Numbers(std::int32_t column) const { return TradeBillNumbers(table_.get(), column); }
    /// INT64_MIN for nothing.
    [[nodiscard]] const std::int64_t* WholeNumbers(std::int32_t column) const {
        return TradeBillWholeNumbers(table_.get(), column);
    }
    /// Null for nothing.
    [[nodiscard]] const char* const* Texts(std::int32_t column) const {
        return TradeBillTextsUtf8(table_.get(), column);
    }

private:
    struct Close {
        void operator()(TradeBillTable* table) const { TradeBillCloseTable(table); }
    };
    std::unique_ptr<TradeBillTable, Close> table_;
};

/// The place of a column in a table; below 0 if there is none.
[[nodiscard]] inline std::int32_t ColumnOf(std::string_view table, std::string_view column) {
    for (std::int32_t t = 0; t < TradeBillTableCount(); ++t) {
        if (table != TradeBillTableName(t)) continue;
        for (std::int32_t c = 0; c < TradeBillColumnCount(t); ++c) {
            if (column == TradeBillColumnName(t, c)) return c;
        }
    }
    return -1;
}

/// A report of one account. Used by one thread at a time; several may be at work beside each other.
class Report {
public:
    Report() {
        TradeBillReport* report = nullptr;
        Require(TradeBillOpen(&report));
        report_.reset(report);
    }

    /// Writes the page. The request's Size is set here. Throws Error; where something is missing its result is
    /// TRADEBILL_INCOMPLETE, and the report can be asked all the same.
    void Make(TradeBillRequest request) {
        request.Size = sizeof request;
        Require(TradeBillMake(report_.get(), &request));
    }

    /// The same without a page.
    void Read(TradeBillRequest request) {
        request.Size = sizeof request;
        Require(TradeBillRead(report_.get(), &request));
    }

    [[nodiscard]] std::string Page() const { return TradeBillPageUtf8(report_.get()); }
    [[nodiscard]] std::string Notes() const { return TradeBillNotesUtf8(report_.get()); }

    [[nodiscard]] TradeBillTotals Totals() const {
        TradeBillTotals totals{};
        totals.Size = sizeof totals;
        Require(TradeBillTotal(report_.get(), &totals));
        return totals;
    }

    [[nodiscard]] Buffer Json() const {
        char* json = nullptr;
        std::size_t size = 0;
        Require(TradeBillJson(report_.get(), &json, &size));
        return {json, size};
    }

    [[nodiscard]] Table Rows(const char* name) const {
        TradeBillTable* table = nullptr;
        Require(TradeBillOpenTable(report_.get(), name, &table));
        return Table(table);
    }

    /// The bytes of a PNG file; sizes of 0 are those of the page.
    [[nodiscard]] Buffer Png(const char* chart, std::int32_t width = 0, std::int32_t height = 0) const {
        void* png = nullptr;
        std::size_t size = 0;
        Require(TradeBillPng(report_.get(), chart, width, height, &png, &size));
        return {png, size};
    }

private:
    void Require(std::int32_t result) const {
        if (result != TRADEBILL_DONE) throw Error(result, TradeBillErrorUtf8(report_.get()));
    }

    struct Close {
        void operator()(TradeBillReport* report) const { TradeBillClose(report); }
    };
    std::unique_ptr<TradeBillReport, Close> report_;
};

}  // namespace tradebill
