#include "cli/template_command.h"

#include <CLI/CLI.hpp>

#include <iostream>
#include <memory>
#include <string>

#include "base/ini_file.h"
#include "cli/command_table.h"
#include "cli/usage_error.h"
#include "findings/template_check.h"
#include "platform/file.h"

namespace tradebill {

CommandRun DeclareTemplateCheck(CLI::App& app) {
    const auto file = std::make_shared<std::string>();
    app.add_option("FILE", *file, "The template")->required()->type_name("");
    return [file] { return RunTemplateCheck(*file); };
}

int RunTemplateCheck(const std::string& path) {
    const auto file = LoadIniFile(path);
    if (!file) throw CUsageError("can't read " + path + ": expected a template file");
    int errors = 0;
    int warnings = 0;
    for (const TemplateFinding& finding : CheckTemplate(*file)) {
        ++(finding.isError ? errors : warnings);
        std::cout << path;
        if (finding.line > 0) std::cout << ", line " << finding.line;
        std::cout << ": " << (finding.isError ? "error: " : "warning: ") << finding.text << "\n";
    }
    std::cout << path << ": " << errors << (errors == 1 ? " error, " : " errors, ") << warnings
              << (warnings == 1 ? " warning" : " warnings") << "\n";
    return errors == 0 ? kExitDone : kExitFailed;
}

}  // namespace tradebill
