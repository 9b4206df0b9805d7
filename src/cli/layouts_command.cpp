#include "cli/layouts_command.h"

#include <iomanip>
#include <iostream>
#include <string>
#include <string_view>

#include "cli/command_table.h"
#include "cli/usage_error.h"
#include "platform/text_encoding.h"
#include "readers/layout_table.h"
#include "report/account_key.h"

namespace tradebill {
namespace {

struct LayoutLine {
    std::string format;
    std::string kind;
    std::string sample;
    std::string premium;
    std::string mark;
};

/// The mark stands last: its width on a terminal isn't that of its bytes.
void Print(const LayoutLine& line) {
    std::cout << std::left << std::setw(8) << line.format << std::setw(10) << line.kind << std::setw(22) << line.sample
              << std::setw(9) << line.premium << line.mark << "\n";
}

std::string_view PremiumText(PremiumRule rule) {
    switch (rule) {
        case PremiumRule::Any:
            return "any";
        case PremiumRule::Without:
            return "without";
        case PremiumRule::With:
            return "with";
    }
    return {};
}

}  // namespace

void PrintLayouts() {
    Print({"format", "kind", "layout and sample", "options", "mark in the text"});
    for (const Layout& layout : Layouts()) {
        Print({layout.isForeign ? "-" : std::to_string(layout.format), std::string(KindName(layout.isForeign)),
               std::string(layout.name), std::string(PremiumText(layout.premium)), GbkToUtf8(layout.marks.mark)});
    }
    Print({"any", "domestic", "template-pairs", "any", "whatever the template names (money as labels and values)"});
    Print({"any", "domestic", "template-row", "any", "whatever the template names (money in one row)"});
    std::cout << "\nOf two layouts of one format the one \"with\" options reads statements that speak of \""
              << GbkToUtf8(PremiumWord())
              << "\" anywhere.\nbilingual-new follows bilingual from the change date of the request's template on.\n";
}

CommandRun DeclareLayouts(CLI::App& /*app*/) {
    return [] {
        PrintLayouts();
        return kExitDone;
    };
}

}  // namespace tradebill
