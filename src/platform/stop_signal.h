// The system's wish that the program ends: a terminal's interrupt, a service's stop, the end of a session.
#pragma once

#include <functional>
#include <memory>

namespace tradebill {

/// Hears the wish, of which there may be one object at a time.
class CStopSignal {
public:
    /// Has `onStop` called once, on a thread of its own, when the system first asks. When it asks again the program
    /// ends at once with `exitAtOnce`.
    CStopSignal(std::function<void()> onStop, int exitAtOnce);
    ~CStopSignal();
    CStopSignal(const CStopSignal&) = delete;
    CStopSignal& operator=(const CStopSignal&) = delete;

    /// Whether the system has asked: known before that thread has had its turn.
    [[nodiscard]] bool IsAsked() const;

private:
    struct State;
    std::unique_ptr<State> state_;
};

/// Has this process pass over the wish, for good: another one, which hears it too, ends it.
void IgnoreStopSignals();

}  // namespace tradebill
