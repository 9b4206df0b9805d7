#include "hosts/host_buffer.h"

#include <cstdlib>
#include <cstring>
#include <new>
#include <string_view>

namespace tradebill {

void* BufferOf(std::string_view bytes) {
    char* const buffer = static_cast<char*>(std::malloc(bytes.size() + 1));
    if (buffer == nullptr) throw std::bad_alloc();
    std::memcpy(buffer, bytes.data(), bytes.size());
    buffer[bytes.size()] = '\0';
    return buffer;
}

}  // namespace tradebill
