// Where a run finds its files and leaves the page.
#pragma once

#include <string>
#include <vector>

#include "base/day.h"
#include "driver/present_day.h"
#include "driver/report_request.h"
#include "driver/run_problems.h"

namespace tradebill {

class CReport;

/// What came of the folders that a run makes.
struct BillFolders {
    bool forPage = false;      ///< the page's folder is there
    bool forPictures = false;  ///< and the pictures' folder in it
    std::vector<UnwrittenFile> failures = {};
    std::string reason = {};  ///< why nothing can be written to the page's folder, UTF-8; may be empty
};

// All of them lie below the report's root folder, unless an own folder is given, and follow its request.

/// Makes "Data", "Bill" and "Image" in the user's folder, one in the other, or in place of them the last level of
/// `outFolder`, if it isn't empty; and in the last of them the pictures' folder. Sets BillFolder and ImageFolderName of
/// the report's document. If a folder can't be made it stops there: BillFolder names that folder. A link counts as one
/// that can't be made in the place of "Image" and of the pictures' folder, since whoever laid it there would say where
/// files are replaced. Without the pictures' folder a page is written only if it can't show older pictures.
BillFolders PrepareBillFolders(CReport& report, const std::string& outFolder = {});

/// The statement file of `day`. That of a finished day ends in "o".
[[nodiscard]] std::string StatementPath(const CReport& report, const CalendarDay& day, bool isToday);

/// Where the statement of `day` may lie: the first that is there is the day's.
[[nodiscard]] std::vector<std::string> StatementPaths(const CReport& report, const CalendarDay& day,
                                                      const PresentDay& present);

/// The chain file of the request's kind.
[[nodiscard]] std::string ChainPath(const CReport& report);

/// The template that the request names.
[[nodiscard]] std::string TemplatePath(const CReport& report);

/// REQUIRES: PrepareBillFolders has run.
[[nodiscard]] std::string PagePath(const CReport& report);

/// The same before a run, if all its folders can be made.
[[nodiscard]] std::string FuturePagePath(const std::string& rootFolder, const GenerateBillRequest& request,
                                         const std::string& outFolder);

}  // namespace tradebill
