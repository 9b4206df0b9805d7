#include "cli/report_arguments.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "report/statement_format.h"
#include "requests/configuration.h"
#include "requests/report_options.h"

namespace tradebill {
namespace {

void DeclareAccount(CLI::App& command, ReportOptions& options, std::vector<std::string>* accounts) {
    constexpr const char* kOption = "--account";
    const std::string meaning = "Account number, as in the statements' file names (default: the only one)";
    if (accounts == nullptr) {
        command.add_option(kOption, options.account, meaning)->type_name("NO");
    } else {
        command.add_option(kOption, *accounts, meaning + "; several times for several, which are added up")
            ->type_name("NO")
            ->allow_extra_args(false);
    }
}

}  // namespace

void DeclareReportOptions(CLI::App& command, ReportOptions& options, std::vector<std::string>* accounts) {
    command.add_option("--root", options.root, "Root folder: holds Users, sys and BillTemplate")->type_name("DIR");
    command.add_option("--user", options.user, "Folder of the user below Users (default: the only one)")
        ->type_name("NAME");
    DeclareAccount(command, options, accounts);
    command
        .add_option("--from", options.from,
                    "First day, as 2024-01-31 or 20240131, or today (default: of the first statement)")
        ->type_name("DATE");
    command.add_option("--to", options.to, "Last day (default: of the last statement)")->type_name("DATE");
    command.add_option("--today", options.today, "The day that counts as today (default: by the clock)")
        ->type_name("DATE");
    command
        .add_option("--format", options.format,
                    "Layout of the broker's statements: " + FormatNumbers() + " or auto (default)")
        ->type_name("N");
    command.add_option("--kind", options.kind, "Statement family: domestic (default) or foreign")->type_name("KIND");
    command.add_option("--template", options.templateName, "Statement template below BillTemplate, without .ini")
        ->type_name("NAME");
    command.add_option("--dpi", options.dpi, "Screen resolution (default: 0, no scaling)")->type_name("N");
    command.add_flag_callback(
        "--margin-offset", [&options] { options.marginOffset = "1"; },
        "Net the margin of opposite positions in one chain (sys/chain.ini)");
    command
        .add_option("--request", options.requestFile,
                    "INI file with the settings above, - for standard input; options win over it")
        ->type_name("FILE");
    command
        .add_option(
            "--units", options.unitFile,
            "INI file of contract units: [UNITS], product=unit; \"none\": all are 1 (default: what the account's "
            "own trades tell, then a table of the Chinese futures)")
        ->type_name("FILE");
    command.add_option("--products", options.productFile, "INI file of product codes: [PRODUCTS], name=code")
        ->type_name("FILE");
    command.add_option("--live", options.liveFile, "INI file of today's live figures: [BASE], [CURRENCY1] ...")
        ->type_name("FILE");
    DeclareStatementLimit(command, options.maxStatement);
    DeclareConfiguration(command, options.configured);
}

void DeclareConfiguration(CLI::App& command, std::shared_ptr<const ReportOptions>& configured) {
    const auto file = std::make_shared<std::optional<std::string>>();
    command
        .add_option(
            "--config", *file,
            "INI file of what is typed every day: [OPTIONS] root, user, units, products, max_statement; none: no "
            "such file (default: tradebill/config.ini in ~/.config, or in %APPDATA%). The command line wins over "
            "--request, that over this, and this over what is found")
        ->type_name("FILE");
    command.final_callback([file, &configured] { configured = LoadConfiguration(*file); });
}

void DeclareStatementLimit(CLI::App& command, std::optional<std::string>& given) {
    command
        .add_option("--max-statement", given,
                    "Largest file that is read as a statement, in bytes or with K, M or G (default: 256M)")
        ->type_name("SIZE");
}

}  // namespace tradebill
