#include "page/section_title.h"

#include <string>

#include "base/gbk.h"
#include "images/picture_names.h"
#include "page/html_builder.h"
#include "page/page_pictures.h"
#include "page/page_sink.h"
#include "page/page_text.h"
#include "paint/font.h"
#include "paint/picture_file.h"
#include "report/report.h"

namespace tradebill {
namespace {

std::string TitleText(const CReport& report, const SectionTitle& words, const CPictureLinks& links) {
    const PictureSize bar = ScaledSizeOf(report, words.picture);
    const PictureSize button = ScaledSizeOf(report, kShrinkPicture);
    const TextExtent title = MeasureTitle(report, words.title);
    const int top = report.Scaled(10);
    const int left = report.Scaled(730);
    std::string text =
        "<div style=\"position:relative; -moz-user-select:-moz-none; \"  onselectstart=\"return false;\">\r\n";
    Append(text, "<img border=\"0\" style=\"width:", bar.width, "px; height:", bar.height, "px; \" src=\"",
           links.InPage(report, words.picture), "\" alt=\"", words.title, "\" />\r\n");
    Append(text, "<div style = \"cursor:hand; position:absolute; top:", top, "px; left:", left,
           "px; width:", title.width + 10, "px; \" class = \"titletext\" onclick = \"", words.handler, "()\" >",
           words.title, words.titleTail);
    Append(text, "<img style = \"cursor:hand; position:absolute; top:", top + (title.height - button.height) / 2,
           "px; left:", left + title.width, "px; width:", button.width, "px; height:", button.height, "px;",
           words.heightTail, "\" id = \"", words.buttonId, "\" onclick = \"", words.handler, "()\" border=\"0\" src=\"",
           links.InPage(report, kShrinkPicture), "\" alt=\"\" />\r\n");
    text += "</div>\r\n";
    return text;
}

std::string OffsetFigureText(const CReport& report, const CPictureLinks& links) {
    const PictureSize chart = ScaledSizeOf(report, kOffsetFigure);
    std::string text =
        "<div id = \"offsetFigure\" style=\"position:relative; -moz-user-select:-moz-none; \"  "
        "onselectstart=\"return false;\">\r\n";
    text += "<a href = \"javascript:void(1)\"> \r\n";
    // The second "style" ends the attribute at its quote, so a browser shows the chart at its natural size.
    Append(text, "<img border=\"0\" style=\"style = \"cursor:hand; width:", chart.width, "px; height:", chart.height,
           "px; \" src=\"", links.InPage(report, kOffsetFigure), "\" alt=\"", "平仓盈亏曲线图"_gbk, "\" />\r\n");
    text += "</a>\r\n</div>\r\n";
    return text;
}

}  // namespace

void AddSectionTitle(CHtmlBuilder& page, const CReport& report, const SectionTitle& words) {
    page.AddPictured([&](const CPictureLinks& links) { return TitleText(report, words, links); });
}

void AddOffsetFigure(CHtmlBuilder& page, const CReport& report) {
    page.AddPictured([&](const CPictureLinks& links) { return OffsetFigureText(report, links); });
}

}  // namespace tradebill
