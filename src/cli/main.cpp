// The program `tradebill`: it checks everything first, says clearly what is wrong, and runs the module as a host would.
// command_table.h lists what it can do.

#include <CLI/CLI.hpp>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <new>
#include <string>
#include <string_view>
#include <vector>

#include "base/shortage.h"
#include "cli/command_table.h"
#include "cli/shown_text.h"
#include "platform/last_words.h"
#include "platform/local_time.h"
#include "platform/standard_streams.h"
#include "platform/terminal.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

/// Where an exception can't go on, as before main begins.
[[noreturn]] void TellShortageAndEnd() {
    try {
        if (std::current_exception() != nullptr) throw;
    } catch (const std::bad_alloc&) {
        EndWithWords("tradebill: out of memory\n", kExitFailed);
    } catch (...) {
        std::abort();
    }
    std::abort();
}

/// Whether memory was asked for in vain. Streams in memory lose a text then and go on.
std::atomic<bool> RanShort;

void NoteShortage() {
    RanShort.store(true);
    throw std::bad_alloc();
}

struct EarlyStart {
    EarlyStart() {
        std::set_terminate(TellShortageAndEnd);
        std::set_new_handler(NoteShortage);
    }
};
/// Made before the static objects of libraries, which ask for memory.
[[gnu::init_priority(101)]] const EarlyStart kEarlyStart;

/// A command as the command line knows it.
struct DeclaredCommand {
    CLI::App* app;
    CommandRun run;
};

/// The app of a group, which is made with the first command that belongs to it.
CLI::App& GroupIn(CLI::App& app, std::string_view name) {
    if (name.empty()) return app;
    for (CLI::App* const made : app.get_subcommands({})) {
        if (made->get_name() == name) return *made;
    }
    const CommandGroup& group = *std::ranges::find(CommandGroups(), name, &CommandGroup::name);
    CLI::App* const made = app.add_subcommand(std::string(name), std::string(group.help));
    made->require_subcommand(1);
    return *made;
}

std::vector<DeclaredCommand> DeclareAll(CLI::App& app) {
    app.set_version_flag("--version", std::string(TRADEBILL_VERSION));
    app.allow_windows_style_options(false);  // "/folder" is a path on both systems
    app.require_subcommand(1);
    std::vector<DeclaredCommand> declared;
    for (const Command& command : Commands()) {
        CLI::App* const own =
            GroupIn(app, command.group).add_subcommand(std::string(command.name), std::string(command.help));
        declared.push_back({own, command.declare(*own)});
    }
    return declared;
}

/// "tradebill report" for the command at hand, as far as the command line got.
std::string HelpCommand(const CLI::App& app) {
    std::string name = app.get_name();
    for (const CLI::App* const command : app.get_subcommands()) name += " " + HelpCommand(*command);
    return name;
}

int Run(int argc, char** argv) {
    CLI::App app("Makes a report page from the daily settlement statements of a futures account.", "tradebill");
    const std::vector<DeclaredCommand> commands = DeclareAll(app);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) return app.exit(error);  // --help and --version
        throw CUsageError(std::string(error.what()) + " (" + HelpCommand(app) + " --help lists what is expected)");
    }
    const auto isAtHand = [](const DeclaredCommand& command) { return command.app->parsed(); };
    return std::ranges::find_if(commands, isAtHand)->run();  // one of them is required
}

int RunAndTell(int argc, char** argv) {
    try {
        return Run(argc, argv);
    } catch (const CUsageError& error) {
        std::cerr << "tradebill: " << ShownText(error.what()) << "\n";
        return kExitUsage;
    } catch (const std::bad_alloc& shortage) {
        std::cerr << "tradebill: " << ShortageText(shortage) << "\n";
        return kExitFailed;
    } catch (const std::exception& error) {
        std::cerr << "tradebill: " << ShownText(error.what()) << "\n";
        return kExitFailed;
    }
}

/// Whether all that was printed got out. A reader who has left, as `head` does, has seen what it wanted: there is
/// nothing to say then.
bool IsAllPrinted() {
    std::cout.flush();
    const bool isFlushed = std::cout.good() && std::ferror(stdout) == 0;
    const bool mayComplain = isFlushed || !HasReaderLeft();
    if (isFlushed && CloseStandardOutput()) return true;
    if (mayComplain) std::cerr << "tradebill: can't write to standard output\n";
    return false;
}

/// Nothing that was done while memory was short is told to be whole.
int WithShortage(int exit) {
    if (exit != kExitDone || !RanShort.load()) return exit;
    std::cerr << "tradebill: out of memory: something may be missing\n";
    return kExitFailed;
}

}  // namespace
}  // namespace tradebill

int main(int argc, char** argv) {
    tradebill::HoldStandardStreams();
    const tradebill::CUtf8Terminal terminal;
    const tradebill::CShownStreams streams;
    tradebill::KeepTimeZone();
    const int exit = tradebill::RunAndTell(argc, argv);
    return tradebill::IsAllPrinted() ? tradebill::WithShortage(exit) : tradebill::kExitFailed;
}
