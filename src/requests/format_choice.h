// Which layout a statement is read by: as the user says, or by the marks in a statement.
#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "driver/present_day.h"
#include "driver/report_request.h"
#include "readers/statement_limit.h"
#include "requests/usage_error.h"

namespace tradebill {

inline constexpr std::string_view kAutoFormat = "auto";

/// The request's kind for "domestic", "foreign" or nothing. Throws CUsageError.
[[nodiscard]] std::int32_t KindNumber(const std::optional<std::string>& kind);

/// The request's format for a number. One that no fixed reader serves needs a template. Throws CUsageError.
[[nodiscard]] std::int32_t FormatNumber(const std::string& format, bool hasTemplate);

/// The domestic format whose marks stand in `text`. Throws CUsageError, with `file` in it, if there is none or more
/// than one.
[[nodiscard]] std::int32_t FormatByMarks(std::string_view text, const std::string& file);

/// A format, and the statement that shows it.
struct PickedFormat {
    std::int32_t format;
    std::string layout = {};  ///< or the template
    std::string file = {};
    std::string templateName = {};  ///< of one that reads what no layout does
};

/// What is known of a statement's text beside it.
struct TextOrigin {
    std::string day;   ///< yyyymmdd
    std::string file;  ///< for messages
    std::string rootFolder;
    bool hasTemplate = false;  ///< the user names one, so that none of the program's is tried
};

/// The format by which a text is read: by one of the program's templates, or of the root, what no layout of its marks
/// reads, or else by its marks. Throws CUsageError where they don't tell, and CUnreadableInput.
[[nodiscard]] PickedFormat FormatOfText(std::string_view text, const TextOrigin& origin);

/// There is no statement in the whole range.
class CNoStatement : public CUsageError {
public:
    using CUsageError::CUsageError;
};

/// Statements are there, and none of them can be read. Ends the program with kExitFailed.
class CNothingReadable : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Picks the format by the first statement in the request's range that can be read. Throws CNoStatement, CUsageError if
/// it doesn't tell, and CNothingReadable.
[[nodiscard]] PickedFormat PickFormat(const GenerateBillRequest& request, const std::string& rootFolder,
                                      const StatementLimit& limit = {}, const PresentDay& present = {});

}  // namespace tradebill
