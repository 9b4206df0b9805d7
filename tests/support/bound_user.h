// A user for tests of file rights, which don't bind root.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

namespace tradebill {

/// A user whom file rights bind, for as long as it lives: they don't bind root.
class CBoundUser {
public:
    CBoundUser() : former_(::geteuid()) {
        if (former_ == 0) isBound_ = ::seteuid(kNobody) == 0;
    }
    ~CBoundUser() {
        if (former_ == 0 && ::seteuid(former_) != 0) ADD_FAILURE() << "still another user";
    }
    CBoundUser(const CBoundUser&) = delete;
    CBoundUser& operator=(const CBoundUser&) = delete;

    [[nodiscard]] bool IsBound() const { return isBound_; }

private:
    static constexpr uid_t kNobody = 65534;
    uid_t former_;
    bool isBound_ = true;
};

}  // namespace tradebill
