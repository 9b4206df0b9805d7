// The pictures of a report: painted off-screen, one after another, and saved in the folder that the page points at.
// What they show comes from the head of a section (header_block.h), the painted tables (account_table.h,
// currency_tables.h, statistics_panel.h) and the charts (account_charts.h).
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "images/chart_kinds.h"
#include "images/chart_values.h"
#include "paint/canvas.h"
#include "paint/picture_file.h"
#include "platform/embedded_picture.h"
#include "report/money_store.h"
#include "report/report_document.h"

namespace tradebill {

/// One of the report's pictures, ready to be painted. Valid during the call that shows it.
struct ShownPicture {
    std::string_view name;  ///< of its file
    PictureSize size;
    const AccountChart* chart;                   ///< that fills it, or null
    bool isTitleBar;                             ///< these all look the same
    std::function<void(CCanvas& canvas)> paint;  ///< on a canvas of that size
};

/// Hands all pictures to `show`, in the order of the report, as for a banner of `baseWidth` pixels.
void ShowReportPictures(const CReport& report, int baseWidth,
                        const std::function<void(const ShownPicture& picture)>& show);

/// The names of all files of pictures that a report may have.
[[nodiscard]] std::vector<std::string_view> ReportPictureNames();

enum class PictureStage {
    Decoding,
    Painting,
    Saving,
    Removing,  ///< it could not be made, and nor could an older one of its name be taken away
};

/// A picture that the report doesn't have.
struct PictureFailure {
    std::string_view name;  ///< of its file; lives as long as the module
    PictureStage stage = PictureStage::Painting;
    std::string path;    ///< of its file, where the page looks for it
    std::string reason;  ///< in English, or the system's words for what can't be saved or removed; UTF-8, may be empty
};

/// What making the pictures came to, for the report to keep.
struct ReportImages {
    std::optional<int> pageWidth;  ///< of every table of the page, pixels; nothing if the banner can't be read
    ChartSizes chartSizes;         ///< of the charts that could be painted; for the others what the report had before
    std::vector<SavedPicture> saved;
    std::vector<PictureFailure> failures;
};

/// Makes the JPEG files of all pictures and two PNG files of a report, where FullPicturePath says. A picture that can't
/// be made or saved is passed over. `banner`, a PNG file's bytes, is the picture whose width is the report's base
/// width: if it can't be read there are only the PNG files. `images`, which is empty before, tells what was made, also
/// if an error ends it.
///
/// REQUIRES: the statistics are complete, and the report's folders prepared.
void BuildReportImages(const CReport& report, ReportImages& images,
                       std::string_view banner = EmbeddedPicture(kBannerId));

/// The sizes that the charts of a report have, without painting anything; if the banner can't be read, those that the
/// report has already.
[[nodiscard]] ChartSizes MeasureCharts(const CReport& report, std::string_view banner = EmbeddedPicture(kBannerId));

}  // namespace tradebill
