#include "platform/stop_signal.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstddef>
#include <functional>
#include <iterator>
#include <memory>
#include <system_error>
#include <thread>
#include <utility>

#include "platform/linux/uninterrupted.h"

namespace tradebill {
namespace {

constexpr int kStopSignals[] = {SIGTERM, SIGINT, SIGHUP};

// What a signal's handler may touch.
std::atomic<int> HandlersPipe = -1;
std::atomic<int> ExitAtOnce = 0;
std::atomic<bool> HasAsked = false;

constexpr char kAsked = 'a';

void HandleStop(int /*signal*/) {
    const int error = errno;
    if (HasAsked.exchange(true)) ::_exit(ExitAtOnce.load());
    [[maybe_unused]] const ssize_t written = ::write(HandlersPipe.load(), &kAsked, 1);
    errno = error;
}

}  // namespace

struct CStopSignal::State {
    int ends[2] = {-1, -1};
    struct sigaction before[std::size(kStopSignals)] = {};
    std::thread thread;
};

CStopSignal::CStopSignal(std::function<void()> onStop, int exitAtOnce) : state_(std::make_unique<State>()) {
    if (::pipe2(state_->ends, O_CLOEXEC) != 0) throw std::system_error(errno, std::generic_category());
    HasAsked = false;
    ExitAtOnce = exitAtOnce;
    HandlersPipe = state_->ends[1];
    state_->thread = std::thread([end = state_->ends[0], onStop = std::move(onStop)] {
        char word = 0;
        if (Uninterrupted([&] { return ::read(end, &word, 1); }) == 1) onStop();
    });
    struct sigaction action = {};
    action.sa_handler = HandleStop;
    action.sa_flags = SA_RESTART;
    ::sigemptyset(&action.sa_mask);
    for (std::size_t i = 0; i < std::size(kStopSignals); ++i) {
        ::sigaction(kStopSignals[i], nullptr, &state_->before[i]);
        // What whoever started this has it ignore, as nohup does with the end of a session, isn't a wish to stop.
        if (state_->before[i].sa_handler != SIG_IGN) ::sigaction(kStopSignals[i], &action, nullptr);
    }
}

CStopSignal::~CStopSignal() {
    for (std::size_t i = 0; i < std::size(kStopSignals); ++i) {
        ::sigaction(kStopSignals[i], &state_->before[i], nullptr);
    }
    HandlersPipe = -1;
    ::close(state_->ends[1]);  // the reader meets the end; a word to it could fail
    state_->thread.join();
    ::close(state_->ends[0]);
}

bool CStopSignal::IsAsked() const {
    return HasAsked.load();
}

void IgnoreStopSignals() {
    for (const int signal : kStopSignals) ::signal(signal, SIG_IGN);
}

}  // namespace tradebill
