// Template files in a root folder of the test's own, and statements that are read by them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "base/report_error.h"
#include "base/text.h"
#include "driver/bill_folders.h"
#include "readers/reader_fixture.h"
#include "readers/template_reader.h"
#include "support/temp_folder.h"

namespace tradebill {

using Lines = std::initializer_list<std::string_view>;

/// The lines (UTF-8) of an INI file, or a part of one.
inline std::string Ini(Lines lines) {
    std::string text;
    for (const std::string_view line : lines) text.append(line).append("\r\n");
    return text;
}

/// "v0|v1|..." with `count` cells, all different.
inline std::string Cells(int count) {
    std::string row = "v0";
    for (int column = 1; column < count; ++column) row += "|v" + std::to_string(column);
    return row;
}

/// "10|11|..." with `count` cells, all different and all numbers above 0.
inline std::string Numbers(int count) {
    std::string row = "10";
    for (int column = 1; column < count; ++column) row += "|" + std::to_string(column + 10);
    return row;
}

class TemplateFixture : public ReaderFixture {
protected:
    TemplateFixture() { Begin(1); }

    using ReaderFixture::Read;

    /// Begins anew, without a template.
    void Begin(std::int32_t format) {
        MakeReport(format);
        std::filesystem::remove_all(folder_.Path("BillTemplate"));
        NameTemplate("broker");
    }

    /// Lets the request name this template of the folder.
    void NameTemplate(std::string_view name) {
        report.RootFolder = folder_.Path();
        CopyField(report.Request.TemplateName, name);
        report.TemplatePath = TemplatePath(report);
    }

    /// Begins anew, with a template of this content (UTF-8).
    void BeginWith(std::int32_t format, std::string_view content) {
        Begin(format);
        WriteTemplate(content);
    }

    void WriteTemplate(std::string_view content) const { folder_.Write("BillTemplate/broker.ini", Gbk(content)); }

    /// A template that reads one table, "明细" to "共", and no money. Of equal keys, the one in `keys` is read.
    static std::string TableTemplate(std::string_view section, std::string_view keys) {
        return "[DEALFIELD]\r\nMONEY_MODE=9\r\n" + TableSection(section, keys);
    }

    /// The same behind a heading DEALFIELD with keys of its own; the line of the table's flag comes first.
    static std::string TableSection(std::string_view section, std::string_view keys) {
        const std::string name(section);
        return name + "=1\r\n[" + name + "]\r\n" + std::string(keys) +
               Ini({"START_FLAG=明细", "START_OFFSET=2", "END_FLAG=共", "END_OFFSET=0", "DELIMITER=|"});
    }

    /// Whether the template read the statement.
    bool ReadByTemplate(std::string_view day, std::string_view text) {
        return ReadTemplateStatement({.day = day, .text = text, .byTemplate = Template()}, report);
    }
    bool Read(Lines lines, std::string_view day = "20240105") { return ReadByTemplate(day, Statement(lines)); }

    /// Reads a statement whose table "明细" to "共" has these rows.
    bool ReadRows(const std::vector<std::string>& rows) {
        std::string text = Gbk("结算单\r\n明细\r\n标题\r\n");
        for (const std::string& row : rows) text += Gbk(row) + "\r\n";
        return ReadByTemplate("20240105", text + Gbk("共 2 条\r\n"));
    }

    /// The code of the error that reading raises; 0 without one.
    std::uint32_t ErrorOf(Lines lines, std::string_view day = "20240105") {
        return ErrorOf([&] { Read(lines, day); });
    }
    std::uint32_t ErrorOfRows(const std::vector<std::string>& rows) {
        return ErrorOf([&] { ReadRows(rows); });
    }

    /// A record of 20240105 with these fields.
    static Fields Record(Fields fields) {
        fields["BILL_DATE"] = "20240105";
        return fields;
    }
    static std::vector<Fields> OneRecord(const Fields& fields) { return {Record(fields)}; }

    CTempFolder folder_;

private:
    template <class Reading>
    static std::uint32_t ErrorOf(const Reading& reading) {
        try {
            reading();
        } catch (const CReportError& error) {
            return error.Code();
        }
        return 0;
    }
};

/// A key of a table, its column in the row, and the field that it fills; "" for none.
struct KeyedColumn {
    std::string_view key;
    int column;
    std::string_view field;
};

/// The lines "KEY=column".
template <std::size_t N>
std::string KeysOf(const KeyedColumn (&columns)[N]) {
    std::string text;
    for (const KeyedColumn& column : columns) {
        text.append(column.key).append("=" + std::to_string(column.column) + "\r\n");
    }
    return text;
}

}  // namespace tradebill
