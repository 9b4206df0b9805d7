// The program's `export` where it is built without SQLite.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "cli/program_fixture.h"
#include "support/shell.h"
#include "support/temp_folder.h"

namespace tradebill::windows_export_without_database_test {
namespace {

class ExportWithoutDatabase : public Program {
protected:
    [[nodiscard]] Answer Export(const std::string& more) const {
        return Run("export --root " + Quoted(root_) + " --request " + Quoted(sample_ + "/request.ini") + " " + more);
    }
};

TEST_F(ExportWithoutDatabase, LeavesTheOptionOutOfTheHelp) {
    const std::string help = Run("export --help").out;
    EXPECT_TRUE(Says(help, "--csv")) << help;
    EXPECT_FALSE(Says(help, "qlite")) << help;
    const Answer answer = Export("");
    EXPECT_TRUE(IsWrongUse(answer, "--csv is missing: expected a folder for the tables"));
}

TEST_F(ExportWithoutDatabase, SaysThatItHasNone) {
    const std::string file = folder_.Path("all.db");
    const std::string csv = folder_.Path("tables");
    const Answer answer = Export("--csv " + Quoted(csv) + " --sqlite " + Quoted(file));
    EXPECT_TRUE(IsWrongUse(answer, "--sqlite: this program is built without SQLite; --csv has the same tables"));
    EXPECT_FALSE(fs::exists(file));
    EXPECT_FALSE(fs::exists(csv));
}

}  // namespace
}  // namespace tradebill::windows_export_without_database_test
