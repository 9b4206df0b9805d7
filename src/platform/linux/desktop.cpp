#include "platform/desktop.h"

#include <fcntl.h>
#include <spawn.h>
#include <unistd.h>
#include <string>

#include "platform/paths.h"

namespace tradebill {

bool OpenOnDesktop(const std::string& path) {
    std::string file = AbsolutePath(path);  // never read as an option
    std::string opener = "xdg-open";
    char* arguments[] = {opener.data(), file.data(), nullptr};
    posix_spawn_file_actions_t silent;
    if (::posix_spawn_file_actions_init(&silent) != 0) return false;
    ::posix_spawn_file_actions_addopen(&silent, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    ::posix_spawn_file_actions_addopen(&silent, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t child = 0;
    const int failure = ::posix_spawnp(&child, opener.c_str(), &silent, nullptr, arguments, environ);
    ::posix_spawn_file_actions_destroy(&silent);
    return failure == 0;
}

}  // namespace tradebill
