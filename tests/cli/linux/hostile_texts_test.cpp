// Statements, templates, names and arguments that hold what a terminal obeys: it is shown, whatever prints it.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "base/utf8.h"
#include "cli/program_fixture.h"
#include "support/gbk_text.h"

namespace tradebill::linux_hostile_texts_test {
namespace {

/// Clears a screen, three ways; turns the line round; is no text at all.
const std::string kHostile =
    "\x1B[2J\xC2\x9B"
    "2J\x9B"
    "2J\u202E\u2066\x07\x08\x7F\xFF";

/// As a shell takes it.
std::string InShell(const std::string& bytes) {
    return "\"$(printf '" + [&bytes] {
        std::string octal;
        for (const char byte : bytes) {
            const auto value = static_cast<unsigned char>(byte);
            octal += "\\" + std::to_string(value >> 6) + std::to_string(value >> 3 & 7) + std::to_string(value & 7);
        }
        return octal;
    }() + "')\"";
}

bool IsHarmless(const std::string& text) {
    for (std::string_view rest = text; !rest.empty();) {
        const Utf8Character character = FirstUtf8Character(rest);
        if (!character.point) return false;
        const char32_t point = *character.point;
        if ((point < 0x20 && point != '\n') || (point >= 0x7F && point < 0xA0)) return false;
        if ((point >= 0x202A && point <= 0x202E) || (point >= 0x2066 && point <= 0x2069)) return false;
        rest.remove_prefix(character.size);
    }
    return true;
}

class HostileText : public Program {
protected:
    /// Runs it, and sees that `shown` was printed and nothing that a terminal obeys. Returns the exit code.
    int RunAndLook(const std::string& arguments, const std::string& shown = "\\u001b[2J") const {
        const Answer answer = Run(arguments);
        EXPECT_TRUE(IsHarmless(answer.out)) << arguments << "\n" << answer.out;
        EXPECT_TRUE(IsHarmless(answer.err)) << arguments << "\n" << answer.err;
        EXPECT_TRUE(Says(answer.out + answer.err, shown)) << arguments << "\n" << answer.out << answer.err;
        return answer.exit;
    }
    [[nodiscard]] std::string Statement() const { return root_ + "/Users/demo/Data/Bill/D90010002.20240104o.txt"; }
};

TEST_F(HostileText, IsShownInEveryArgument) {
    const std::string word = InShell(kHostile);
    for (const std::string& call : std::vector<std::string>{
             "report --" + word,
             "report " + word,
             Options("--root") + " --root " + word,
             Options("--user") + " --user " + word,
             Options("--account") + " --account " + word,
             Options("--from") + " --from " + word,
             Options("--to") + " --to " + word,
             Options("--format") + " --format " + word,
             Options() + " --kind " + word,
             Options() + " --template " + InShell("\x1B[2J"),
             Options() + " --dpi " + word,
             Options() + " --request " + word,
             Options() + " --units " + word,
             Options() + " --products " + word,
             Options() + " --live " + word,
             Options() + " --json " + word + "/no/file",
             Options() + " --out " + word + "/no/folder",
             "chart " + word + " -o x.png",
             "chart equity --size " + word + " -o x.png",
             "explain " + word,
             "explain " + Quoted(Statement()) + " --day " + word,
             "explain " + Quoted(Statement()) + " --template " + word,
             "template check " + word,
             "reset " + word + "/no/page.html",
             "gallery /dev/null/" + word,
         }) {
        EXPECT_NE(RunAndLook(call), 0) << call;
    }
    RunAndLook(word, "");  // which isn't repeated
    RunAndLook("template " + word, "");
}

TEST_F(HostileText, IsShownInFileNames) {
    const std::string path = folder_.Path("a\n" + kHostile + ".txt");
    fs::copy(Statement(), path);
    EXPECT_EQ(RunAndLook("explain " + InShell(path) + " --format 1", "a\\n\\u001b[2J"), 0);
    const std::string folder = folder_.Path(kHostile);
    EXPECT_EQ(RunAndLook(Report("--out " + InShell(folder)), "%1B%5B2J"), 0);  // in the page's address
    fs::copy(root_, folder + "/root", fs::copy_options::recursive);
    const std::string statement = folder + "/root/Users/demo/Data/Bill/D90010002.20240104o.txt";
    fs::remove(statement);
    fs::create_directories(statement);
    const std::string request =
        "--root " + InShell(folder + "/root") + " --request " + Quoted(sample_ + "/request.ini");
    EXPECT_EQ(RunAndLook("report " + request), 1);
    EXPECT_EQ(RunAndLook("check " + request + " --quiet", "D90010002.20240104o.txt"), 3);
    const std::string ini = folder_.Write("b\t\x1B.ini", "[REQUEST]\nnonsense\n");
    EXPECT_EQ(RunAndLook("report --request " + InShell(ini), "b\\t\\u001b.ini"), 2);
}

TEST_F(HostileText, IsShownInStatements) {
    std::string text = ReadFile(Statement());
    // In cells, in labels, in titles: behind every blank that another follows, and in the rows of all tables.
    for (std::size_t at = 0; (at = text.find("  ", at)) != std::string::npos; at += 8) text.insert(at, " \x1B[2J\x7F");
    const std::string file = folder_.Write("D1.20240104.txt", text);
    RunAndLook("explain " + Quoted(file) + " --format 1");
    std::string cells = ReadFile(Statement());
    std::size_t changed = 0;
    for (std::size_t at = 0; at < cells.size(); ++at) {
        const bool isAmount = cells[at] == '.' && at > 0 && cells[at - 1] >= '0' && cells[at - 1] <= '9';
        if (isAmount && ++changed % 3 == 0) cells.replace(at, 1, "\x1B[2J");
    }
    const std::string path = folder_.Write("D2.20240104.txt", cells);
    EXPECT_GT(changed, 30U);
    RunAndLook("explain " + Quoted(path) + " --format 1");
    const Answer json = Run("explain " + Quoted(path) + " --format 1 --json");
    EXPECT_TRUE(IsHarmless(json.out));
    EXPECT_FALSE(nlohmann::json::parse(json.out, nullptr, false).is_discarded());
    folder_.Write("sample/root/Users/demo/Data/Bill/D90010002.20240104o.txt", cells);
    RunAndLook(Report());
    RunAndLook("check --root " + Quoted(root_) + " --request " + Quoted(sample_ + "/request.ini"));
}

TEST_F(HostileText, IsShownInTemplatesAndIniFiles) {
    const std::string odd = "\x1B[2J\x07";
    const std::string file = folder_.Write(
        "own.ini", "[DEALFIELD]\nMONEY_MODE=" + odd + "\nMATCH_RECORD=1\n" + odd + "=1\n" + odd + "\n[" + odd +
                       "]\n[MATCH_RECORD]\nSTART_FLAG=" + odd + "\nEND_FLAG=" + odd + "\nPRICE=" + odd + "\n");
    RunAndLook("template check " + Quoted(file));
    RunAndLook("template check " + Quoted(file) + " --against " + Quoted(Statement()));
    const std::string titles = folder_.Write("titles.ini",
                                             "[DEALFIELD]\nMONEY_MODE=9\nMATCH_RECORD=1\n[MATCH_RECORD]\n"
                                             "START_FLAG=" +
                                                 odd + "\nEND_FLAG=" + odd + "\nDELIMITER=|\n");
    RunAndLook("explain " + Quoted(Statement()) + " --format 1 --template " + Quoted(titles));
    for (const std::string& content :
         {"[REQUEST]\n" + odd + "=1\n", "[REQUEST]\n" + odd + "\n", "[REQUEST]\nuser=" + odd + "\naccount=1\n",
          "[REQUEST]\nuser=demo\naccount=1\nformat=" + odd + "\n"}) {
        const std::string request = folder_.Write("request.ini", content);
        EXPECT_EQ(RunAndLook("report --root " + Quoted(root_) + " --request " + Quoted(request)), 2) << content;
    }
    EXPECT_EQ(RunAndLook(Report("--units " + Quoted(folder_.Write("units.ini", "[UNITS]\n" + odd + "\n")))), 2);
    EXPECT_EQ(RunAndLook(Report("--live " + Quoted(folder_.Write("live.ini", "[BASE]\n" + odd + "=1\n")))), 2);
}

}  // namespace
}  // namespace tradebill::linux_hostile_texts_test
