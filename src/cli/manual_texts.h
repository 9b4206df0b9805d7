// What the manual says of the program as a whole, beside what its tables say of commands and options.
#pragma once

#include <string_view>

namespace tradebill {

struct ManualEntry {
    std::string_view name;
    std::string_view text;
};

inline constexpr std::string_view kManualPurpose =
    "reports of futures trading accounts from their settlement statements";

/// A paragraph a line.
inline constexpr std::string_view kManualDescription =
    "tradebill makes a report page, with charts and tables, from the daily settlement statements of a futures account. "
    "It also checks what the statements say, writes all of it as tables or JSON, shows it in a browser, and does so "
    "for many accounts at once.\n"
    "Each command has a page of its own. What is wrong or missing is told, and an exit code of 0 stands for a result "
    "that is whole.";

// clang-format off
inline constexpr ManualEntry kManualFiles[] = {
    {"ROOT/Users/NAME/Data/Bill", "The statements of a user below the root folder, a file a day, as tradebill import puts them there."},
    {"ROOT/Users/NAME/Data/Bill/Image/TradeBill.html", "The page of a report, with its pictures beside it."},
    {"ROOT/sys/chain.ini", "Which products are of one chain, for --margin-offset."},
    {"ROOT/BillTemplate/NAME.ini", "Statement templates, for --template NAME."},
    {"~/.config/tradebill/config.ini", "What is typed every day: a section [OPTIONS] with root, user, units, products and max_statement."},
};

inline constexpr ManualEntry kManualEnvironment[] = {
    {"NO_COLOR", "If it isn't empty, there are no colours on a terminal, as with --no-color."},
    {"XDG_CONFIG_HOME", "The folder of tradebill/config.ini, in place of ~/.config."},
    {"TZ", "The time zone of the day that counts as today."},
    {"SLURM_ARRAY_TASK_ID, JOB_COMPLETION_INDEX", "Which of its tasks an engine runs, for tradebill batch --shard auto."},
};

inline constexpr ManualEntry kManualExits[] = {
    {"0", "Everything that was asked for is there."},
    {"1", "Something is missing, and named."},
    {"2", "Wrong use: nothing was done."},
    {"3", "Something in the statements is wrong, or differs, where the command looks for that."},
    {"75", "It was stopped, or has others to wait for: the same call is worth another try."},
};
// clang-format on

}  // namespace tradebill
