#include "cli/diff_command.h"

#include <CLI/CLI.hpp>

#include <cstddef>
#include <iostream>
#include <memory>
#include <string>

#include "cli/command_table.h"
#include "cli/shown_text.h"
#include "export/report_diff.h"
#include "export/report_figures.h"
#include "requests/input_file.h"
#include "requests/standard_input.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

constexpr std::size_t kMostOfABlock = 20;

std::string JsonText(const std::string& path) {
    return path == kStandardStream ? StandardInputText() : InputFileText(path, "a file that report --json wrote");
}

std::string NameOf(const std::string& path) {
    return path == kStandardStream ? kStandardInputName : path;
}

std::unique_ptr<CReportFigures> FiguresIn(const std::string& path) {
    try {
        return std::make_unique<CReportFigures>(JsonText(path));
    } catch (const CNoReportJson& error) {
        throw CUsageError(NameOf(path) + ": expected the JSON of a report, schema 1, but " + error.what());
    }
}

/// Prints differences block by block, and counts them.
class CDifferencePrinter {
public:
    explicit CDifferencePrinter(const DiffCommand& command) : command_(command) {}

    void Print(const ReportDifference& difference) {
        ++count_;
        if (command_.quiet) return;
        const std::string block = difference.place.substr(0, difference.place.find_first_of(".["));
        if (block != block_) {
            Finish();
            block_ = block;
        }
        ++ofBlock_;
        if (!command_.showsAll && ofBlock_ > kMostOfABlock) return;
        std::cout << ShownText(Line(difference)) << "\n";
    }

    /// Tells how many of the block at hand weren't printed.
    void Finish() {
        if (!command_.showsAll && ofBlock_ > kMostOfABlock) {
            std::cout << "and " << ofBlock_ - kMostOfABlock << " more in " << ShownText(block_)
                      << " (--all shows them)\n";
        }
        ofBlock_ = 0;
    }

    [[nodiscard]] std::size_t Count() const { return count_; }

private:
    [[nodiscard]] std::string Line(const ReportDifference& difference) const {
        if (!difference.left) return difference.place + ": only in " + NameOf(command_.right);
        if (!difference.right) return difference.place + ": only in " + NameOf(command_.left);
        return difference.place + ": " + *difference.left + " -> " + *difference.right;
    }

    const DiffCommand& command_;
    std::string block_;
    std::size_t ofBlock_ = 0;
    std::size_t count_ = 0;
};

}  // namespace

CommandRun DeclareDiff(CLI::App& app) {
    const auto command = std::make_shared<DiffCommand>();
    app.add_option("A", command->left, "What report --json wrote of one run; - for standard input")
        ->required()
        ->type_name("");
    app.add_option("B", command->right, "The same of another run")->required()->type_name("");
    app.add_flag("--all", command->showsAll, "Print all differences, not only the first 20 of each block");
    app.add_flag("--quiet", command->quiet, "Print nothing: the exit code tells");
    return [command] { return RunDiffCommand(*command); };
}

int RunDiffCommand(const DiffCommand& command) {
    if (command.left == kStandardStream && command.right == kStandardStream) {
        throw CUsageError("expected two files, found standard input for both");
    }
    const auto left = FiguresIn(command.left);
    const auto right = FiguresIn(command.right);
    CDifferencePrinter printer(command);
    CompareReports(*left, *right, [&](const ReportDifference& difference) { printer.Print(difference); });
    printer.Finish();
    if (printer.Count() == 0) {
        if (!command.quiet) std::cout << "no differences\n";
        return kExitDone;
    }
    if (!command.quiet) std::cout << printer.Count() << (printer.Count() == 1 ? " difference\n" : " differences\n");
    return kExitFindings;
}

}  // namespace tradebill
