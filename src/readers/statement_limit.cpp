#include "readers/statement_limit.h"

#include <cstdint>
#include <limits>
#include <optional>
#include <string>

#include "platform/file.h"

namespace tradebill {
namespace {

struct SizeUnit {
    std::uint64_t bytes;
    const char* name;
};
// The largest first.
constexpr SizeUnit kUnits[] = {{std::uint64_t{1} << 30, " GB"}, {std::uint64_t{1} << 20, " MB"}, {1024, " KB"}};

std::string SizeText(std::uint64_t bytes) {
    for (const SizeUnit& unit : kUnits) {
        if (bytes > 0 && bytes % unit.bytes == 0) return std::to_string(bytes / unit.bytes) + unit.name;
    }
    return std::to_string(bytes) + (bytes == 1 ? " byte" : " bytes");
}

}  // namespace

std::optional<std::string> WhyTooLarge(std::uint64_t bytes, const StatementLimit& limit) {
    if (bytes <= limit.mostBytes) return std::nullopt;
    std::string reason = "larger than " + SizeText(limit.mostBytes);
    if (!limit.setting.empty()) reason.append(" (").append(limit.setting).append(")");
    return reason;
}

std::optional<std::string> WhyTooLarge(const std::string& path, const StatementLimit& limit) {
    if (limit.mostBytes == std::numeric_limits<std::uint64_t>::max()) return std::nullopt;
    const auto stamp = StampOf(path);
    return stamp ? WhyTooLarge(stamp->size, limit) : std::nullopt;
}

}  // namespace tradebill
