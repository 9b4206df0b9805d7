#include "platform/whole_file.h"

#include "platform/paths.h"

namespace tradebill {

bool SaveInOneStep(const std::string& path, const std::function<bool(const std::string& unfinished)>& write) {
    const std::string unfinished = path + ".part";
    if (write(unfinished) && MoveOver(unfinished, path)) return true;
    RemoveFile(unfinished);
    return false;
}

}  // namespace tradebill
