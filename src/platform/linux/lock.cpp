#include "platform/lock.h"

#include <memory>
#include <mutex>

namespace tradebill {

struct CLock::Native {
    std::mutex mutex;
};

CLock::CLock() : native_(std::make_unique<Native>()) {}
CLock::~CLock() = default;

void CLock::lock() {
    native_->mutex.lock();
}

void CLock::unlock() {
    native_->mutex.unlock();
}

}  // namespace tradebill
