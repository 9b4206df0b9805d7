#include "driver/run_files.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "driver/bill_folders.h"
#include "driver/report_run.h"
#include "driver/run_folder.h"
#include "driver/run_problems.h"
#include "images/missing_fonts.h"
#include "images/picture_names.h"
#include "images/report_images.h"
#include "platform/file_place.h"
#include "platform/paths.h"
#include "platform/system_error.h"
#include "report/report.h"
#include "report/report_document.h"

namespace tradebill {
namespace {

/// A path that the system takes for an empty one: nothing can be made there, nor below it.
std::string Nowhere() {
    return std::string(1, '\0');
}

}  // namespace

CRunFiles::CRunFiles(CReport& report, const BillFolders& folders, RunResult& result)
    : report_(report), folders_(folders), result_(result), making_(FindPlace()) {
    std::string& work = report_.ReportDocument.WorkFolder;
    work = making_ == Making::Beside ? folder_->Path() : Nowhere();
    if (making_ == Making::InPlace && folders_.forPictures) work.clear();
}

CRunFiles::Making CRunFiles::FindPlace() {
    if (!folders_.forPage) return Making::Nowhere;
    folder_.emplace(report_.ReportDocument.BillFolder);
    if (folder_->IsReady()) return Making::Beside;
    return folder_->IsTooDeep() ? Making::InPlace : Making::Nowhere;
}

const std::string& CRunFiles::WhyNowhere() const {
    return folder_ ? folder_->Reason() : folders_.reason;
}

std::string CRunFiles::WorkPage() const {
    switch (making_) {
        case Making::Beside:
            return folder_->PathOf(kWorkPage);
        case Making::InPlace:
            return PagePath(report_);
        case Making::Nowhere:
            break;
    }
    return Nowhere();
}

void CRunFiles::ShowPictures() {
    if (making_ == Making::Nowhere || std::exchange(arePicturesShown_, true)) return;
    const std::vector<PictureFailure> unmade = images_.failures;
    for (const PictureFailure& picture : unmade) TakeAway(picture.name);
    const std::vector<SavedPicture> made = std::exchange(images_.saved, {});
    for (const SavedPicture& picture : made) ShowPicture(picture);
    report_.ReportDocument.WorkFolder.clear();
}

void CRunFiles::ShowPicture(const SavedPicture& picture) {
    const std::string place = ShownPicturePath(report_.ReportDocument, picture.name);
    ForgetSystemError();
    if (making_ == Making::InPlace || (folders_.forPictures && places_.Put(folder_->PathOf(picture.name), place))) {
        images_.saved.push_back(picture);
        return;
    }
    images_.failures.push_back({picture.name, PictureStage::Saving, place, SystemErrorText(LastSystemError())});
    TakeAway(picture.name);
}

/// One of an older report would be taken for this one's. A folder that bears its name is no picture.
void CRunFiles::TakeAway(std::string_view picture) {
    const std::string place = ShownPicturePath(report_.ReportDocument, picture);
    if (!folders_.forPictures || IsFolder(place) || RemoveFile(place)) return;
    images_.failures.push_back({picture, PictureStage::Removing, place, SystemErrorText(LastSystemError())});
}

void CRunFiles::ShowPage() {
    ShowPictures();
    if (making_ == Making::Beside && CopyOver(folder_->PathOf(kWorkPage), folder_->PathOf(kPageCopy))) {
        BringPage(kPageCopy);
    }
}

/// What can't be brought now may come with the next call: the last one decides.
void CRunFiles::BringPage(std::string_view workFile) {
    ForgetSystemError();
    result_.pageWritten = places_.Put(folder_->PathOf(workFile), PagePath(report_));
    result_.problems.page.reset();
    if (!result_.pageWritten) FailPage(SystemErrorText(LastSystemError()));
}

void CRunFiles::FailPage(const std::string& reason) {
    result_.pageWritten = false;
    result_.problems.page = {PagePath(report_), reason};
}

void CRunFiles::Finish(const std::optional<std::string>& failure) {
    if (failure) {
        FailPage(making_ == Making::Nowhere ? WhyNowhere() : *failure);
    } else {
        ShowPictures();
        result_.pageWritten = true;
        if (making_ == Making::Beside) BringPage(kWorkPage);
    }
    TellAndClear();
}

void CRunFiles::FinishPictures() {
    ShowPictures();
    TellAndClear();
}

void CRunFiles::TellAndClear() {
    if (making_ == Making::Nowhere) {
        for (PictureFailure& picture : images_.failures) picture.reason = WhyNowhere();
    }
    const bool isShown = arePicturesShown_ || making_ == Making::InPlace;
    result_.picturesSaved = isShown ? static_cast<int>(images_.saved.size()) : 0;
    result_.problems.pictures = std::move(images_.failures);
    if (result_.picturesSaved > 0) result_.problems.fonts = WhyTextsAreBoxes();
    report_.ReportDocument.WorkFolder.clear();
    if (folder_ && !folder_->Remove()) result_.problems.leftover = {folder_->Path(), folder_->Reason()};
}

}  // namespace tradebill
