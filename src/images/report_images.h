// The pictures of a report: painted off-screen, one after another, and saved in the folder that the page points at.
// What they show comes from the head of a section (header_block.h), the painted tables (account_table.h,
// currency_tables.h, statistics_panel.h) and the charts (account_charts.h).
#pragma once

#include <functional>
#include <string_view>

#include "paint/canvas.h"
#include "paint/picture_file.h"

namespace tradebill {

using PicturePainter = std::function<void(CCanvas& canvas)>;
using PictureViewer = std::function<void(std::string_view name, const PictureSize& size, const PicturePainter& paint)>;

/// Hands the twelve pictures to `show`, in the order of the report, as for a banner of `baseWidth` pixels: each with
/// the name of its file, its size, and what paints it on a canvas of that size.
void ShowReportPictures(int baseWidth, const PictureViewer& show);

/// Makes twelve JPEG and two PNG files from the stores of the finished run and sets PageWidth. A picture that can't be
/// made or saved is passed over. Returns false if the banner is missing: then there are only the PNG files, and
/// PageWidth stays as it was.
bool BuildReportImages();

/// Sets the ChartSizes that a report leaves in MoneyStore, without painting anything.
void NoteChartSizes();

}  // namespace tradebill
