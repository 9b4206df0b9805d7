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
        Set(zone);
    }
    ~CTimeZone() { Set(former_ ? former_->c_str() : nullptr); }
    CTimeZone(const CTimeZone&) = delete;
    CTimeZone& operator=(const CTimeZone&) = delete;

private:
    /// Null takes it away.
    static void Set(const char* zone) {
#if defined(_WIN32)
        ::_putenv_s("TZ", zone != nullptr ? zone : "");
        ::_tzset();
#else
        if (zone != nullptr) {
            ::setenv("TZ", zone, 1);
        } else {
            ::unsetenv("TZ");
        }
        ::tzset();
#endif
    }

    std::optional<std::string> former_;
};

}  // namespace tradebill
