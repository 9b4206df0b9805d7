// The command line as a whole: which command it names, and what is wrong with it, in words that help.
#pragma once

namespace tradebill {

/// Whether the arguments have no colours used, wherever among them that stands.
[[nodiscard]] bool DeclinesColours(int argc, const char* const* argv);

/// Runs the command that the arguments name, or shows the help or the version that they ask for. Returns the program's
/// exit code. Throws CUsageError for a command or option that there isn't, with the nearest that there is, and what the
/// command throws.
[[nodiscard]] int RunCommandLine(int argc, const char* const* argv);

}  // namespace tradebill
