// The program `tradebill`: it checks everything first, says clearly what is wrong, and runs the module as a host would.
#include <CLI/CLI.hpp>

#include <exception>
#include <iostream>
#include <string>

#include "cli/report_command.h"
#include "cli/usage_error.h"

namespace tradebill {
namespace {

int Run(int argc, char** argv) {
    CLI::App app("Makes a report page from the daily settlement statements of a futures account.", "tradebill");
    app.set_version_flag("--version", std::string(TRADEBILL_VERSION));
    app.require_subcommand(1);

    ReportCommand report;
    CLI::App* const command = app.add_subcommand("report", "Read the statements of a range of days and write the page");
    DeclareReportOptions(*command, report.options);
    command->add_option("--json", report.jsonFile, "Write everything that was read and worked out as JSON")
        ->type_name("FILE");
    command->add_flag("--quiet", report.quiet, "No progress line and no summary");

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) return app.exit(error);  // --help and --version
        throw CUsageError(std::string(error.what()) + " (tradebill report --help lists what is expected)");
    }
    return RunReportCommand(report);
}

}  // namespace
}  // namespace tradebill

int main(int argc, char** argv) {
    try {
        return tradebill::Run(argc, argv);
    } catch (const tradebill::CUsageError& error) {
        std::cerr << "tradebill: " << error.what() << "\n";
        return tradebill::kExitUsage;
    } catch (const std::exception& error) {
        std::cerr << "tradebill: " << error.what() << "\n";
        return tradebill::kExitFailed;
    }
}
