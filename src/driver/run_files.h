// The page and the pictures of a run: made in a folder of the run's own, and brought to where they are looked for in
// one go, the page last. So whoever looks meets the report of before or this one, whole, also if two runs make it at
// once.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "driver/bill_folders.h"
#include "driver/run_folder.h"
#include "images/report_images.h"
#include "platform/file_place.h"
#include "report/report_document.h"

namespace tradebill {

class CReport;
struct RunResult;

class CRunFiles {
public:
    /// `folders` are those of `report`, as they were prepared. Where the system can't open what lies in a folder deeper
    /// than the page's, page and pictures are made at their places.
    CRunFiles(CReport& report, const BillFolders& folders, RunResult& result);
    CRunFiles(const CRunFiles&) = delete;
    CRunFiles& operator=(const CRunFiles&) = delete;

    /// Where the page is to be made. Nothing can be made there if there is no place for it.
    [[nodiscard]] std::string WorkPage() const;

    /// What the pictures came to, for BuildReportImages. A picture that can't be shown moves from those that were saved
    /// to the failures.
    [[nodiscard]] ReportImages& Images() { return images_; }

    /// Brings the pictures to their places, the first time that it is called, and takes away older ones of those that
    /// could not be made. Then the page as it is by now: more is going to be added to it.
    void ShowPage();

    // The end, in one of two ways: the result has what came of page and pictures then, and the run's own folder is
    // gone.

    /// All of it, unless `failure` says why the page isn't whole: then what was shown last stays.
    void Finish(const std::optional<std::string>& failure);
    /// The pictures alone, of a run without a page.
    void FinishPictures();
    /// Nothing of what isn't in its place yet.
    void GiveUp() { TellAndClear(); }

    /// Whether pictures are in their place as they are made, so that a page has to follow.
    [[nodiscard]] bool AreInPlace() const { return making_ == Making::InPlace; }

private:
    enum class Making { Beside, InPlace, Nowhere };
    Making FindPlace();

    [[nodiscard]] const std::string& WhyNowhere() const;
    void ShowPictures();
    void ShowPicture(const SavedPicture& picture);
    void TakeAway(std::string_view picture);
    void BringPage(std::string_view workFile);
    void FailPage(const std::string& reason);
    void TellAndClear();

    CReport& report_;
    BillFolders folders_;
    RunResult& result_;
    std::optional<CRunFolder> folder_;
    Making making_;
    bool arePicturesShown_ = false;
    CFilePlaces places_;
    ReportImages images_;
};

}  // namespace tradebill
