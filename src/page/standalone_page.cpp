#include "page/standalone_page.h"

#include <algorithm>
#include <ios>
#include <ostream>
#include <string>
#include <string_view>

#include "base/base64.h"
#include "images/picture_names.h"
#include "page/page_closing.h"
#include "page/page_scripts.h"
#include "page/page_sink.h"
#include "page/page_text.h"
#include "page/standalone_script.h"
#include "platform/file.h"
#include "platform/text_encoding.h"
#include "report/report.h"
#include "report/report_document.h"

namespace tradebill {
namespace {

/// One that couldn't be saved is missed, and told, where it was to be saved.
bool IsSaved(const CReportDocument& document, std::string_view picture) {
    const auto& saved = document.SavedPictures;
    return std::ranges::find(saved, picture, &SavedPicture::name) != saved.end();
}

/// What the page may do: show pictures that it holds, look as its styles say, run its own script. Nothing is fetched,
/// sent or framed. It holds for what stands behind it.
std::string PolicyLine() {
    return Joined(
        "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; img-src data:; script-src '",
        StandaloneScriptHash(), "'; style-src 'unsafe-inline'; base-uri 'none'; form-action 'none'\">\r\n");
}

/// The page keeps its width: a phone begins at its own scale, from which readers move and zoom.
constexpr std::string_view kViewportLine =
    "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\r\n";

void Write(std::ostream& out, std::string_view utf8) {
    out.write(utf8.data(), static_cast<std::streamsize>(utf8.size()));
}

}  // namespace

std::string CHeldPictures::DataAddress(const CReport& report, std::string_view picture) const {
    const std::string path = FullPicturePath(report.ReportDocument, picture);
    CFileBuffer buffer;
    const FileContent content = ReadWholeFile(path, buffer);
    const bool isLost = content.state == FileState::Missing ? IsSaved(report.ReportDocument, picture)
                                                            : content.state != FileState::Read;
    if (isLost && !lost_) lost_ = {path, content.state, content.reason};
    const std::string_view type = picture.ends_with(".png") ? "image/png" : "image/jpeg";
    return std::string("data:").append(type).append(";name=").append(picture).append(";base64,") +
           Base64(content.bytes);
}

std::string CHeldPictures::AddressOf(const CReport& report, std::string_view picture) const {
    const auto found = addresses_.find(picture);
    if (found != addresses_.end()) return found->second;
    return addresses_.emplace(picture, DataAddress(report, picture)).first->second;
}

std::string CStandaloneForm::PictureAddress(const CReport& report, std::string_view picture) const {
    return pictures_.AddressOf(report, picture);
}

std::string_view CStandaloneForm::LinkAddress(std::string_view /*script*/) const {
    return "#";  // the page's script keeps it from leading to the top
}

std::string CStandaloneForm::FoldAttribute(const CReport& report, std::string_view function) const {
    const FoldScript* const script = FindFoldScript(report, function);
    if (script == nullptr) return {};
    std::string text = Joined("data-button=\"", script->buttonId, "\" data-parts=\"");
    std::string_view separator;
    for (const std::string_view part : script->targets) {
        Append(text, separator, part);
        separator = " ";
    }
    text += '"';
    return text;
}

std::string_view CStandaloneForm::UnmarkableAttribute() const {
    return "data-unmarkable";
}

std::string CStandaloneForm::Scripts(const CReport& report) const {
    return Joined("<script data-shrink=\"", PictureAddress(report, kShrinkPicture), "\" data-expand=\"",
                  PictureAddress(report, kExpandPicture), "\">", StandaloneScript(), "</script>\r\n");
}

void CStandalonePage::AddStyle(std::string_view block) {
    styles_ += block;
}

void CStandalonePage::AddText(std::string_view text) {
    if (text.empty()) return;
    endsInLine_ = text.back() != '\n';
    if (isInRows_) {
        rows_.Add(GbkToUtf8(text));
    } else if (hasStarted_) {
        Write(out_, GbkToUtf8(text));
    } else {
        unstarted_ += text;
    }
}

void CStandalonePage::BeginRows(const PageRows& table) {
    StartBody();
    rows_.Begin(table);
    isInRows_ = true;
}

void CStandalonePage::BeginDay(std::string_view day) {
    if (isInRows_) rows_.BeginGroup(GbkToUtf8(day));
}

void CStandalonePage::EndRows() {
    if (isInRows_) rows_.End();
    isInRows_ = false;
}

void CStandalonePage::ClosePage() {
    EndRows();
    if (endsInLine_) AddText(kPageLineEnd);
    StartBody();
}

void CStandalonePage::Finish() {
    ClosePage();
    Write(out_, kPageEnd);
}

/// Styles come before the first closing and the first rows: what is kept until then is small.
void CStandalonePage::StartBody() {
    if (hasStarted_) return;
    hasStarted_ = true;
    constexpr std::string_view kHeadStart = "<head>\r\n";
    constexpr std::string_view kHeadEndLine = "</head>\r\n";
    std::string_view title = kPageHeadLines.substr(kHeadStart.size());
    title.remove_suffix(kHeadEndLine.size());
    Write(out_, "<html>\r\n");  // as the page has it: behind a doctype rows would be 28 pixels high instead of 23
    Write(out_, kHeadStart);
    Write(out_, "<meta charset=\"utf-8\">\r\n");
    Write(out_, PolicyLine());
    Write(out_, kViewportLine);
    Write(out_, GbkToUtf8(title));
    Write(out_, GbkToUtf8(styles_));
    Write(out_, kHeadEndLine);
    Write(out_, "<body>\r\n");
    Write(out_, GbkToUtf8(unstarted_));
    unstarted_ = {};
}

}  // namespace tradebill
