// The first section: no table of its own, but the painted pictures, with the charts over the free right part of the
// painted tables.
#include <string>

#include "base/gbk.h"
#include "page/html_builder.h"
#include "page/page_pictures.h"
#include "page/page_sections.h"
#include "page/page_text.h"
#include "report/request_copy.h"
#include "report/stores.h"

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
std::string Image(std::string_view picture, std::string_view alt) {
    const PictureSize size = SizeOf(picture);
    return Joined("<img border=\"0\" style=\"width:", size.width, "px; height:", size.height, "px; \" src=\"",
                  PagePicturePath(picture), "\" alt=\"", alt, "\" />\r\n");
}

std::string PlacedStart(int top, int left) {
    return Joined("<div style=\"position:absolute; top:", top, "px; left:", left, "px;\">\r\n");
}

std::string LinkStart(std::string_view href) {
    return Joined("<a href = \"", href, "\"> \r\n");
}

/// The banner with the section's title and button on the blue bar.
void AddSummaryBlock(CHtmlBuilder& page) {
    const PictureSize banner = ScaledSizeOf(kAccountSummary);
    const PictureSize button = ScaledSizeOf(kShrinkPicture);
    const TextExtent title = MeasureTitle(kTitle);
    const int top = ScaleByRequest(108);
    const int left = ScaleByRequest(730);
    std::string text =
        "<div style=\"position:relative; -moz-user-select:-moz-none; \"  onselectstart=\"return false;\" >\r\n";
    Append(text, "<img border=\"0\" style=\"position:relative; letf:0px; top:0px; width:", banner.width,
           "px; height:", banner.height, "px; \" src=\"", PagePicturePath(kAccountSummary), "\" alt=\"", kTitle,
           "\" />\r\n");
    Append(text, "<div style = \"cursor:hand; position:absolute; top:", top, "px; left:", left,
           "px; width:", title.width + 10, "px; \" class = \"titletext\" onclick = \"clicksummary()\" >", kTitle,
           kBlockEnd);
    Append(text, "<img style = \"cursor:hand; width:", button.width, "px; height:", button.height,
           "px; position:absolute; top:", top + (title.height - button.height) / 2, "px; left:", left + title.width,
           "px; \" id = \"summarybtn\" onclick = \"clicksummary()\" border=\"0\" src=\"",
           PagePicturePath(kShrinkPicture), "\" alt=\"\" />\r\n", kBlockEnd);
    page.AddText(text);
}

/// The account table with the equity chart over it.
void AddAccountBlock(CHtmlBuilder& page) {
    page.AddText(Joined(BlockStart("account"), Image(kAccountDetail, "账户明细"_gbk),
                        PlacedStart(ScaleByRequest(kChartTop), ScaleByRequest(kChartLeft)),
                        LinkStart("javascript:void(0)"), Image(kAccountFigure, "权益走势图"_gbk), kLinkEnd, kBlockEnd,
                        kBlockEnd));
}

/// The statistics panel with both yield charts over it, the second one below the first. One end serves both links.
void AddStatisticsBlock(CHtmlBuilder& page) {
    page.AddText(Joined(BlockStart("tabStatistics"), Image(kAccountStatics, kTitle),
                        PlacedStart(ScaleByRequest(kChartTop), ScaleByRequest(kChartLeft)),
                        LinkStart("javascript:void(2)"), Image(kHealthFigure, "资金收益图"_gbk),
                        PlacedStart(ScaleByRequest(kSecondChartTop), 0), LinkStart("javascript:void(3)"),
                        Image(kRiskFigure, "交易收益率"_gbk), kLinkEnd, kBlockEnd, kBlockEnd, kBlockEnd));
}

/// One picture in a block of its own, with a link if `href` isn't empty.
void AddImageBlock(CHtmlBuilder& page, std::string_view picture, std::string_view id, std::string_view alt,
                   std::string_view href) {
    std::string text = BlockStart(id);
    if (!href.empty()) text += LinkStart(href);
    text += Image(picture, alt);
    if (!href.empty()) text += kLinkEnd;
    text += kBlockEnd;
    page.AddText(text);
}

void ReportChartSizes() {
    if (Request.HostWindow == nullptr || Request.ChartSizeCallback == nullptr) return;
    const auto [equityWidth, equityHeight, realisedWidth, realisedHeight, accountYieldWidth, accountYieldHeight,
                tradeYieldWidth, tradeYieldHeight] = MoneyStore.ChartSizes;
    const ChartSizeReport report{equityWidth,     equityHeight,      realisedWidth,
                                 realisedHeight,  accountYieldWidth, accountYieldHeight,
                                 tradeYieldWidth, tradeYieldHeight,  MoneyStore.Count()};
    Request.ChartSizeCallback(&report);
}

void CloseSection(CHtmlBuilder& page) {
    page.AddHeading(1, "", "");
    page.ClosePage();
    ReportChartSizes();
}

}  // namespace

bool AddAccountSection(CHtmlBuilder& page) {
    AddSummaryBlock(page);
    AddAccountBlock(page);
    AddStatisticsBlock(page);
    CloseSection(page);
    return true;
}

bool AddForeignAccountSection(CHtmlBuilder& page) {
    AddSummaryBlock(page);
    AddImageBlock(page, kAccountDetail, "AccountDetail", "资金明细"_gbk, "");
    AddImageBlock(page, kAccountFigure, "AccountFigure", "权益走势"_gbk, "javascript:void(0)");
    AddStatisticsBlock(page);
    CloseSection(page);
    return true;
}

}  // namespace tradebill
