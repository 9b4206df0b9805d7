// What passes between a run and its host: the final message and the stop handshake. Null handles are allowed
// everywhere.
#pragma once

#include <cstdint>

#include "driver/report_request.h"

namespace tradebill {

/// Sends a message with lParam 0 and returns once the host has handled it.
void SendHostMessage(HostWindowHandle window, std::uint32_t message, std::uint64_t wParam);

/// Waits for `event` up to `milliseconds`, 0 for a look that costs next to nothing; whether it was signalled. An
/// auto-reset event is reset by it. False for a null event, at once.
[[nodiscard]] bool WaitForEvent(HostEventHandle event, int milliseconds);

void SignalEvent(HostEventHandle event);

/// What a failed GenerateBill ends with: a structured exception of that code on Windows, a CReportError on Linux.
/// REQUIRES: nothing of the caller's needs an orderly end, since not every host unwinds the stack.
[[noreturn]] void RaiseInHost(std::uint32_t code);

/// Looks at the request's stop event, without waiting: a page looks before each of its rows. If the stop is asked for,
/// `beforeAnswer` runs (what must be true before the host hears of it), the answer is given, and the result is true.
template <class Action>
[[nodiscard]] bool AcknowledgeStop(HostEventHandle stop, HostEventHandle acknowledge, Action beforeAnswer) {
    if (stop == nullptr || !WaitForEvent(stop, 0)) return false;
    beforeAnswer();
    SignalEvent(acknowledge);
    return true;
}

}  // namespace tradebill
