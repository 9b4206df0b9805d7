// The program `tradebill`: it checks everything first, says clearly what is wrong, and runs the module as a host would.
// command_table.h lists what it can do, command_line.h finds what is asked.
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <new>
#include <string>

#include "base/shortage.h"
#include "cli/awaited_work.h"
#include "cli/command_line.h"
#include "cli/shown_text.h"
#include "cli/voice.h"
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

int RunAndTell(int argc, char** argv) {
    try {
        return RunCommandLine(argc, argv);
    } catch (const CUsageError& error) {
        Fail(error.what());
        return kExitUsage;
    } catch (const CStoppedWork& stopped) {
        Fail(std::string("stopped: ") + stopped.what());
        return kExitTryAgain;
    } catch (const std::bad_alloc& shortage) {
        return Fail(ShortageText(shortage));
    } catch (const std::exception& error) {
        return Fail(error.what());
    }
}

/// Whether all that was printed got out. A reader who has left, as `head` does, has seen what it wanted: there is
/// nothing to say then.
bool IsAllPrinted() {
    std::cout.flush();
    const bool isFlushed = std::cout.good() && std::ferror(stdout) == 0;
    const bool mayComplain = isFlushed || !HasReaderLeft();
    if (isFlushed && CloseStandardOutput()) return true;
    if (mayComplain) Fail("can't write to standard output");
    return false;
}

/// Nothing that was done while memory was short is told to be whole.
int WithShortage(int exit) {
    if (exit != kExitDone || !RanShort.load()) return exit;
    return Fail("out of memory: something may be missing");
}

}  // namespace
}  // namespace tradebill

int main(int argc, char** argv) {
    tradebill::HoldStandardStreams();
    const tradebill::CUtf8Terminal terminal;
    tradebill::CShownStreams streams;
    streams.UseColours(tradebill::WantsColours() && !tradebill::DeclinesColours(argc, argv));
    tradebill::KeepTimeZone();
    const int exit = tradebill::RunAndTell(argc, argv);
    return tradebill::IsAllPrinted() ? tradebill::WithShortage(exit) : tradebill::kExitFailed;
}
