#include "driver/reset_page.h"

#include <optional>
#include <string>

#include "driver/run_folder.h"
#include "page/page_file.h"
#include "page/page_sections.h"
#include "platform/file_place.h"
#include "platform/paths.h"
#include "platform/system_error.h"

namespace tradebill {

std::optional<std::string> ResetPage(const std::string& path, bool finished) {
    if (path.empty()) return "its path is empty";
    CRunFolder folder(FolderOf(path));
    if (folder.IsTooDeep()) return WritePlaceholderPage(WholePath{path}, finished);
    if (!folder.IsReady()) return folder.Reason();
    const std::string made = folder.PathOf(kWorkPage);
    if (auto failure = WritePlaceholderPage(WholePath{made}, finished)) return failure;
    ForgetSystemError();
    if (!PutInPlace(made, path)) return SystemErrorText(LastSystemError());
    return folder.Remove() ? std::nullopt : std::optional("it is written, but not all is cleared: " + folder.Reason());
}

}  // namespace tradebill
