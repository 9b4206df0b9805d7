#include "driver/place_guard.h"

#include <array>
#include <cstddef>
#include <cstdint>
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

CPlaceGuard::CPlaceGuard(const std::string& folder, int seconds) : path_(folder + "/" + kGuardName) {
    constexpr int kStep = 50;  // milliseconds
    const std::int64_t end = SteadyMicroseconds() + std::int64_t{seconds} * 1'000'000;
    lock_ = std::make_unique<CLockFile>(path_, CLockFile::Which::MadeIfMissing);
    while (lock_->IsTaken() && SteadyMicroseconds() < end) {
        Pause(kStep);
        lock_ = std::make_unique<CLockFile>(path_, CLockFile::Which::MadeIfMissing);
    }
    if (lock_->IsHeld()) {
        lock_->Name(OwnProcessName() + SinceText());
    } else if (lock_->IsTaken()) {
        holder_ = HolderIn(path_);
        if (holder_.empty()) holder_ = "another program";
    } else {
        reason_ = SystemErrorText(LastSystemError());
    }
}

}  // namespace tradebill
