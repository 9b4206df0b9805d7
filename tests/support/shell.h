// The program run as a shell runs it.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <string_view>

#if !defined(_WIN32)
#include <sys/wait.h>
#endif

#include "support/temp_folder.h"

namespace tradebill {

struct Answer {
    int exit;
    std::string out;  ///< lines end in a line feed, whatever the system's own end is
    std::string err;
};

#if defined(_WIN32)
inline constexpr const char* kNullDevice = "NUL";
inline constexpr char kQuote = '"';
#else
inline constexpr const char* kNullDevice = "/dev/null";
inline constexpr char kQuote = '\'';
#endif

/// One argument of a command line.
inline std::string Quoted(const std::string& text) {
    return kQuote + text + kQuote;
}

/// Runs a command line of the system's shell; -1 if it didn't end by itself.
inline int RunShell(const std::string& command) {
#if defined(_WIN32)
    return std::system(("\"" + command + "\"").c_str());  // of which the shell takes one pair of quotes away
#else
    const int status = std::system(command.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
#endif
}

/// Runs the program with its outputs in files of `folder`; `arguments` as a shell reads them.
inline Answer RunProgram(const CTempFolder& folder, const std::string& arguments) {
    const std::string out = folder.Path("out");
    const std::string err = folder.Path("err");
    const int exit = RunShell(Quoted(TRADEBILL_PROGRAM) + " " + arguments + " >" + Quoted(out) + " 2>" + Quoted(err) +
                              " <" + kNullDevice);
    const auto lines = [](std::string text) {
        std::erase(text, '\r');
        return text;
    };
    return {exit, lines(ReadFile(out)), lines(ReadFile(err))};
}

inline bool Says(const std::string& text, std::string_view words) {
    return text.find(words) != std::string::npos;
}

/// Exit 2, nothing on the output, and one line on the other that names `words` and what was expected.
inline testing::AssertionResult IsWrongUse(const Answer& answer, std::string_view words) {
    const bool oneLine = std::ranges::count(answer.err, '\n') == 1 && answer.err.ends_with("\n");
    if (answer.exit == 2 && answer.out.empty() && oneLine && answer.err.starts_with("tradebill: ") &&
        Says(answer.err, words) && Says(answer.err, "expected")) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << words << ": exit " << answer.exit << "\n" << answer.out << answer.err;
}

}  // namespace tradebill
