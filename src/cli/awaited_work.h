// Work that somebody waits for: how far it is, and the wish that it ends.
#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "driver/report_run.h"
#include "platform/stop_signal.h"

namespace tradebill {

/// Thrown where work ends because somebody asked for it; says in words what there isn't because of that.
class CStoppedWork : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Watches a command's work from its beginning to its end; one at a time. On a terminal one line of standard error
/// shows what is being done, redrawn some twenty times a second at most. Elsewhere there are plain lines, of work that
/// takes long, one for each stage and for each five seconds of it. The system's first wish to stop is heeded at the
/// next point where the work asks for it; the second one ends the program at once.
class CAwaitedWork final : public CRunWatcher {
public:
    using Duration = std::chrono::steady_clock::duration;

    /// `quiet`: nothing is shown. `longWork`: how long it takes until there are plain lines.
    explicit CAwaitedWork(bool quiet, Duration longWork = std::chrono::seconds(3));
    ~CAwaitedWork() override;
    CAwaitedWork(const CAwaitedWork&) = delete;
    CAwaitedWork& operator=(const CAwaitedWork&) = delete;

    void OnDay(int day, int days, std::string_view dayText) override;
    void OnStage(std::string_view stage) override;
    [[nodiscard]] bool WantsStop() const override { return signal_ && signal_->IsAsked(); }

    [[nodiscard]] bool IsQuiet() const { return isQuiet_; }

    /// Begins `step` of `steps`, counted from 1, unless it is to stop: throws CStoppedWork then, which says how many
    /// are done. `what`: "files".
    void BeginStep(std::string_view what, std::size_t step, std::size_t steps);

    /// Begins to write `file`, unless it is to stop: throws CStoppedWork then, which says that it isn't written.
    void BeginFile(const std::string& file);

    /// Takes the line away, before anything else is told.
    void Rest();

private:
    using Clock = std::chrono::steady_clock;

    [[nodiscard]] bool IsDue(bool isNew);
    void Show(const std::string& text, bool isNew);

    const bool isQuiet_;
    const bool isTerminal_;
    const Duration longWork_;
    const Clock::time_point begun_;
    Clock::time_point shown_;
    bool isLineThere_ = false;
    std::optional<CStopSignal> signal_;  ///< nothing where there are no means to hear it
};

}  // namespace tradebill
