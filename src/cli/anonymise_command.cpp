#include "cli/anonymise_command.h"

#include <CLI/CLI.hpp>

#include <cstdint>
#include <iostream>
#include <limits>
#include <memory>
#include <optional>
#include <random>
#include <string>

#include "anonymise/account_anonymiser.h"
#include "base/number.h"
#include "base/text.h"
#include "cli/anonymise_run.h"
#include "cli/anonymised_folder.h"
#include "cli/anonymised_settings.h"
#include "cli/awaited_work.h"
#include "cli/command_table.h"
#include "cli/report_arguments.h"
#include "cli/shown_text.h"
#include "cli/voice.h"
#include "driver/report_request.h"
#include "platform/paths.h"
#include "platform/root_folder.h"
#include "report/request_copy.h"
#include "report/statement_format.h"
#include "requests/account_files.h"
#include "requests/format_choice.h"
#include "requests/statement_size.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

constexpr int kMostWeeks = 520;

std::uint64_t SeedOf(const std::optional<std::string>& given) {
    if (!given) {
        std::random_device device;
        return (std::uint64_t{device()} << 31) ^ device();
    }
    std::uint64_t seed = 0;
    for (const char digit : *given) {
        const std::uint64_t next = seed * 10 + static_cast<std::uint64_t>(digit - '0');
        if (!IsDigit(digit) || next / 10 != seed) {
            throw CUsageError("--seed: expected a whole number up to " +
                              std::to_string(std::numeric_limits<std::uint64_t>::max()) + ", found \"" + *given + "\"");
        }
        seed = next;
    }
    if (given->empty()) throw CUsageError("--seed: expected a whole number, found \"\"");
    return seed;
}

int WeeksOf(const std::optional<std::string>& given) {
    if (!given) return 0;
    const auto weeks = WholeNumber(*given);
    if (!weeks || *weeks < -kMostWeeks || *weeks > kMostWeeks) {
        throw CUsageError("--shift-weeks: expected a whole number from -" + std::to_string(kMostWeeks) + " to " +
                          std::to_string(kMostWeeks) + ", found \"" + *given + "\"");
    }
    return *weeks;
}

bool Matches(const std::optional<std::string>& wanted, const std::string& name) {
    return !wanted || wanted->empty() || *wanted == name;
}

/// The accounts that were asked for.
AccountFiles WantedFiles(const AnonymiseCommand& command, const std::string& root) {
    AccountFiles files;
    const bool isForeignAlone = command.kind && KindNumber(command.kind) == kForeignKind;
    for (const auto& [key, places] : FindAccountFiles(root)) {
        const bool isOfKind = !command.kind || key.isForeign == isForeignAlone;
        if (isOfKind && Matches(command.user, key.user) && Matches(command.account, key.account)) files[key] = places;
    }
    if (files.empty()) {
        throw CUsageError(
            "ROOT: expected statements such as Users/NAME/Data/Bill/D123.20240102o.txt, found none in \"" +
            command.root + "\"");
    }
    return files;
}

/// What can be said of the reading before any statement is looked at.
void CheckReading(const AnonymiseCommand& command) {
    const bool hasTemplate = command.templateName && !command.templateName->empty();
    if (command.kind) static_cast<void>(KindNumber(command.kind));
    if (hasTemplate && command.templateName->size() >= sizeof GenerateBillRequest::TemplateName) {
        throw CUsageError("--template: expected at most " +
                          std::to_string(sizeof GenerateBillRequest::TemplateName - 1) + " bytes, found " +
                          std::to_string(command.templateName->size()));
    }
    if (command.format && *command.format != kAutoFormat) static_cast<void>(FormatNumber(*command.format, hasTemplate));
}

/// With what its request file says where the command line doesn't.
AnonymiseCommand WithRequest(AnonymiseCommand command, const std::optional<RequestFile>& file) {
    if (!file) return command;
    const auto fill = [&](const char* key, std::optional<std::string>& setting) {
        const std::string value = file->ValueOf(key);
        if (!setting && !value.empty()) setting = value;
    };
    fill("user", command.user);
    fill("account", command.account);
    fill("format", command.format);
    fill("kind", command.kind);
    fill("template", command.templateName);
    return command;
}

void PrintSummary(const CAnonymiseRun& run, const CAnonymisedFolder& folder, const AnonymiseCommand& command,
                  std::uint64_t seed) {
    std::cout << run.Statements() << (run.Statements() == 1 ? " statement" : " statements") << " of " << run.Accounts()
              << (run.Accounts() == 1 ? " account: " : " accounts: ") << ShownText(NativePath(folder.Path())) << "\n";
    if (command.showsSeed) std::cout << "seed " << seed << "\n";
}

}  // namespace

CommandRun DeclareAnonymise(CLI::App& app) {
    const auto command = std::make_shared<AnonymiseCommand>();
    app.footer(
        "Kept, and so told to whoever reads the copy: contracts, lots, days (unless moved), and all ratios. Whoever "
        "knows the prices of the market can find the factor of an account, and with it all amounts.");
    app.add_option("ROOT", command->root, "Root folder: holds Users, sys and BillTemplate")->required()->type_name("");
    app.add_option("--out", command->out, "Folder of the copy: a new one, or an empty one, outside of ROOT")
        ->required()
        ->type_name("DIR");
    app.add_option("--user", command->user, "Folder of one user below Users (default: all)")->type_name("NAME");
    app.add_option("--account", command->account, "One account's number, as in its files' names (default: all)")
        ->type_name("NO");
    app.add_option("--format", command->format,
                   "Layout of the statements: " + FormatNumbers() + " or auto (default), by their marks")
        ->type_name("N");
    app.add_option("--kind", command->kind, "Statement family: domestic or foreign (default: both)")->type_name("KIND");
    app.add_option("--template", command->templateName, "Statement template below BillTemplate, without .ini")
        ->type_name("NAME");
    app.add_option("--request", command->requestFile, "Request file of a report with these settings; it is copied, too")
        ->type_name("FILE");
    app.add_option("--units", command->unitFile, "INI file of contract units to copy")->type_name("FILE");
    app.add_option("--products", command->productFile, "INI file of product codes to copy")->type_name("FILE");
    app.add_option("--seed", command->seed, "Number that repeats a run (default: a random one)")->type_name("N");
    app.add_flag("--show-seed", command->showsSeed, "Print the seed; with it the copy can be undone");
    app.add_option("--shift-weeks", command->shiftWeeks, "Move all dates by so many weeks (default: 0)")
        ->type_name("N");
    DeclareStatementLimit(app, command->maxStatement);
    return [command] { return RunAnonymiseCommand(*command); };
}

int RunAnonymiseCommand(const AnonymiseCommand& given) {
    const std::string root = RootFolderAt(given.root);
    if (!IsFolder(root)) throw CUsageError("ROOT: expected a folder, found none at \"" + given.root + "\"");
    const CopySettings settings{.anonymise = {.seed = SeedOf(given.seed), .shiftWeeks = WeeksOf(given.shiftWeeks)},
                                .root = root,
                                .limit = StatementLimitOf(given.maxStatement)};
    const auto requestFile = given.requestFile ? std::optional(ReadRequestFile(*given.requestFile)) : std::nullopt;
    const AnonymiseCommand command = WithRequest(given, requestFile);
    CheckReading(command);
    CAwaitedWork work(false);
    CAnonymisedFolder folder(command.out, root);
    const AccountFiles files = WantedFiles(command, root);
    const SideFiles sides = ReadSideFiles(command, settings);

    CAnonymiseRun run(command, settings, folder);
    const bool isWhole = run.CopyAll(files, work);
    if (run.Statements() == 0) return Fail("no statement could be copied, and nothing was written");
    WriteSideFiles(sides, folder);
    if (requestFile) {
        folder.Write("request.ini", ChangedRequest(*requestFile, run.FirstAccount(), settings.anonymise.shiftWeeks));
    }
    folder.Keep();
    PrintSummary(run, folder, command, settings.anonymise.seed);
    return isWhole ? kExitDone : kExitFailed;
}

}  // namespace tradebill
