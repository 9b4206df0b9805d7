#include "cli/help_format.h"

#include <CLI/CLI.hpp>

#include <cstddef>
#include <string>
#include <string_view>

#include "base/text.h"
#include "cli/program_outline.h"
#include "cli/wrapped_text.h"

namespace tradebill {
namespace {

constexpr std::size_t kColumns = 100;
constexpr std::size_t kTextColumn = 28;

/// A row of a list: what it is of, and what that means.
std::string Row(const std::string& name, const std::string& text) {
    std::string row = "  " + name;
    const std::size_t used = ColumnsOf(row);
    const bool isBeside = used < kTextColumn;
    row += isBeside ? std::string(kTextColumn - used, ' ') : "\n" + std::string(kTextColumn, ' ');
    return row + WrappedText(text, kColumns, kTextColumn) + "\n";
}

}  // namespace

std::string CHelpFormat::make_description(const CLI::App* app) const {
    const std::string description = WrappedText(app->get_description(), kColumns, 0) + "\n\n";
    return call_.empty() ? description : description + "  tradebill " + call_ + "\n\n";
}

std::string CHelpFormat::make_footer(const CLI::App* app) const {
    constexpr std::size_t kIndent = 2;
    const std::string footer = app->get_footer();
    std::string wrapped;
    for (std::string_view rest = footer; !rest.empty();) {
        const std::string line = WrappedText(TakeLine(rest), kColumns - kIndent, 0);
        for (const char byte : line) wrapped += byte == '\n' ? "\n" + std::string(kIndent, ' ') : std::string(1, byte);
        wrapped += '\n';
    }
    return wrapped;
}

std::string CHelpFormat::make_subcommand(const CLI::App* command) const {
    return Row(command->get_name(), command->get_description());
}

std::string CHelpFormat::make_option(const CLI::Option* option, bool isPositional) const {
    return Row(make_option_name(option, isPositional) + make_option_opts(option), make_option_desc(option));
}

std::string CHelpFormat::make_option_opts(const CLI::Option* option) const {
    const OutlinedOption outlined = Outline(*option);
    std::string text;
    if (!outlined.value.empty()) text += " " + get_label(outlined.value);
    if (outlined.isRepeated) text += " ...";
    if (outlined.isRequired) text += " " + get_label("REQUIRED");
    return text;
}

std::string CHelpFormat::make_option_desc(const CLI::Option* option) const {
    const OutlinedOption outlined = Outline(*option);
    std::string limits = outlined.range;
    if (!outlined.defaultValue.empty()) {
        limits += (limits.empty() ? "" : "; ") + get_label("default") + ": " + outlined.defaultValue;
    }
    for (const std::string& needed : outlined.needed) {
        limits += (limits.empty() ? "" : "; ") + get_label("Needs") + " " + needed;
    }
    return limits.empty() ? outlined.help : outlined.help + " (" + limits + ")";
}

}  // namespace tradebill
