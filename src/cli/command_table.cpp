#include "cli/command_table.h"

#include <algorithm>
#include <iterator>
#include <span>

#include "cli/anonymise_command.h"
#include "cli/batch_command.h"
#include "cli/batch_merge_command.h"
#include "cli/batch_worker.h"
#include "cli/chart_command.h"
#include "cli/check_command.h"
#include "cli/diff_command.h"
#include "cli/explain_command.h"
#include "cli/explore_command.h"
#include "cli/export_command.h"
#include "cli/gallery_command.h"
#include "cli/import_command.h"
#include "cli/layouts_command.h"
#include "cli/report_command.h"
#include "cli/reset_command.h"
#include "cli/template_command.h"

namespace tradebill {
namespace {

// clang-format off
constexpr CommandGroup kGroups[] = {
    {"template", "Work on statement templates"},
};

constexpr Command kCommands[] = {
    {"",         "import",    "Bring statements of any name and encoding to their places",     DeclareImport},
    {"",         "report",    "Read the statements of a range of days and write the page",     DeclareReport},
    {"",         "check",     "Find what is wrong in the statements of a range of days",       DeclareCheck},
    {"",         "diff",      "Tell what differs between the JSON of two runs",                DeclareDiff},
    {"",         "export",    "Write what a report reads and works out as tables",             DeclareExport},
    {"",         "explore",   "Write one page on which a browser shows and sorts all of it",   DeclareExplore},
    {"",         "batch",     "Make the reports of many accounts, beside each other",          DeclareBatch},
    {"",         "batch-merge", "Join what the tasks of a batch have left",                     DeclareBatchMerge},
    {"",         "chart",     "Paint one chart of an account at any size",                     DeclareChart},
    {"",         "reset",     "Write the page that stands for a report until it is there",     DeclareReset},
    {"",         "explain",   "Show what the readers see in one statement",                    DeclareExplain},
    {"",         "layouts",   "List the statement layouts that can be read",                   DeclareLayouts},
    {"template", "check",     "Find what a template says in vain",                             DeclareTemplateCheck},
    {"",         "anonymise", "Copy statements for others to look at, without whose they are", DeclareAnonymise},
    {"",         "gallery",   "Paint every kind of chart, with a page that shows them",        DeclareGallery},
    {"",         kWorkerCommand, "Answer the questions of a batch", DeclareBatchWorker},
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
