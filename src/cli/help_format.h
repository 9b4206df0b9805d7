// How the help of the program and its commands looks.
#pragma once

#include <CLI/CLI.hpp>

#include <string>
#include <string_view>

namespace tradebill {

/// Lines that fit a terminal, led by a call.
class CHelpFormat final : public CLI::Formatter {
public:
    /// `call`: an example, behind the program's name; empty: there is none.
    explicit CHelpFormat(std::string_view call = {}) : call_(call) {}

    [[nodiscard]] std::string make_description(const CLI::App* app) const override;
    [[nodiscard]] std::string make_footer(const CLI::App* app) const override;
    [[nodiscard]] std::string make_subcommand(const CLI::App* command) const override;
    [[nodiscard]] std::string make_option(const CLI::Option* option, bool isPositional) const override;
    [[nodiscard]] std::string make_option_opts(const CLI::Option* option) const override;
    [[nodiscard]] std::string make_option_desc(const CLI::Option* option) const override;

private:
    std::string call_;
};

}  // namespace tradebill
