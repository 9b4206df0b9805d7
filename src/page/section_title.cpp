#include "page/section_title.h"

#include <string>

#include "base/gbk.h"
#include "images/picture_names.h"
#include "page/html_builder.h"
#include "page/page_form.h"
#include "page/page_pictures.h"
#include "page/page_text.h"
#include "paint/font.h"
#include "paint/picture_file.h"
#include "report/report.h"

namespace tradebill {
namespace {

std::string TitleText(const CReport& report, const SectionTitle& words, const CPageForm& form) {
    const PictureSize bar = ScaledSizeOf(report, words.picture);
    const PictureSize button = ScaledSizeOf(report, kShrinkPicture);
    const TextExtent title = MeasureTitle(report, words.title);
    const int top = report.Scaled(10);
    const int left = report.Scaled(730);
    const std::string fold = form.FoldAttribute(report, words.handler);
    std::string text =
        Joined("<div style=\"position:relative; -moz-user-select:-moz-none; \"  ", form.UnmarkableAttribute(), ">\r\n");
    Append(text, "<img border=\"0\" style=\"width:", bar.width, "px; height:", bar.height, "px; \" src=\"",
           form.PictureAddress(report, words.picture), "\" alt=\"", words.title, "\" />\r\n");
    Append(text, "<div style = \"cursor:hand; position:absolute; top:", top, "px; left:", left,
           "px; width:", title.width + 10, "px; \" class = \"titletext\" ", fold, " >", words.title, words.titleTail);
    Append(text, "<img style = \"cursor:hand; position:absolute; top:", top + (title.height - button.height) / 2,
           "px; left:", left + title.width, "px; width:", button.width, "px; height:", button.height, "px;",
           words.heightTail, "\" id = \"", words.buttonId, "\" ", fold, " border=\"0\" src=\"",
           form.PictureAddress(report, kShrinkPicture), "\" alt=\"\" />\r\n");
    text += "</div>\r\n";
    return text;
}

std::string OffsetFigureText(const CReport& report, const CPageForm& form) {
    const PictureSize chart = ScaledSizeOf(report, kOffsetFigure);
    std::string text = Joined("<div id = \"offsetFigure\" style=\"position:relative; -moz-user-select:-moz-none; \"  ",
                              form.UnmarkableAttribute(), ">\r\n");
    Append(text, "<a href = \"", form.LinkAddress("javascript:void(1)"), "\"> \r\n");
    // The second "style" ends the attribute at its quote, so a browser shows the chart at its natural size.
    Append(text, "<img border=\"0\" style=\"style = \"cursor:hand; width:", chart.width, "px; height:", chart.height,
           "px; \" src=\"", form.PictureAddress(report, kOffsetFigure), "\" alt=\"", "平仓盈亏曲线图"_gbk, "\" />\r\n");
    text += "</a>\r\n</div>\r\n";
    return text;
}

}  // namespace

void AddSectionTitle(CHtmlBuilder& page, const CReport& report, const SectionTitle& words) {
    page.AddByForm([&](const CPageForm& form) { return TitleText(report, words, form); });
}

void AddOffsetFigure(CHtmlBuilder& page, const CReport& report) {
    page.AddByForm([&](const CPageForm& form) { return OffsetFigureText(report, form); });
}

}  // namespace tradebill
