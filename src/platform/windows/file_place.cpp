#include "platform/file_place.h"

#include <windows.h>

#include "platform/file.h"
#include "platform/paths.h"
#include "platform/system_error.h"

namespace tradebill {
namespace {

/// Whether what is at a path can't leave it since somebody has it open.
bool MeansHeld(DWORD error) {
    return error == ERROR_ACCESS_DENIED || error == ERROR_SHARING_VIOLATION || error == ERROR_USER_MAPPED_FILE;
}

}  // namespace

bool CFilePlaces::Put(const std::string& from, const std::string& to) {
    if (MoveOver(from, to)) return true;
    const DWORD error = ::GetLastError();
    if (MeansHeld(error) && IsPlainFile(to) && !IsLink(to) && CopyOver(from, to)) {
        RemoveFile(from);
        return true;
    }
    if (LastSystemError() == 0) SetSystemError(error);
    return false;
}

}  // namespace tradebill
