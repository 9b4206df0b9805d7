// Made-up workbooks in both of their forms.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/made_cells.h"
#include "support/shell.h"
#include "support/temp_folder.h"
#include "support/zip_file.h"

namespace tradebill {

inline std::string XmlText(std::string_view text) {
    std::string escaped;
    for (const char byte : text) {
        escaped += byte == '<' ? "&lt;" : byte == '&' ? "&amp;" : std::string(1, byte);
    }
    return escaped;
}

inline std::string ColumnName(std::size_t column) {
    return column < 26 ? std::string(1, static_cast<char>('A' + column))
                       : ColumnName(column / 26 - 1) + ColumnName(column % 26);
}

inline std::string CellXml(const MadeCell& cell) {
    const std::string start = "<c r=\"" + ColumnName(cell.column) + std::to_string(cell.row + 1) + "\"";
    switch (cell.kind) {
        case MadeKind::Text:
            return start + " t=\"inlineStr\"><is><t xml:space=\"preserve\">" + XmlText(cell.value) + "</t></is></c>";
        case MadeKind::Number:
            return start + "><v>" + cell.value + "</v></c>";
        case MadeKind::Formula:
            return start + "><f>1+1</f><v>" + cell.value + "</v></c>";
        default:
            return start + "><f>1+1</f></c>";
    }
}

/// Each cell in a row of its own, in the order in which they were put: readers take any.
inline std::string SheetXml(const MadeSheet& sheet) {
    std::string xml = "<worksheet><sheetData>";
    for (const MadeCell& cell : sheet.cells) {
        xml += "<row r=\"" + std::to_string(cell.row + 1) + "\">" + CellXml(cell) + "</row>";
    }
    return xml + "</sheetData></worksheet>";
}

inline const std::string kRelationKind = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/";

inline std::string RelationXml(std::size_t id, const std::string& kind, const std::string& target) {
    return "<Relationship Id=\"r" + std::to_string(id) + "\" Type=\"" + kRelationKind + kind + "\" Target=\"" + target +
           "\"/>";
}

/// The parts of a newer workbook, for tests that change one.
inline std::vector<ZipPart> XlsxParts(const MadeWorkbook& workbook) {
    std::string sheets;
    std::string relations;
    std::vector<ZipPart> parts;
    for (std::size_t i = 0; i < workbook.size(); ++i) {
        const std::string part = "worksheets/sheet" + std::to_string(i + 1) + ".xml";
        sheets += "<sheet name=\"" + XmlText(workbook[i].name) + "\" sheetId=\"" + std::to_string(i + 1) +
                  "\" r:id=\"r" + std::to_string(i + 1) + "\"/>";
        relations += RelationXml(i + 1, "worksheet", part);
        parts.push_back({.name = "xl/" + part, .bytes = SheetXml(workbook[i]), .isPacked = true});
    }
    parts.insert(parts.begin(),
                 {.name = "xl/_rels/workbook.xml.rels", .bytes = "<Relationships>" + relations + "</Relationships>"});
    parts.insert(parts.begin(),
                 {.name = "xl/workbook.xml",
                  .bytes = "<workbook xmlns:r=\"x\"><workbookPr/><sheets>" + sheets + "</sheets></workbook>"});
    parts.insert(parts.begin(), {.name = "_rels/.rels",
                                 .bytes = "<Relationships>" + RelationXml(1, "officeDocument", "xl/workbook.xml") +
                                          "</Relationships>"});
    return parts;
}

inline std::string Xlsx(const MadeWorkbook& workbook) {
    return ZipFile(XlsxParts(workbook));
}

/// The same as .xls, which a script writes.
inline std::string Xls(const MadeWorkbook& workbook) {
    const CTempFolder folder;
    std::string cells;
    for (const MadeSheet& sheet : workbook) {
        cells += "sheet\t" + sheet.name + "\n";
        for (const MadeCell& cell : sheet.cells) {
            constexpr std::string_view kKinds[] = {"text", "number", "formula", "open"};
            cells += std::string(kKinds[static_cast<std::size_t>(cell.kind)]) + "\t" + std::to_string(cell.row) + "\t" +
                     std::to_string(cell.column) + "\t" + cell.value + "\n";
        }
    }
    const std::string script = std::string(TRADEBILL_TESTS) + "/support/make_xls.py";
    EXPECT_EQ(RunShell("/usr/bin/python3 -B " + Quoted(script) + " " + Quoted(folder.Write("cells", cells)) + " " +
                       Quoted(folder.Path("made.xls"))),
              0);
    return ReadFile(folder.Path("made.xls"));
}

}  // namespace tradebill
