#include "cli/wait_option.h"

#include <CLI/CLI.hpp>

namespace tradebill {

void AddWaitOption(CLI::App& app, int& wait) {
    constexpr int kLongest = 24 * 60 * 60;
    app.add_option("--wait", wait, "How long to wait for another program that writes to the same place")
        ->type_name("SECONDS")
        ->check(CLI::Range(0, kLongest))
        ->capture_default_str();
}

}  // namespace tradebill
