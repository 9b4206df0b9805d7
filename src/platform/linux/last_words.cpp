#include "platform/last_words.h"

#include <unistd.h>

#include <string_view>

namespace tradebill {

void EndWithWords(std::string_view text, int status) noexcept {
    static_cast<void>(!::write(STDERR_FILENO, text.data(), text.size()));
    ::_exit(status);
}

}  // namespace tradebill
