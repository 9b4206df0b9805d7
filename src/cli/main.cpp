// The program `tradebill`: it checks everything first, says clearly what is wrong, and runs the module as a host would.
#include <CLI/CLI.hpp>

#include <exception>
#include <iostream>
#include <string>

#include "cli/chart_command.h"
#include "cli/explain_command.h"
#include "cli/gallery_command.h"
#include "cli/layouts_command.h"
#include "cli/report_command.h"
#include "cli/template_check.h"
#include "cli/usage_error.h"
#include "cli/watched_run.h"
#include "page/page_sections.h"
#include "platform/terminal.h"

namespace tradebill {
namespace {

/// What the command line says, whichever command it names.
struct Arguments {
    ReportCommand report;
    ChartCommand chart;
    ExplainCommand explain;
    std::string placeholderPage;
    bool isFinished = false;
    std::string templateFile;
    std::string galleryFolder;
};

/// The commands; the one that the command line names is the parsed one.
struct Commands {
    CLI::App* report;
    CLI::App* chart;
    CLI::App* reset;
    CLI::App* explain;
    CLI::App* layouts;
    CLI::App* templateCheck;
    CLI::App* gallery;
};

Commands Declare(CLI::App& app, Arguments& arguments) {
    app.set_version_flag("--version", std::string(TRADEBILL_VERSION));
    app.allow_windows_style_options(false);  // "/folder" is a path on both systems
    app.require_subcommand(1);
    Commands commands{};
    commands.report = app.add_subcommand("report", "Read the statements of a range of days and write the page");
    DeclareReportOptions(*commands.report, arguments.report.options);
    commands.report
        ->add_option("--json", arguments.report.jsonFile, "Write everything that was read and worked out as JSON")
        ->type_name("FILE");
    commands.report
        ->add_option("--standalone", arguments.report.standaloneFile, "Write the page and its pictures as one file too")
        ->type_name("FILE");
    commands.report->add_flag("--open", arguments.report.opensPage, "Show the page on the desktop");
    commands.report->add_flag("--quiet", arguments.report.quiet, "No progress line and no summary");

    commands.chart = app.add_subcommand("chart", "Paint one chart of an account at any size");
    DeclareReportOptions(*commands.chart, arguments.chart.options);
    commands.chart->add_option("CHART", arguments.chart.chart, "equity, realised, account-yield or trading-yield")
        ->required()
        ->type_name("");
    commands.chart->add_option("--size", arguments.chart.size, "Painting area; that of the report's chart if not given")
        ->type_name("WxH");
    commands.chart->add_option("--rect", arguments.chart.rect, "The chart's rectangle in it; all of it if not given")
        ->type_name("L,T,R,B");
    commands.chart->add_option("-o,--output", arguments.chart.outputFile, "The picture, a PNG file")
        ->required()
        ->type_name("FILE");

    commands.reset = app.add_subcommand("reset", "Write the page that stands for a report until it is there");
    commands.reset->add_option("PAGE", arguments.placeholderPage, "The page's file")->required()->type_name("");
    commands.reset->add_flag("--finished", arguments.isFinished, "Say that the report can be asked for");

    commands.explain = app.add_subcommand("explain", "Show what the readers see in one statement");
    DeclareExplainOptions(*commands.explain, arguments.explain);

    commands.layouts = app.add_subcommand("layouts", "List the statement layouts that can be read");

    CLI::App* const templates = app.add_subcommand("template", "Work on statement templates");
    templates->require_subcommand(1);
    commands.templateCheck = templates->add_subcommand("check", "Find what a template says in vain");
    commands.templateCheck->add_option("FILE", arguments.templateFile, "The template")->required()->type_name("");

    commands.gallery = app.add_subcommand("gallery", "Paint every kind of chart, with a page that shows them");
    commands.gallery->add_option("DIR", arguments.galleryFolder, "Where to")->required()->type_name("");
    return commands;
}

/// "tradebill report" for the command at hand, as far as the command line got.
std::string HelpCommand(const CLI::App& app) {
    std::string name = app.get_name();
    for (const CLI::App* const command : app.get_subcommands()) name += " " + HelpCommand(*command);
    return name;
}

int ResetPage(const std::string& path, bool isFinished) {
    constexpr std::size_t kLongestPath = 259;  // a longer one would be cut to another file's name
    if (path.size() > kLongestPath) throw CUsageError("expected a path of at most 259 bytes, found \"" + path + "\"");
    return WritePlaceholderPage(path, isFinished) ? kExitDone : Fail("can't write the page " + path);
}

int Run(int argc, char** argv) {
    CLI::App app("Makes a report page from the daily settlement statements of a futures account.", "tradebill");
    Arguments arguments;
    const Commands commands = Declare(app, arguments);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) return app.exit(error);  // --help and --version
        throw CUsageError(std::string(error.what()) + " (" + HelpCommand(app) + " --help lists what is expected)");
    }
    if (commands.explain->parsed()) return RunExplainCommand(arguments.explain);
    if (commands.templateCheck->parsed()) return RunTemplateCheck(arguments.templateFile);
    if (commands.report->parsed()) return RunReportCommand(arguments.report);
    if (commands.chart->parsed()) return RunChartCommand(arguments.chart);
    if (commands.reset->parsed()) return ResetPage(arguments.placeholderPage, arguments.isFinished);
    if (commands.gallery->parsed()) return RunGalleryCommand(arguments.galleryFolder);
    PrintLayouts();
    return kExitDone;
}

}  // namespace
}  // namespace tradebill

int main(int argc, char** argv) {
    const tradebill::CUtf8Terminal terminal;
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
