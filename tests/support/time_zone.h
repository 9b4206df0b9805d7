// Another time zone, for as long as it lives.
#pragma once

#include <time.h>

#include <cstdlib>
#include <optional>
#include <string>

namespace tradebill {

class CTimeZone {
public:
    /// `zone` as in TZ, such as "CST-8".
    explicit CTimeZone(const char* zone) {
        if (const char* const former = std::getenv("TZ"); former != nullptr) former_ = former;
        ::setenv("TZ", zone, 1);
        ::tzset();
    }
    ~CTimeZone() {
        if (former_) {
            ::setenv("TZ", former_->c_str(), 1);
        } else {
            ::unsetenv("TZ");
        }
        ::tzset();
    }
    CTimeZone(const CTimeZone&) = delete;
    CTimeZone& operator=(const CTimeZone&) = delete;

private:
    std::optional<std::string> former_;
};

}  // namespace tradebill
