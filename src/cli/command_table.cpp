#include "cli/command_table.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <string_view>

#include "cli/anonymise_command.h"
#include "cli/batch_command.h"
#include "cli/batch_merge_command.h"
#include "cli/batch_worker.h"
#include "cli/chart_command.h"
#include "cli/check_command.h"
#include "cli/completion_command.h"
#include "cli/diff_command.h"
#include "cli/explain_command.h"
#include "cli/explore_command.h"
#include "cli/export_command.h"
#include "cli/gallery_command.h"
#include "cli/import_command.h"
#include "cli/layouts_command.h"
#include "cli/manual_command.h"
#include "cli/report_command.h"
#include "cli/reset_command.h"
#include "cli/template_command.h"

namespace tradebill {
namespace {

// clang-format off
constexpr CommandGroup kGroups[] = {
    {"template", "Work on statement templates"},
};

constexpr std::string_view kUsualExits = "0 done; 1 something is missing, and named; 2 wrong use, nothing was done";
constexpr std::string_view kExitsWithFindings =
    "0 done; 1 something is missing, and named; 2 wrong use, nothing was done; 3 something in the statements is wrong";

constexpr Command kCommands[] = {
    {"", "import", "Bring statements of any name and encoding to their places", DeclareImport,
     "import statements/ --root settlement --user me",
     "0 every file is there; 1 a target can't be written; 2 wrong use, nothing was written; 3 a file is refused", "docs/import.md"},
    {"", "report", "Read the statements of a range of days and write the page", DeclareReport,
     "report --root settlement --account 90010002 --from 2024-01-02 --to 2024-01-31",
     "0 everything is there; 1 something is missing, and named; 2 wrong use, nothing was done; 3 with --strict: findings", "docs/guide.md"},
    {"", "check", "Find what is wrong in the statements of a range of days", DeclareCheck,
     "check --root settlement --account 90010002",
     "0 nothing but notes; 1 something can't be read; 2 wrong use; 3 an error or a warning was found", "docs/findings.md"},
    {"", "diff", "Tell what differs between the JSON of two runs", DeclareDiff,
     "diff before.json after.json",
     "0 nothing differs; 1 a file can't be read; 2 wrong use, or no JSON of a report; 3 something differs", "docs/json.md"},
    {"", "export", "Write what a report reads and works out as tables", DeclareExport,
     "export --root settlement --csv tables", kUsualExits, "docs/export.md"},
    {"", "explore", "Write one page on which a browser shows and sorts all of it", DeclareExplore,
     "explore --root settlement --all-accounts -o explore.html", kUsualExits, "docs/explore.md"},
    {"", "batch", "Make the reports of many accounts, beside each other", DeclareBatch,
     "batch --root settlement --discover --out reports",
     "0 all well; 1 accounts failed; 2 wrong use; 3 findings; 75 stopped, worth another try with --resume", "docs/batch.md"},
    {"", "batch-merge", "Join what the tasks of a batch have left", DeclareBatchMerge,
     "batch-merge --out reports", "0 all well; 1 accounts failed; 2 wrong use; 3 findings; 75 tasks are missing", "docs/batch.md"},
    {"", "chart", "Paint one chart of an account at any size", DeclareChart,
     "chart equity --root settlement --size 1600x900 -o equity.png", kUsualExits, "docs/charts.md"},
    {"", "reset", "Write the page that stands for a report until it is there", DeclareReset,
     "reset settlement/Users/me/Data/Bill/Image/TradeBill.html", kUsualExits, "docs/embedding.md"},
    {"", "explain", "Show what the readers see in one statement", DeclareExplain,
     "explain D90010002.20240102o.txt",
     "0 money and a section were found; 1 some of it was read; 2 wrong use; 3 nothing was recognised", "docs/templates.md"},
    {"", "layouts", "List the statement layouts that can be read", DeclareLayouts,
     "layouts D90010002.20240102o.txt", kUsualExits, "docs/templates.md"},
    {"template", "check", "Find what a template says in vain", DeclareTemplateCheck,
     "template check broker.ini --against D90010002.20240102o.txt", kExitsWithFindings, "docs/templates.md"},
    {"", "anonymise", "Copy statements for others to look at, without whose they are", DeclareAnonymise,
     "anonymise settlement --out copy", kUsualExits, "docs/anonymise.md"},
    {"", "gallery", "Paint every kind of chart, with a page that shows them", DeclareGallery,
     "gallery --out gallery", kUsualExits, "docs/charts.md"},
    {"", "completion", "Print what makes a shell complete command lines", DeclareCompletion,
     "completion bash", "0 done; 2 wrong use", "docs/guide.md", kCompletionNotes},
    {"", kCompleteCommand, "Answer a shell that completes a command line", DeclareComplete},
    {"", kManualCommand, "Write the manual pages", DeclareManual},
    {"", kWorkerCommand, "Answer the questions of a batch", DeclareBatchWorker},
};
// clang-format on

static_assert(std::ranges::all_of(kCommands, [](const Command& command) {
    const auto* const group = std::ranges::find(kGroups, command.group, &CommandGroup::name);
    return command.group.empty() || group != std::end(kGroups);
}));

}  // namespace

std::span<const Command> Commands() {
    return kCommands;
}

std::span<const CommandGroup> CommandGroups() {
    return kGroups;
}

}  // namespace tradebill
