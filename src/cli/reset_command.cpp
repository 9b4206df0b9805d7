#include "cli/reset_command.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <optional>
#include <string>

#include "cli/command_table.h"
#include "cli/voice.h"
#include "cli/wait_option.h"
#include "driver/place_guard.h"
#include "driver/reset_page.h"
#include "platform/paths.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

struct ResetCommand {
    std::string page;
    int wait = kUsualWait;
    bool isFinished = false;
};

/// Nothing if the page is there; otherwise why it isn't.
std::optional<std::string> ResetUnlessTaken(const ResetCommand& command) {
    CPlaceGuard guard(FolderOf(command.page), command.wait);
    if (!guard.Holder().empty()) return guard.Holder() + " is writing there (--wait SECONDS waits longer)";
    if (!guard.IsHeld()) return guard.Reason();
    auto failure = ResetPage(command.page, command.isFinished);
    if (failure || guard.Release()) return failure;
    return "it is written, but " + guard.Path() + " can't be removed";
}

int RunResetCommand(const ResetCommand& command) {
    if (command.page.size() > kLongestPath) {
        throw CUsageError("expected a path of at most " + std::to_string(kLongestPath) + " bytes, found \"" +
                          command.page + "\"");
    }
    const auto failure = ResetUnlessTaken(command);
    if (!failure) return kExitDone;
    return Fail("can't write the page " + command.page + (failure->empty() ? "" : ": " + *failure));
}

}  // namespace

CommandRun DeclareReset(CLI::App& app) {
    const auto command = std::make_shared<ResetCommand>();
    app.add_option("PAGE", command->page, "The page's file")->required()->type_name("");
    AddWaitOption(app, command->wait);
    app.add_flag("--finished", command->isFinished, "Say that the report can be asked for");
    return [command] { return RunResetCommand(*command); };
}

}  // namespace tradebill
