#include "cli/completion_words.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "cli/program_outline.h"
#include "support/temp_folder.h"

namespace tradebill::completion_words_test {
namespace {

using Words = std::vector<std::string>;

class CompletionWords : public testing::Test {
protected:
    [[nodiscard]] static Words Offered(const Words& typed) {
        Words words;
        for (const OfferedWord& word : Complete(OutlineOfProgram(), typed).words) words.push_back(word.word);
        return words;
    }
    [[nodiscard]] static bool Offers(const Words& typed, const std::string& word) {
        const Words words = Offered(typed);
        return std::ranges::find(words, word) != words.end();
    }
    [[nodiscard]] static Offer OfferFor(const Words& typed) { return Complete(OutlineOfProgram(), typed).offer; }

    /// Two users, of whom one has statements of both families.
    CompletionWords() {
        root_.Write("Users/ann lee/Data/Bill/D90010002.20240102o.txt", "");
        root_.Write("Users/ann lee/Data/Bill/D90010002.20240103o.txt", "");
        root_.Write("Users/ann lee/Data/Bill/DWP90010009.20240102o.txt", "");
        root_.Write("Users/zhang san/Data/Bill/D80010001.20240102o.txt", "");
        root_.Write("Users/zhang san/Data/Bill/notes.txt", "");
        root_.Write("Users/a file", "");
        root_.Write("BillTemplate/my own.ini", "");
        root_.Write("BillTemplate/readme.txt", "");
    }

    CTempFolder root_;
};

TEST_F(CompletionWords, AreCommandsFirst) {
    EXPECT_TRUE(Offers({""}, "report"));
    EXPECT_TRUE(Offers({""}, "template"));
    EXPECT_TRUE(Offers({""}, "help"));
    EXPECT_TRUE(Offers({""}, "version"));
    EXPECT_FALSE(Offers({""}, "check --codes"));
    EXPECT_EQ(Offered({"template", ""}), (Words{"check"}));
    EXPECT_EQ(Offered({"help", "template", ""}), (Words{"check"}));
    EXPECT_TRUE(Offers({"help", ""}, "report"));
    EXPECT_EQ(Offered({"nothing", ""}), Words{});
}

TEST_F(CompletionWords, LeaveOutWhatIsHidden) {
    for (const char* const hidden : {".complete", ".manual", "batch-worker"})
        EXPECT_FALSE(Offers({""}, hidden)) << hidden;
}

TEST_F(CompletionWords, AreOptionsBehindADash) {
    EXPECT_TRUE(Offers({"report", "-"}, "--root"));
    EXPECT_TRUE(Offers({"chart", "--o"}, "--output"));
    EXPECT_FALSE(Offers({"chart", "--"}, "--strict"));
    EXPECT_TRUE(Offers({"--"}, "--version"));
    EXPECT_FALSE(Offers({"report", "--", "-"}, "--root"));
}

TEST_F(CompletionWords, AreWhatAnOptionTakes) {
    EXPECT_EQ(Offered({"report", "--kind", ""}), (Words{"domestic", "foreign"}));
    EXPECT_EQ(Offered({"report", "--format", ""}), (Words{"auto", "0", "1", "2", "3", "6", "201"}));
    EXPECT_EQ(Offered({"report", "--from", ""}), Words{});
    EXPECT_EQ(OfferFor({"report", "--from", ""}), Offer::Words);
    EXPECT_EQ(OfferFor({"report", "--json", ""}), Offer::Files);
    EXPECT_EQ(OfferFor({"chart", "-o", ""}), Offer::Files);
    EXPECT_EQ(OfferFor({"report", "--root", ""}), Offer::Folders);
    EXPECT_EQ(OfferFor({"explain", "--template", ""}), Offer::Files);
}

TEST_F(CompletionWords, AreWhatACommandTakes) {
    EXPECT_EQ(OfferFor({"explain", ""}), Offer::Files);
    EXPECT_EQ(OfferFor({"report", "one", "another", ""}), Offer::Files);
    EXPECT_EQ(OfferFor({"anonymise", ""}), Offer::Folders);
    EXPECT_EQ(OfferFor({"diff", "one", "another", ""}), Offer::Words);
    EXPECT_TRUE(Offers({"chart", "--quiet", ""}, "equity"));
    EXPECT_EQ(Offered({"completion", ""}), (Words{"bash", "zsh", "fish"}));
}

TEST_F(CompletionWords, AreThoseBelowTheRoot) {
    const std::string root = root_.Path();
    EXPECT_EQ(Offered({"report", "--root", root, "--account", ""}), (Words{"80010001", "90010002", "90010009"}));
    EXPECT_EQ(Offered({"report", "--user", "ann lee", "--root", root, "--account", ""}),
              (Words{"90010002", "90010009"}));
    EXPECT_EQ(Offered({"report", "--root=" + root, "--user", ""}), (Words{"ann lee", "zhang san"}));
    EXPECT_EQ(Offered({"report", "--root", "=", root, "--user", "=", ""}), (Words{"ann lee", "zhang san"}));
    EXPECT_EQ(Offered({"anonymise", root, "--user", ""}), (Words{"ann lee", "zhang san"}));
    EXPECT_EQ(Offered({"report", "--root", root, "--template", ""}).front(), "my own");
    EXPECT_FALSE(Offers({"report", "--root", root, "--template", ""}, "readme"));
}

TEST_F(CompletionWords, AreNoneBelowNoRoot) {
    EXPECT_EQ(Offered({"report", "--account", ""}), Words{});
    EXPECT_EQ(Offered({"report", "--root", root_.Path("missing"), "--user", ""}), Words{});
}

TEST_F(CompletionWords, MayStandBehindTheirOption) {
    const Completion joined = Complete(OutlineOfProgram(), Words{"report", "--kind=for"});
    EXPECT_EQ(joined.before, "--kind=");
    EXPECT_EQ(joined.words.size(), 2U);
    EXPECT_EQ(Offered({"report", "--quiet=y"}), Words{});
    EXPECT_EQ(Offered({"report", "--nothing=y"}), Words{});
}

}  // namespace
}  // namespace tradebill::completion_words_test
