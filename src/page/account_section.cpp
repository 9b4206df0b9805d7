// The first section: no table of its own, but the painted pictures, with the charts over the free right part of the
// painted tables.
#include <string>
#include <string_view>

#include "base/gbk.h"
#include "driver/report_request.h"
#include "images/picture_names.h"
#include "page/html_builder.h"
#include "page/page_form.h"
#include "page/page_pictures.h"
#include "page/page_sections.h"
#include "page/page_text.h"
#include "paint/font.h"
#include "paint/picture_file.h"
#include "report/report.h"

namespace tradebill {
namespace {

constexpr std::string_view kTitle = "账户统计"_gbk;
constexpr std::string_view kBlockEnd = "</div>\r\n";
constexpr std::string_view kLinkEnd = "</a>\r\n";
constexpr int kChartTop = 7;
constexpr int kChartLeft = 310;
constexpr int kSecondChartTop = 267;

std::string BlockStart(std::string_view id) {
    return Joined("<div id = \"", id, "\" style=\"position:relative;\">\r\n");
}

/// A report, and the form of the page that the text at hand goes to.
struct FormedReport {
    const CReport& report;
    const CPageForm& form;

    [[nodiscard]] std::string AddressOf(std::string_view picture) const { return form.PictureAddress(report, picture); }
};

/// At the size that it was made in.
std::string Image(const FormedReport& formed, std::string_view picture, std::string_view alt) {
    const PictureSize size = SizeOf(formed.report, picture);
    return Joined("<img border=\"0\" style=\"width:", size.width, "px; height:", size.height, "px; \" src=\"",
                  formed.AddressOf(picture), "\" alt=\"", alt, "\" />\r\n");
}

std::string PlacedStart(int top, int left) {
    return Joined("<div style=\"position:absolute; top:", top, "px; left:", left, "px;\">\r\n");
}

/// Of a link that looks like one and does nothing, as `script` does.
std::string LinkStart(const FormedReport& formed, std::string_view script) {
    return Joined("<a href = \"", formed.form.LinkAddress(script), "\"> \r\n");
}

/// The banner with the section's title and button on the blue bar.
std::string SummaryBlock(const FormedReport& formed) {
    const CReport& report = formed.report;
    const PictureSize banner = ScaledSizeOf(report, kAccountSummary);
    const PictureSize button = ScaledSizeOf(report, kShrinkPicture);
    const TextExtent title = MeasureTitle(report, kTitle);
    const int top = report.Scaled(108);
    const int left = report.Scaled(730);
    const std::string fold = formed.form.FoldAttribute(report, "clicksummary");
    std::string text = Joined("<div style=\"position:relative; -moz-user-select:-moz-none; \"  ",
                              formed.form.UnmarkableAttribute(), " >\r\n");
    Append(text, "<img border=\"0\" style=\"position:relative; letf:0px; top:0px; width:", banner.width,
           "px; height:", banner.height, "px; \" src=\"", formed.AddressOf(kAccountSummary), "\" alt=\"", kTitle,
           "\" />\r\n");
    Append(text, "<div style = \"cursor:hand; position:absolute; top:", top, "px; left:", left,
           "px; width:", title.width + 10, "px; \" class = \"titletext\" ", fold, " >", kTitle, kBlockEnd);
    Append(text, "<img style = \"cursor:hand; width:", button.width, "px; height:", button.height,
           "px; position:absolute; top:", top + (title.height - button.height) / 2, "px; left:", left + title.width,
           "px; \" id = \"summarybtn\" ", fold, " border=\"0\" src=\"", formed.AddressOf(kShrinkPicture),
           "\" alt=\"\" />\r\n", kBlockEnd);
    return text;
}

/// The account table with the equity chart over it.
std::string AccountBlock(const FormedReport& formed) {
    const CReport& report = formed.report;
    return Joined(BlockStart("account"), Image(formed, kAccountDetail, "账户明细"_gbk),
                  PlacedStart(report.Scaled(kChartTop), report.Scaled(kChartLeft)),
                  LinkStart(formed, "javascript:void(0)"), Image(formed, kAccountFigure, "权益走势图"_gbk), kLinkEnd,
                  kBlockEnd, kBlockEnd);
}

/// The statistics panel with both yield charts over it, the second one below the first. One end serves both links.
std::string StatisticsBlock(const FormedReport& formed) {
    const CReport& report = formed.report;
    return Joined(BlockStart("tabStatistics"), Image(formed, kAccountStatics, kTitle),
                  PlacedStart(report.Scaled(kChartTop), report.Scaled(kChartLeft)),
                  LinkStart(formed, "javascript:void(2)"), Image(formed, kHealthFigure, "资金收益图"_gbk),
                  PlacedStart(report.Scaled(kSecondChartTop), 0), LinkStart(formed, "javascript:void(3)"),
                  Image(formed, kRiskFigure, "交易收益率"_gbk), kLinkEnd, kBlockEnd, kBlockEnd, kBlockEnd);
}

/// One picture in a block of its own.
struct ImageBlock {
    std::string_view picture;
    std::string_view id;
    std::string_view alt;
    std::string_view script = {};  ///< of the link that it is; none if empty
};

std::string TextOf(const FormedReport& formed, const ImageBlock& block) {
    std::string text = BlockStart(block.id);
    if (!block.script.empty()) text += LinkStart(formed, block.script);
    text += Image(formed, block.picture, block.alt);
    if (!block.script.empty()) text += kLinkEnd;
    text += kBlockEnd;
    return text;
}

constexpr ImageBlock kForeignDetail{kAccountDetail, "AccountDetail", "资金明细"_gbk};
constexpr ImageBlock kForeignFigure{kAccountFigure, "AccountFigure", "权益走势"_gbk, "javascript:void(0)"};

void ReportChartSizes(const CReport& report) {
    const GenerateBillRequest& request = report.Request;
    if (request.HostWindow == nullptr || request.ChartSizeCallback == nullptr) return;
    const auto [equityWidth, equityHeight, realisedWidth, realisedHeight, accountYieldWidth, accountYieldHeight,
                tradeYieldWidth, tradeYieldHeight] = report.MoneyStore.ChartSizes;
    const ChartSizeReport sizes{equityWidth,     equityHeight,      realisedWidth,
                                realisedHeight,  accountYieldWidth, accountYieldHeight,
                                tradeYieldWidth, tradeYieldHeight,  report.MoneyStore.Count()};
    request.ChartSizeCallback(&sizes);
}

void CloseSection(CHtmlBuilder& page, const CReport& report) {
    page.AddHeading(1, "", "");
    page.ClosePage();
    ReportChartSizes(report);
}

}  // namespace

bool AddAccountSection(CHtmlBuilder& page, const CReport& report) {
    page.AddByForm([&report](const CPageForm& form) {
        const FormedReport formed{report, form};
        return SummaryBlock(formed) + AccountBlock(formed) + StatisticsBlock(formed);
    });
    CloseSection(page, report);
    return true;
}

bool AddForeignAccountSection(CHtmlBuilder& page, const CReport& report) {
    page.AddByForm([&report](const CPageForm& form) {
        const FormedReport formed{report, form};
        return SummaryBlock(formed) + TextOf(formed, kForeignDetail) + TextOf(formed, kForeignFigure) +
               StatisticsBlock(formed);
    });
    CloseSection(page, report);
    return true;
}

}  // namespace tradebill
