// Standard input and output of the program: what their caller may do with them before and while it runs.
#pragma once

#include <optional>
#include <string>

namespace tradebill {

/// Takes the places of the standard streams that the caller has closed, so that no file that is opened later gets one
/// and what is printed with it: reading and writing such a stream fails. A pipe whose reader leaves makes a write fail
/// too, and so does a file that may grow no further, instead of ending the program in the middle of its work.
///
/// REQUIRES: nothing has been opened yet.
void HoldStandardStreams();

/// All that can be read from standard input. Nothing, with the system's reason, if it can't be read to its end.
[[nodiscard]] std::optional<std::string> ReadStandardInput();

/// Ends the work on standard output. False if what was written to it may be lost (CFile::Close).
///
/// REQUIRES: all is flushed, and nothing follows.
[[nodiscard]] bool CloseStandardOutput();

/// Whether standard output is a pipe that nobody reads any more.
[[nodiscard]] bool HasReaderLeft();

}  // namespace tradebill
