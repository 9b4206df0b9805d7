// A page in a folder of its own, and the HTML that sections are expected to write, built here once more from plain
// words. All expectations are UTF-8; the page is decoded before it is compared.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "driver/report_request.h"
#include "paint/font.h"
#include "platform/text_encoding.h"
#include "report/report.h"
#include "support/gbk_text.h"
#include "support/host_objects.h"
#include "support/store_fixture.h"
#include "support/temp_folder.h"

namespace tradebill {

/// What a fresh page holds.
inline const std::string kHead = "<head>\r\n<title> 交易及账单报告 </title>\r\n</head>\r\n";

/// A closed page with `body` between its wrappers.
inline std::string ClosedPage(const std::string& body) {
    return "<html>\r\n" + kHead + "<body>\r\n" + body + "</body>\r\n</html>\r\n";
}

struct TableColumn {
    std::string text;
    std::string width;
};
using Columns = std::vector<TableColumn>;

inline std::string HeaderRow(const std::string& plainClass, const Columns& columns) {
    std::string row = "<tr>\r\n";
    for (const TableColumn& column : columns) {
        row += "<td style=\"padding:5px 0px; \" width=\"" + column.width + "\"><span class='" + plainClass + "'>" +
               column.text + "</span></td>";
    }
    return row + "</tr>\r\n";
}

using Marks = std::map<std::size_t, std::string>;  // classes of the columns that aren't plain

inline std::string HtmlRow(const std::string& rowClass, const std::string& plainClass,
                           const std::vector<std::string>& texts, const Marks& marks = {}) {
    std::string row = rowClass.empty() ? "<tr>\r\n" : "<tr class='" + rowClass + "'>\r\n";
    for (std::size_t i = 0; i < texts.size(); ++i) {
        row += "<td style=\"padding:5px 0px; overflow:hidden; white-space:nowrap;\"><span class='" +
               (marks.contains(i) ? marks.at(i) : plainClass) + "'>" + texts[i] + "</span></td>";
    }
    return row + "</tr>\r\n";
}

/// One dash for each GBK byte of the header texts.
inline std::string DashRow(const std::string& rowClass, const std::string& plainClass, const Columns& columns) {
    std::vector<std::string> dashes;
    for (const TableColumn& column : columns) dashes.emplace_back(Gbk(column.text).size(), '-');
    return HtmlRow(rowClass, plainClass, dashes);
}

/// Opening tag, header and first dash row of a table while PageWidth is 0.
inline std::string TableTop(const std::string& id, const std::string& plainClass, const Columns& columns) {
    return "<table style=\"table-layout: fixed;\" cellspacing = \"0\" border=\"0\" id= \"" + id + "\">\r\n" +
           HeaderRow(plainClass, columns) + DashRow("", plainClass, columns);
}

/// End of a table and the spacer behind it; the spacer has no line end of its own.
inline const std::string kTableFoot = "</table>\r\n<h1></h1>";

inline TextExtent MeasuredTitle(std::string_view title, int cellHeight = 16) {
    return MeasureText({.face = "Arial", .cellHeight = cellHeight, .weight = 600}, Gbk(title));
}

/// The title block of a section at Dpi 0 while no pictures exist. `behindTitle` and `behindHeight` are the words in
/// which the sections differ.
struct TitleWords {
    std::string title;
    std::string handler;
    std::string buttonId;
    std::string picture;
    std::string behindTitle;
    std::string behindHeight;
};

inline std::string TitleBlock(const TitleWords& words) {
    const TextExtent measured = MeasuredTitle(words.title);
    return "<div style=\"position:relative; -moz-user-select:-moz-none; \"  onselectstart=\"return false;\">\r\n"
           "<img border=\"0\" style=\"width:0px; height:0px; \" src=\"Image_files\\" +
           words.picture + "\" alt=\"" + words.title +
           "\" />\r\n"
           "<div style = \"cursor:hand; position:absolute; top:10px; left:730px; width:" +
           std::to_string(measured.width + 10) + "px; \" class = \"titletext\" onclick = \"" + words.handler +
           "()\" >" + words.title + words.behindTitle +
           "<img style = \"cursor:hand; position:absolute; top:" + std::to_string(10 + measured.height / 2) +
           "px; left:" + std::to_string(730 + measured.width) + "px; width:0px; height:0px;" + words.behindHeight +
           "\" id = \"" + words.buttonId + "\" onclick = \"" + words.handler +
           "()\" border=\"0\" src=\"Image_files\\BillShrink.png\" alt=\"\" />\r\n"
           "</div>\r\n";
}

struct DestroyEvent {
    void operator()(HostEventHandle event) const { DestroyHostEvent(event); }
};
using UniqueEvent = std::unique_ptr<std::remove_pointer_t<HostEventHandle>, DestroyEvent>;

class PageFixture : public StoreFixture {
protected:
    PageFixture() : path_(folder_.Path("TradeBill.html")) {
        report.ReportDocument.BillFolder = folder_.Path();
        report.ReportDocument.ImageFolderName = "Image_files";
    }

    /// The page's bytes.
    [[nodiscard]] std::string Bytes() const { return ReadFile(path_); }
    /// The page as UTF-8.
    [[nodiscard]] std::string Page() const { return GbkToUtf8(Bytes()); }

    CTempFolder folder_;
    std::string path_;
};

}  // namespace tradebill
