// The option of all commands that write a page: how long they wait for another program that writes it too.
#pragma once

namespace CLI {
class App;
}

namespace tradebill {

inline constexpr int kUsualWait = 10;  // seconds

/// Adds --wait SECONDS. `wait` outlives `app`.
void AddWaitOption(CLI::App& app, int& wait);

}  // namespace tradebill
