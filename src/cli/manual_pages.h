// The manual pages of the program: one that tells what it is, and one a command. They are English, and roff.
#pragma once

#include <string>
#include <vector>

#include "cli/program_outline.h"

namespace tradebill {

struct ManualEdition {
    std::string version;  ///< "1.2.3"
    std::string date;     ///< "2024-01-31"
};

struct ManualPage {
    std::string name;  ///< "tradebill-template-check", in section 1
    std::string text;
};

/// That of the program first, then the commands' in their order.
[[nodiscard]] std::vector<ManualPage> ManualPages(const ProgramOutline& program, const ManualEdition& edition);

}  // namespace tradebill
