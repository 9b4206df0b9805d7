#include "driver/place_guard.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <ctime>
#include <memory>
#include <string>

#include "platform/local_time.h"
#include "platform/lock_file.h"
#include "platform/process.h"
#include "platform/system_error.h"

namespace tradebill {
namespace {

constexpr const char* kGuardName = ".tradebill.lock";

/// ", since 10:22:01"
std::string SinceText() {
    const auto now = LocalPartsOf(PresentTime());
    std::array<char, 32> text{};
    const std::size_t size = now ? std::strftime(text.data(), text.size(), ", since %H:%M:%S", &*now) : 0;
    return {text.data(), size};
}

}  // namespace

CPlaceGuard::CPlaceGuard(const std::string& folder, int seconds) {
    constexpr int kStep = 50;  // milliseconds
    const std::string path = folder + "/" + kGuardName;
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
    lock_ = std::make_unique<CLockFile>(path, CLockFile::Which::MadeIfMissing);
    while (lock_->IsTaken() && std::chrono::steady_clock::now() < end) {
        Pause(kStep);
        lock_ = std::make_unique<CLockFile>(path, CLockFile::Which::MadeIfMissing);
    }
    if (lock_->IsHeld()) {
        lock_->Name(OwnProcessName() + SinceText());
    } else if (lock_->IsTaken()) {
        holder_ = HolderIn(path);
        if (holder_.empty()) holder_ = "another program";
    } else {
        reason_ = SystemErrorText(LastSystemError());
    }
}

}  // namespace tradebill
