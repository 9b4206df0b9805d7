#include "cli/told_lines.h"

#include <iostream>
#include <string>
#include <string_view>

#include "base/text.h"

namespace tradebill {

CToldLines::CToldLines() : before_(std::cerr.rdbuf(&told_)) {}

CToldLines::~CToldLines() {
    std::cerr.rdbuf(before_);
}

CToldLines::Lines CToldLines::Take() {
    constexpr std::string_view kProgram = "tradebill: ";
    constexpr std::string_view kWarning = "warning: ";
    const std::string text = told_.str();
    told_.str({});
    Lines lines;
    for (std::string_view rest = text; !rest.empty();) {
        std::string_view line = TakeLine(rest);
        if (line.starts_with(kProgram)) line.remove_prefix(kProgram.size());
        const bool isWarning = line.starts_with(kWarning);
        if (isWarning) line.remove_prefix(kWarning.size());
        if (!line.empty()) (isWarning ? lines.warnings : lines.failures).emplace_back(line);
    }
    return lines;
}

}  // namespace tradebill
