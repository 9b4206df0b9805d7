// The one error that leaves the module.
#pragma once

#include <cstdint>
#include <exception>
#include <string_view>

#if defined(_WIN32)
#define TRADEBILL_ERROR_CLASS
#else
#define TRADEBILL_ERROR_CLASS __attribute__((visibility("default")))
#endif

namespace tradebill {

inline constexpr std::uint32_t kErrorUnspecified = 0x80004005;      ///< a date out of bounds
inline constexpr std::uint32_t kErrorInvalidArgument = 0x80070057;  ///< a day that has no time value
inline constexpr std::uint32_t kErrorOutOfMemory = 0x8007000E;

/// Where in a statement an error was met.
struct ErrorPlace {
    int line = 0;                   ///< counted from 1, blank lines too; 0: not known
    std::string_view section = {};  ///< in English: "money", "trades", or "template" for its date; static; empty: none
};

/// Carries a 32-bit error code through GenerateBill to the host. A C++ host catches it; for others there is
/// TryGenerateBill.
class TRADEBILL_ERROR_CLASS CReportError : public std::exception {
public:
    explicit CReportError(std::uint32_t code, const ErrorPlace& place = {}) noexcept : code_(code), place_(place) {}

    [[nodiscard]] std::uint32_t Code() const noexcept { return code_; }

    [[nodiscard]] const ErrorPlace& Place() const noexcept { return place_; }

    [[nodiscard]] const char* what() const noexcept override {
        switch (code_) {
            case kErrorUnspecified:
                return "a date is out of bounds (year from 1900, month 1 to 12, day 1 to 31)";
            case kErrorInvalidArgument:
                return "a date lies outside 1970 to 3000, or an index outside its rows";
            case kErrorOutOfMemory:
                return "out of memory";
            default:
                return "the report could not be made";
        }
    }

private:
    std::uint32_t code_;
    ErrorPlace place_;
};

}  // namespace tradebill
