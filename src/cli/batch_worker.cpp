#include "cli/batch_worker.h"

#include <CLI/CLI.hpp>

#include <atomic>
#include <iostream>
#include <memory>
#include <new>
#include <string>

#include "batch/account_work.h"
#include "cli/batch_account.h"
#include "cli/batch_making.h"
#include "cli/command_table.h"
#include "cli/export_places.h"
#include "platform/paths.h"
#include "platform/process.h"
#include "platform/stop_signal.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

/// Whether memory was asked for in vain: the account isn't whole then, whatever came of it, and the heap is as full as
/// it may be.
std::atomic<bool> IsShort;

void NoteShortage() {
    IsShort = true;
    throw std::bad_alloc();
}

}  // namespace

CommandRun DeclareBatchWorker(CLI::App& app) {
    const auto command = std::make_shared<BatchWorkerCommand>();
    app.group("");  // not in the help
    DeclareMaking(app, command->making);
    app.add_option("--out", command->making.outFolder)->required();
    app.add_option("--work", command->workFolder)->required();
    return [command] { return RunBatchWorker(*command); };
}

int RunBatchWorker(BatchWorkerCommand& command) {
    IgnoreStopSignals();  // its batch hears them
    std::set_new_handler(NoteShortage);
    if (command.making.sqliteFile) {
        command.making.databasePath = FindExportPlaces({}, command.making.sqliteFile).database->path;
    }
    const std::string work = command.workFolder + "/" + std::to_string(OwnProcessNumber());
    if (!MakeFolder(work)) throw CUsageError("--work: expected a folder, found \"" + command.workFolder + "\"");
    CBatchAccounts accounts(command.making, work);
    for (std::string line; std::getline(std::cin, line);) {
        const auto question = ParseQuestion(line);
        if (!question) throw CUsageError("expected a question, found \"" + line + "\"");
        std::string answer;
        try {
            answer = AnswerLine(accounts.Answer(*question));
        } catch (const std::bad_alloc&) {
            return kExitShortOfMemory;
        }
        if (IsShort) return kExitShortOfMemory;
        std::cout << answer << "\n" << std::flush;
    }
    RemoveFolder(work);
    return kExitDone;
}

}  // namespace tradebill
