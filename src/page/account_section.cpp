// The first section: no table of its own, but the painted pictures, with the charts over the free right part of the
// painted tables.
#include <string>
#include <string_view>

#include "base/gbk.h"
#include "driver/report_request.h"
#include "images/picture_names.h"
#include "page/html_builder.h"
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

/// At the size that it was made in.
std::string Image(const CReport& report, std::string_view picture, std::string_view alt) {
    const PictureSize size = SizeOf(report, picture);
    return Joined("<img border=\"0\" style=\"width:", size.width, "px; height:", size.height, "px; \" src=\"",
                  PagePicturePath(report, picture), "\" alt=\"", alt, "\" />\r\n");
}

std::string PlacedStart(int top, int left) {
    return Joined("<div style=\"position:absolute; top:", top, "px; left:", left, "px;\">\r\n");
}

std::string LinkStart(std::string_view href) {
    return Joined("<a href = \"", href, "\"> \r\n");
}

/// The banner with the section's title and button on the blue bar.
void AddSummaryBlock(CHtmlBuilder& page, const CReport& report) {
    const PictureSize banner = ScaledSizeOf(report, kAccountSummary);
    const PictureSize button = ScaledSizeOf(report, kShrinkPicture);
    const TextExtent title = MeasureTitle(report, kTitle);
    const int top = report.Scaled(108);
    const int left = report.Scaled(730);
    std::string text =
        "<div style=\"position:relative; -moz-user-select:-moz-none; \"  onselectstart=\"return false;\" >\r\n";
    Append(text, "<img border=\"0\" style=\"position:relative; letf:0px; top:0px; width:", banner.width,
           "px; height:", banner.height, "px; \" src=\"", PagePicturePath(report, kAccountSummary), "\" alt=\"", kTitle,
           "\" />\r\n");
    Append(text, "<div style = \"cursor:hand; position:absolute; top:", top, "px; left:", left,
           "px; width:", title.width + 10, "px; \" class = \"titletext\" onclick = \"clicksummary()\" >", kTitle,
           kBlockEnd);
    Append(text, "<img style = \"cursor:hand; width:", button.width, "px; height:", button.height,
           "px; position:absolute; top:", top + (title.height - button.height) / 2, "px; left:", left + title.width,
           "px; \" id = \"summarybtn\" onclick = \"clicksummary()\" border=\"0\" src=\"",
           PagePicturePath(report, kShrinkPicture), "\" alt=\"\" />\r\n", kBlockEnd);
    page.AddText(text);
}

/// The account table with the equity chart over it.
void AddAccountBlock(CHtmlBuilder& page, const CReport& report) {
    page.AddText(Joined(BlockStart("account"), Image(report, kAccountDetail, "账户明细"_gbk),
                        PlacedStart(report.Scaled(kChartTop), report.Scaled(kChartLeft)),
                        LinkStart("javascript:void(0)"), Image(report, kAccountFigure, "权益走势图"_gbk), kLinkEnd,
                        kBlockEnd, kBlockEnd));
}

/// The statistics panel with both yield charts over it, the second one below the first. One end serves both links.
void AddStatisticsBlock(CHtmlBuilder& page, const CReport& report) {
    page.AddText(Joined(BlockStart("tabStatistics"), Image(report, kAccountStatics, kTitle),
                        PlacedStart(report.Scaled(kChartTop), report.Scaled(kChartLeft)),
                        LinkStart("javascript:void(2)"), Image(report, kHealthFigure, "资金收益图"_gbk),
                        PlacedStart(report.Scaled(kSecondChartTop), 0), LinkStart("javascript:void(3)"),
                        Image(report, kRiskFigure, "交易收益率"_gbk), kLinkEnd, kBlockEnd, kBlockEnd, kBlockEnd));
}

/// One picture in a block of its own, with a link if `href` isn't empty.
void AddImageBlock(CHtmlBuilder& page, const CReport& report, std::string_view picture, std::string_view id,
                   std::string_view alt, std::string_view href) {
    std::string text = BlockStart(id);
    if (!href.empty()) text += LinkStart(href);
    text += Image(report, picture, alt);
    if (!href.empty()) text += kLinkEnd;
    text += kBlockEnd;
    page.AddText(text);
}

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
    AddSummaryBlock(page, report);
    AddAccountBlock(page, report);
    AddStatisticsBlock(page, report);
    CloseSection(page, report);
    return true;
}

bool AddForeignAccountSection(CHtmlBuilder& page, const CReport& report) {
    AddSummaryBlock(page, report);
    AddImageBlock(page, report, kAccountDetail, "AccountDetail", "资金明细"_gbk, "");
    AddImageBlock(page, report, kAccountFigure, "AccountFigure", "权益走势"_gbk, "javascript:void(0)");
    AddStatisticsBlock(page, report);
    CloseSection(page, report);
    return true;
}

}  // namespace tradebill
