// What went wrong in a run on the way, while it passed over it: the run keeps it and says nothing. The program and the
// exports tell it in the same words.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/report_error.h"
#include "images/report_images.h"
#include "platform/file.h"
#include "readers/statement_loader.h"

namespace tradebill {

/// A day's file that is there and gave no statement.
struct UnreadStatement {
    std::string day;  ///< yyyymmdd
    std::string path;
    StatementState state = StatementState::Unreadable;  ///< Missing: one that can't be written counts as absent
    std::string reason;                                 ///< in the system's words, UTF-8; may be empty
};

/// A file that can't be written, or a folder that can't be made.
struct UnwrittenFile {
    std::string path;
    std::string reason;  ///< in the system's words, UTF-8; may be empty
};

/// A folder that another program writes to.
struct TakenPlace {
    std::string folder;
    std::string holder;  ///< UTF-8
};

/// The error that ended a run.
struct RunError {
    std::uint32_t code = 0;
    std::string text;  ///< what the code means
    std::string day;   ///< of the statement that was being read, yyyymmdd; empty: none was
    std::string path;  ///< of that statement
    ErrorPlace place;  ///< in that statement
};

struct RunProblems {
    std::string names;               ///< why the request's names can't be used, which ends the run; empty if they can
    std::vector<UnreadFile> inputs;  ///< chain file and template: the run goes on as if there were none
    std::vector<UnreadStatement> statements;
    std::vector<UnwrittenFile> folders;
    std::vector<PictureFailure> pictures;
    std::string fonts;  ///< why texts in the pictures are boxes; empty if they aren't
    std::optional<UnwrittenFile> page;
    std::optional<TakenPlace> taken;
    std::optional<UnwrittenFile> leftover;  ///< what was the run's own and can't be removed
    std::optional<RunError> error;

    [[nodiscard]] bool IsEmpty() const {
        return names.empty() && inputs.empty() && statements.empty() && folders.empty() && pictures.empty() &&
               fonts.empty() && !page && !taken && !leftover && !error;
    }
};

/// "0x80070057"
[[nodiscard]] std::string ErrorCodeText(std::uint32_t code);

/// What failed and, behind its code, the day, the statement's name, the row and the section.
[[nodiscard]] std::string ErrorText(const RunError& error);

/// "can't read sys/chain.ini: Permission denied"; "sys/chain.ini is not a file"; one that should be there may be
/// missing.
[[nodiscard]] std::string UnreadFileText(const UnreadFile& file);

/// "20240102: can't read D90010002.20240102o.txt: Permission denied".
[[nodiscard]] std::string UnreadStatementText(const UnreadStatement& statement);

/// One line for each problem but the error, in the order of the run. Paths as UTF-8.
[[nodiscard]] std::vector<std::string> ProblemTexts(const RunProblems& problems);

}  // namespace tradebill
