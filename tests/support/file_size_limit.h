// A disk that is nearly full, for tests: no file grows beyond so many bytes.
#pragma once

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>

namespace tradebill {

/// As long as it lives, what this process writes beyond `bytes` of a file fails.
class CFileSizeLimit {
public:
    explicit CFileSizeLimit(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        EXPECT_EQ(::getrlimit(RLIMIT_FSIZE, &before_), 0);
        const rlimit limit{bytes, before_.rlim_max};
        EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
    }
    ~CFileSizeLimit() {
        EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &before_), 0);
        std::signal(SIGXFSZ, handler_);
    }
    CFileSizeLimit(const CFileSizeLimit&) = delete;
    CFileSizeLimit& operator=(const CFileSizeLimit&) = delete;

private:
    void (*handler_)(int);
    rlimit before_{};
};

}  // namespace tradebill
