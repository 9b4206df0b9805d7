// The program run as a shell runs it.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <string_view>

#include "support/temp_folder.h"

#if defined(_WIN32)
#include "support/windows_header.h"

#include "platform/windows/unique_handle.h"
#else
#include <stdlib.h>
#include <sys/wait.h>
#endif

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

#if defined(_WIN32)
/// Where a program's output or input goes, for programs to inherit.
inline HANDLE OpenForProgram(const std::string& path, DWORD access, DWORD disposition) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    return ::CreateFileA(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, disposition,
                         FILE_ATTRIBUTE_NORMAL, nullptr);
}

/// Starts a command line. Under load Wine starts nothing now and then; what wasn't started has done nothing, so it is
/// tried again.
inline bool StartProgram(std::string& command, STARTUPINFOA& start, PROCESS_INFORMATION& started) {
    constexpr int kMostTries = 4;
    constexpr DWORD kPause = 500;  // milliseconds
    for (int tries = 1;; ++tries) {
        if (::CreateProcessA(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start, &started)) {
            return true;
        }
        if (tries == kMostTries) return false;
        ::Sleep(kPause);
    }
}

/// Runs a command line without a shell between, which would take most of the time. -1 if it can't be started.
inline int RunWithOutputs(std::string command, const std::string& out, const std::string& err) {
    const CUniqueHandle input(OpenForProgram("NUL", GENERIC_READ, OPEN_EXISTING));
    const CUniqueHandle output(OpenForProgram(out, GENERIC_WRITE, CREATE_ALWAYS));
    const CUniqueHandle error(OpenForProgram(err, GENERIC_WRITE, CREATE_ALWAYS));
    STARTUPINFOA start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = input.Get();
    start.hStdOutput = output.Get();
    start.hStdError = error.Get();
    PROCESS_INFORMATION started{};
    if (!StartProgram(command, start, started)) return -1;
    const CUniqueHandle process(started.hProcess);
    const CUniqueHandle thread(started.hThread);
    DWORD exit = 0;
    ::WaitForSingleObject(process.Get(), INFINITE);
    ::GetExitCodeProcess(process.Get(), &exit);
    return static_cast<int>(exit);
}
#else
/// Runs a command line of the system's shell; -1 if it didn't end by itself.
inline int RunShell(const std::string& command) {
    const int status = std::system(command.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

inline int RunWithOutputs(const std::string& command, const std::string& out, const std::string& err) {
    // Whoever runs the tests may have a configuration.
    static_cast<void>(::setenv("XDG_CONFIG_HOME", "/nowhere", 1));
    return RunShell(command + " >" + Quoted(out) + " 2>" + Quoted(err) + " <" + kNullDevice);
}
#endif

/// Runs the program with its outputs in files of `folder`; `arguments` as a shell reads them.
inline Answer RunProgram(const CTempFolder& folder, const std::string& arguments) {
    const std::string out = folder.Path("out");
    const std::string err = folder.Path("err");
    const int exit = RunWithOutputs(Quoted(TRADEBILL_PROGRAM) + " " + arguments, out, err);
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
