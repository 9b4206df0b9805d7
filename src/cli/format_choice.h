// Which layout a statement is read by: as the user says, or by the marks in a statement.
#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "driver/report_request.h"
#include "readers/statement_limit.h"

namespace tradebill {

inline constexpr std::string_view kAutoFormat = "auto";

/// The request's kind for "domestic", "foreign" or nothing. Throws CUsageError.
[[nodiscard]] std::int32_t KindNumber(const std::optional<std::string>& kind);

/// The request's format for a number. One that no fixed reader serves needs a template. Throws CUsageError.
[[nodiscard]] std::int32_t FormatNumber(const std::optional<std::string>& format, bool hasTemplate);

/// The domestic format whose marks stand in `text`. Throws CUsageError, with `file` in it, if there is none or more
/// than one.
[[nodiscard]] std::int32_t FormatByMarks(std::string_view text, const std::string& file);

/// A format, and the statement that shows it.
struct PickedFormat {
    std::int32_t format;
    std::string layout;
    std::string file;
};

/// Statements are there, and none of them can be read. Ends the program with kExitFailed.
class CNothingReadable : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Picks the format by the first statement in the request's range that can be read. Throws CUsageError if there is no
/// statement or it doesn't tell, and CNothingReadable.
[[nodiscard]] PickedFormat PickFormat(const GenerateBillRequest& request, const std::string& rootFolder,
                                      const StatementLimit& limit = {});

}  // namespace tradebill
