// What a run tells on standard error, kept for whoever says whose run it was.
#pragma once

#include <sstream>
#include <streambuf>
#include <string>
#include <vector>

namespace tradebill {

/// Takes what goes to std::cerr while it lives.
class CToldLines {
public:
    CToldLines();
    ~CToldLines();
    CToldLines(const CToldLines&) = delete;
    CToldLines& operator=(const CToldLines&) = delete;

    /// The lines so far without the program's name: what failed, and apart from it what was warned of.
    struct Lines {
        std::vector<std::string> failures;
        std::vector<std::string> warnings;
    };
    [[nodiscard]] Lines Take();

private:
    std::stringbuf told_;
    std::streambuf* before_;
};

}  // namespace tradebill
