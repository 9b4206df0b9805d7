#include "bare_pass.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <stdexcept>
#include <string>

namespace tradebill {

std::size_t CountLines(const char* path, std::vector<char>& buffer) {
    const int file = ::open(path, O_RDONLY | O_CLOEXEC);
    if (file < 0) return 0;
    struct stat status {};
    ::fstat(file, &status);
    buffer.resize(std::max(buffer.size(), static_cast<std::size_t>(status.st_size)));
    const ssize_t size = ::read(file, buffer.data(), static_cast<std::size_t>(status.st_size));
    ::close(file);
    if (size != status.st_size) throw std::runtime_error(std::string("can't read ") + path);
    std::size_t lines = 0;
    const char* at = buffer.data();
    const char* const end = at + size;
    while ((at = static_cast<const char*>(std::memchr(at, '\n', static_cast<std::size_t>(end - at)))) != nullptr) {
        ++lines;
        ++at;
    }
    return lines;
}

}  // namespace tradebill
