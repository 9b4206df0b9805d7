#include "images/header_block.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "base/day.h"
#include "base/gbk.h"
#include "base/shortage.h"
#include "paint/canvas.h"
#include "paint/font.h"
#include "paint/geometry.h"
#include "paint/picture.h"
#include "paint/picture_file.h"
#include "platform/embedded_picture.h"
#include "platform/local_time.h"
#include "report/request_copy.h"

namespace tradebill {
namespace {

constexpr Font kHeaderFont{.face = "Arial", .cellHeight = 16, .weight = 600};
constexpr Color kBannerTextColor = 0xFBEEEE;
constexpr std::int32_t kBannerTextIndent = 200;  // from the right
constexpr std::int32_t kAccountTop = 40;
constexpr std::int32_t kDaysTop = 60;
constexpr std::int32_t kBannerStep = 100;  // from banner to title bar
constexpr std::int32_t kTitleIndent = 60;  // from the right
constexpr std::string_view kTitle;         // the page lays its own titles over the bar

std::string AccountText(std::string_view account) {
    return std::string("账号:\r\r"_gbk).append(account);
}

std::string DaysText(const ReportRange& days) {
    return std::string("报告期间:\r\r"_gbk) + DayText(LocalDayOf(days.first)) + "-" + DayText(LocalDayOf(days.last));
}

/// One that the module carries inside. It is there and sound: only a shortage keeps it from being read.
CPicture OwnPicture(int id) {
    auto picture = LoadPngResource(id);
    if (!picture) throw CShortage("the module's own picture can't be read for now");
    return *std::move(picture);
}

void PaintBanner(CCanvas& canvas, const HeaderBlock& block, std::int32_t y) {
    canvas.DrawPicture(OwnPicture(kBannerId), {0, y});
    const CFontScope font(canvas, kHeaderFont);
    canvas.SelectTextColor(kBannerTextColor);
    const std::int32_t left = block.width - kBannerTextIndent;
    canvas.WriteText({left, y + kAccountTop}, AccountText(block.account));
    canvas.WriteText({left, y + kDaysTop}, DaysText(block.days));
}

void PaintTitleBar(CCanvas& canvas, const HeaderBlock& block, std::int32_t y) {
    const CPicture bar = OwnPicture(kTitleBarId);
    canvas.DrawPicture(bar, {0, y});
    const CFontScope font(canvas, kHeaderFont);
    canvas.SelectTextColor(kWhite);
    const std::int32_t textHeight = canvas.MeasureText(kTitle).height;
    canvas.WriteText({block.width - kTitleIndent, y + (bar.Height() - textHeight) / 2}, kTitle);
}

}  // namespace

std::int32_t PaintHeaderBlock(CCanvas& canvas, const HeaderBlock& block, std::int32_t y) {
    if (block.withBanner) {
        PaintBanner(canvas, block, y);
        y += kBannerStep;
    }
    PaintTitleBar(canvas, block, y);
    return y;
}

}  // namespace tradebill
