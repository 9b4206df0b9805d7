// The lock that guards a store's single operations.
#pragma once

#include <memory>

namespace tradebill {

/// To be held by a std::scoped_lock. On Windows a critical section, which goes with its owner: the standard library's
/// own lock there keeps what it took when the module is unloaded.
class CLock {
public:
    CLock();
    ~CLock();
    CLock(const CLock&) = delete;
    CLock& operator=(const CLock&) = delete;

    // Named as the standard library wants them.
    void lock();    ///< REQUIRES: this thread doesn't hold it
    void unlock();  ///< REQUIRES: this thread holds it

private:
    struct Native;
    std::unique_ptr<Native> native_;
};

}  // namespace tradebill
