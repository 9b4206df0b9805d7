// The program's `export`, as a user meets it.
#include "cli/export_command.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>

#include "cli/program_fixture.h"
#include "export/table.h"
#include "export/table_list.h"
#include "support/shell.h"
#include "support/temp_folder.h"

namespace tradebill::export_command_test {
namespace {

class ExportProgram : public Program {
protected:
    [[nodiscard]] std::string Export(const std::string& more) const {
        return "export --root " + Quoted(root_) + " --request " + Quoted(sample_ + "/request.ini") + " " + more;
    }
    [[nodiscard]] std::string ToCsv(const std::string& more = {}) const {
        return Export("--csv " + Quoted(csv_) + " " + more);
    }
    [[nodiscard]] std::map<std::string, std::string> Files() const {
        std::map<std::string, std::string> files;
        for (const auto& entry : fs::directory_iterator(csv_)) {
            files[entry.path().filename().string()] = ReadFile(entry.path().string());
        }
        return files;
    }

    std::string csv_ = folder_.Path(kOddName);
};

TEST_F(ExportProgram, WritesAFileForEachTableAndNothingBesideTheStatements) {
    fs::remove_all(root_ + "/Users/demo/Data/Bill/Image");
    const Answer answer = Run(ToCsv());
    EXPECT_EQ(answer.exit, 0) << answer.err;
    EXPECT_EQ(Files().size(), Tables().size());
    EXPECT_NE(answer.out.find("  trades            191 rows\n"), std::string::npos) << answer.out;
    EXPECT_FALSE(fs::exists(root_ + "/Users/demo/Data/Bill/Image"));
    EXPECT_EQ(Run(ToCsv("--quiet")).out, "");
}

TEST_F(ExportProgram, WritesTheSameBytesEachTime) {
    ASSERT_EQ(Run(ToCsv()).exit, 0);
    const auto first = Files();
    ASSERT_EQ(Run(ToCsv()).exit, 0);
    EXPECT_EQ(Files(), first);
}

TEST_F(ExportProgram, AsksForAPlace) {
    const Answer answer = Run(Export(""));
    EXPECT_EQ(answer.exit, 2);
    EXPECT_NE(answer.err.find("is missing: expected a folder"), std::string::npos) << answer.err;
}

TEST_F(ExportProgram, WantsAFolderForTheFiles) {
    std::ofstream(csv_) << "a file";
    const Answer answer = Run(ToCsv());
    EXPECT_EQ(answer.exit, 2);
    EXPECT_NE(answer.err.find("--csv: expected a folder, found a file"), std::string::npos) << answer.err;
    EXPECT_EQ(ReadFile(csv_), "a file");
}

TEST_F(ExportProgram, EndsWithOneIfATableCannotBeWritten) {
    fs::create_directories(csv_ + "/units.csv");
    const Answer answer = Run(ToCsv());
    EXPECT_EQ(answer.exit, 1);
    EXPECT_NE(answer.err.find("can't write "), std::string::npos) << answer.err;
    EXPECT_NE(answer.err.find("units.csv: something else is there"), std::string::npos) << answer.err;
    EXPECT_EQ(answer.out, "");
    EXPECT_EQ(std::distance(fs::directory_iterator(csv_), fs::directory_iterator()), 1);
}

TEST_F(ExportProgram, WritesNothingWithoutAStatement) {
    const std::string days = "--from 2030-01-01 --to 2030-01-03 ";
    EXPECT_EQ(Run(ToCsv(days)).exit, 2);
    EXPECT_FALSE(fs::exists(csv_));
    EXPECT_EQ(Run(ToCsv(days + "--force")).exit, 1);
    for (const auto& [name, bytes] : Files()) {
        if (name == "figures.csv" || name == "findings.csv") continue;
        EXPECT_EQ(bytes.find("\r\n"), bytes.size() - 2) << name;  // the head line alone
    }
}

TEST_F(ExportProgram, TellsAStatementThatIsNoFile) {
    const std::string statement = root_ + "/Users/demo/Data/Bill/D90010002.20240103o.txt";
    fs::remove(statement);
    fs::create_directory(statement);
    const Answer answer = Run(ToCsv());
    EXPECT_EQ(answer.exit, 1);
    EXPECT_NE(answer.err.find("20240103: "), std::string::npos) << answer.err;
    EXPECT_NE(answer.err.find("is not a file"), std::string::npos) << answer.err;
}

TEST_F(ExportProgram, ShowsFindingsAndMindsThemIfStrict) {
    EXPECT_EQ(Run(ToCsv("--strict")).exit, 0) << "there are none";
    const std::string statement = root_ + "/Users/demo/Data/Bill/D90010002.20240103o.txt";
    std::ofstream(statement, std::ios::binary | std::ios::trunc) << ReadFile(statement).substr(0, 1500);
    const Answer answer = Run(ToCsv());
    EXPECT_EQ(answer.exit, 0);
    EXPECT_NE(answer.err.find("tradebill check"), std::string::npos) << answer.err;
    EXPECT_EQ(Run(ToCsv("--strict")).exit, 3);
    EXPECT_NE(Files().at("findings.csv").find("2024-01-03"), std::string::npos);
}

}  // namespace
}  // namespace tradebill::export_command_test
