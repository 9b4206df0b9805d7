#include "cli/reset_command.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>

#include "cli/command_table.h"
#include "cli/usage_error.h"
#include "cli/watched_run.h"
#include "page/page_sections.h"
#include "platform/paths.h"

namespace tradebill {
namespace {

struct ResetCommand {
    std::string page;
    bool isFinished = false;
};

int RunResetCommand(const ResetCommand& command) {
    if (command.page.size() > kLongestPath) {
        throw CUsageError("expected a path of at most " + std::to_string(kLongestPath) + " bytes, found \"" +
                          command.page + "\"");
    }
    const auto failure = WritePlaceholderPage(command.page, command.isFinished);
    if (!failure) return kExitDone;
    return Fail("can't write the page " + command.page + (failure->empty() ? "" : ": " + *failure));
}

}  // namespace

CommandRun DeclareReset(CLI::App& app) {
    const auto command = std::make_shared<ResetCommand>();
    app.add_option("PAGE", command->page, "The page's file")->required()->type_name("");
    app.add_flag("--finished", command->isFinished, "Say that the report can be asked for");
    return [command] { return RunResetCommand(*command); };
}

}  // namespace tradebill
