// The program run as a shell runs it, on a copy of a sample.
#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <initializer_list>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <utility>

#include "platform/local_time.h"
#include "support/temp_folder.h"

namespace tradebill {

namespace fs = std::filesystem;

struct Answer {
    int exit;
    std::string out;
    std::string err;
};

inline std::string Quoted(const std::string& text) {
    return "'" + text + "'";
}

class Program : public testing::Test {
protected:
    /// A copy of the sample account that bears all of an account's files.
    Program() { fs::copy(std::string(TRADEBILL_SAMPLES) + "/fund-status", sample_, fs::copy_options::recursive); }

    /// Runs the program with its outputs in files; `arguments` as a shell reads them.
    Answer Run(const std::string& arguments) const {
        const std::string out = folder_.Path("out");
        const std::string err = folder_.Path("err");
        const int status = std::system(
            (Quoted(TRADEBILL_PROGRAM) + " " + arguments + " >" + Quoted(out) + " 2>" + Quoted(err) + " </dev/null")
                .c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ReadFile(out), ReadFile(err)};
    }

    /// The report of the sample, with `more` behind its options.
    [[nodiscard]] std::string Report(const std::string& more = {}) const {
        return "report --root " + Quoted(root_) + " --request " + Quoted(sample_ + "/request.ini") + " " + more;
    }
    /// The options of a report of two days, each as it is unless `changed`.
    [[nodiscard]] std::string Options(const std::string& option = {}, const std::string& changed = {}) const {
        std::string text = "report";
        for (const auto& [name, value] :
             std::initializer_list<std::pair<std::string, std::string>>{{"--root", root_},
                                                                        {"--user", "demo"},
                                                                        {"--account", "90010002"},
                                                                        {"--from", "2024-01-02"},
                                                                        {"--to", "2024-01-03"},
                                                                        {"--format", "1"}}) {
            if (name != option) text += " " + name + " " + Quoted(value);
        }
        return option.empty() || changed.empty() ? text : text + " " + option + " " + Quoted(changed);
    }
    [[nodiscard]] std::string PageFile() const { return root_ + "/Users/demo/Data/Bill/Image/TradeBill.html"; }

    CTempFolder folder_;
    std::string sample_ = folder_.Path("sample");
    std::string root_ = sample_ + "/root";
};

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
