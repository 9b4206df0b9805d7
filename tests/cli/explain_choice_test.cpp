// Which reader `explain` says was chosen, and why.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "cli/explain_fixture.h"
#include "requests/usage_error.h"

namespace tradebill::explain_choice_test {
namespace {

class ExplainedChoice : public ExplainFixture {
protected:
    [[nodiscard]] static std::string Folder(std::string_view sample) {
        return std::string(TRADEBILL_SAMPLES) + "/" + std::string(sample) + "/root";
    }
    /// The bytes of a sample's statement of a day.
    [[nodiscard]] static std::string StatementOf(std::string_view sample, const std::string& day = "20240129") {
        for (const auto& entry : std::filesystem::directory_iterator(Folder(sample) + "/Users/demo/Data/Bill")) {
            if (entry.path().filename().string().find("." + day + "o.") != std::string::npos) {
                return ReadFile(entry.path().string());
            }
        }
        ADD_FAILURE() << "no statement of " << sample << " on " << day;
        return {};
    }
    [[nodiscard]] static std::string Replaced(std::string text, std::string_view from, std::string_view to) {
        const std::string word = Gbk(from);
        for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word)) {
            text.replace(at, word.size(), Gbk(to));
        }
        return text;
    }
    [[nodiscard]] ExplainCommand Command(const std::string& text, const std::string& format) const {
        return {.statementFile = folder_.Write("D1.20240129o.txt", text),
                .format = format,
                .kind = {},
                .templateFile = {},
                .day = {},
                .asJson = true};
    }
    [[nodiscard]] Explained ExplainForeign(const std::string& text) const {
        ExplainCommand command = Command(text, "0");
        command.kind = "foreign";
        command.format = {};
        return Run(command);
    }
    [[nodiscard]] Explained ExplainBy(const std::string& templateFile, const std::string& text,
                                      const std::string& format) const {
        ExplainCommand command = Command(text, format);
        command.templateFile = templateFile;
        return Run(command);
    }
    static std::string LayoutOf(const Explained& explained) {
        return explained.json.at("readers").back().at("layout").get<std::string>();
    }
    static std::string ReasonOf(const Explained& explained) {
        return explained.json.at("readers").back().at("reason").get<std::string>();
    }
    static bool Says(const std::string& text, std::string_view words) { return text.find(words) != std::string::npos; }
};

// Equity is neither margin and available funds, nor is it printed.
std::string SheetOfTwoFormats() {
    return Statement({"客户帐单_资金清单", "a", "b", "c", "1 0 0 0 0 100.00 60.00 9% 50.00", "---------"});
}

struct Pair {
    const char* sample;
    const char* format;
    const char* without;
    const char* with;
};

constexpr Pair kPairs[] = {
    {"fund-status", "1", "fund-status", "fund-status-premium"},
    {"fund-status-premium", "1", "fund-status", "fund-status-premium"},
    {"client-bill", "2", "client-bill", "client-bill-premium"},
    {"client-bill", "201", "client-bill", "client-bill-premium"},
    {"client-bill-premium", "201", "client-bill", "client-bill-premium"},
    {"tabulated", "3", "tabulated", "bilingual"},
    {"bilingual", "3", "tabulated", "bilingual"},
    {"spaced-title", "6", "spaced-title", "spaced-title-premium"},
    {"spaced-title-premium", "6", "spaced-title", "spaced-title-premium"},
};

TEST_F(ExplainedChoice, FollowsThePremiumWord) {
    for (const Pair& pair : kPairs) {
        const std::string without = Replaced(StatementOf(pair.sample), "权利金", "期权费");
        const Explained plain = Explain(without, pair.format);
        EXPECT_EQ(LayoutOf(plain), pair.without) << pair.sample;
        EXPECT_TRUE(Says(ReasonOf(plain), "\"权利金\" isn't in the text")) << ReasonOf(plain);
        const Explained moved = Explain(without + Statement({"注：权利金另计"}), pair.format);
        EXPECT_EQ(LayoutOf(moved), pair.with) << pair.sample;
        EXPECT_TRUE(Says(ReasonOf(moved), "\"权利金\" is in the text")) << ReasonOf(moved);
    }
}

TEST_F(ExplainedChoice, GivesNoReasonWhereThereIsNoOther) {
    for (const std::string& text :
         {StatementOf("fund-class"), Replaced(StatementOf("fund-class"), "权利金", "期权费")}) {
        const Explained explained = Explain(text, "0");
        EXPECT_EQ(LayoutOf(explained), "fund-class");
        EXPECT_EQ(ReasonOf(explained), "");
        EXPECT_EQ(explained.exit, 0);
    }
    const Explained foreign = ExplainForeign(StatementOf("foreign"));
    EXPECT_EQ(LayoutOf(foreign), "foreign");
    EXPECT_EQ(ReasonOf(foreign), "");
    EXPECT_EQ(foreign.json.at("layout"), "kind foreign");
}

TEST_F(ExplainedChoice, TellsTheRightFormatOfAStatementReadAsForeign) {
    for (const auto& [sample, format] : {std::pair{"fund-class", "0"},
                                         {"fund-status", "1"},
                                         {"client-bill", "2"},
                                         {"client-bill-premium", "201"},
                                         {"tabulated", "3"},
                                         {"bilingual", "3"},
                                         {"spaced-title", "6"}}) {
        const Explained explained = ExplainForeign(StatementOf(sample));
        EXPECT_NE(explained.exit, 0) << sample;
        const Json guesses = explained.json.at("looks_like");
        const Json right = std::string("--format ") + format;
        EXPECT_NE(std::find(guesses.begin(), guesses.end(), right), guesses.end()) << sample << guesses;
    }
}

TEST_F(ExplainedChoice, TellsTheRightKindOfAForeignStatement) {
    for (const std::string format : {"0", "1", "2", "3", "6", "201"}) {
        const Explained explained = Explain(StatementOf("foreign"), format);
        EXPECT_EQ(explained.json.at("looks_like"), (Json::array({"--kind foreign"}))) << format;
        EXPECT_TRUE(Says(ExplainAsText(StatementOf("foreign"), format), "This looks like --kind foreign.\n"));
    }
}

TEST_F(ExplainedChoice, NamesAllThatAStatementMayBe) {
    const Explained explained = Explain(SheetOfTwoFormats(), "1");
    EXPECT_EQ(explained.exit, 3);
    EXPECT_EQ(explained.json.at("looks_like"), (Json{"--format 2", "--format 201"}));
    EXPECT_TRUE(Says(ExplainAsText(SheetOfTwoFormats(), "1"),
                     "Nothing was recognised.\nThis looks like --format 2 or --format 201.\n"));
}

TEST_F(ExplainedChoice, NamesTheOneThatTheMoneyFiguresSpeakFor) {
    EXPECT_EQ(Explain(StatementOf("client-bill"), "1").json.at("looks_like"), (Json::array({"--format 2"})));
    EXPECT_EQ(Explain(StatementOf("client-bill-premium"), "6").json.at("looks_like"), (Json::array({"--format 201"})));
    EXPECT_TRUE(Says(ExplainAsText(StatementOf("client-bill"), "1"), "This looks like --format 2.\n"));
}

TEST_F(ExplainedChoice, DoesntTellADamagedStatementThatItLooksLikeItself) {
    const struct {
        const char* sample;
        const char* format;
    } samples[] = {{"fund-class", "0"},    {"fund-status", "1"},  {"client-bill", "2"},
                   {"client-bill", "201"}, {"spaced-title", "6"}, {"bilingual", "3"}};
    for (const auto& sample : samples) {
        const std::string damaged = Replaced(Replaced(StatementOf(sample.sample), "共", "供"), "合计", "和计");
        const Explained explained = Explain(Replaced(damaged, "---", "~"), sample.format);
        EXPECT_EQ(explained.json.at("looks_like"), Json::array()) << sample.sample;
        EXPECT_EQ(explained.json.at("bears_own_mark"), true) << sample.sample;
    }
    const std::string cut = StatementOf("fund-status").substr(0, 400);  // within the money block
    const std::string words = ExplainAsText(cut, "1");
    EXPECT_TRUE(Says(words,
                     "Nothing was recognised.\nThe mark of this layout stands in the text: the statement is "
                     "damaged, or of a variant that only a template can describe (--template FILE.ini).\n"))
        << words;
    EXPECT_FALSE(Says(words, "looks like"));
    EXPECT_EQ(Explain(cut, "0").json.at("bears_own_mark"), false);
}

TEST_F(ExplainedChoice, GoesByTheMarksWithoutAFormat) {
    ExplainCommand command = Command(StatementOf("client-bill-premium"), "");
    command.format = {};
    const Explained explained = Run(command);
    EXPECT_EQ(explained.exit, 0);
    EXPECT_EQ(explained.json.at("layout"), "format 201, by the marks in the text");
    ExplainCommand other = Command(Statement({"别的"}), "");
    other.format = {};
    try {
        static_cast<void>(Run(other));
        ADD_FAILURE() << "picked";
    } catch (const CUsageError& error) {
        EXPECT_TRUE(Says(error.what(), "no layout's mark stands in")) << error.what();
        EXPECT_TRUE(Says(error.what(), "--template for a layout that a template describes")) << error.what();
    }
}

TEST_F(ExplainedChoice, SaysThatALayoutNeedsItsTemplate) {
    const std::string text = StatementOf("bilingual-new");
    for (const std::string format : {"3", "auto"}) {
        const Explained without = Explain(text, format);
        EXPECT_EQ(without.exit, 0);
        EXPECT_EQ(without.json.at("needs_template"), "bilingual-new");
        EXPECT_EQ(without.json.at("looks_like"), Json::array());
        EXPECT_TRUE(Says(ExplainAsText(text, format),
                         "The marks in the text are those of bilingual-new, which needs its template: --template "
                         "FILE.ini, with BILLFORMAT_NEWDATE at this day or before.\n"));
    }
    EXPECT_EQ(Explain(text, "0").json.at("looks_like"), (Json::array({"--format 3 --template FILE.ini"})));
    const std::string later = folder_.Write("later.ini", "[DEALFIELD]\nBILLFORMAT_NEWDATE=20240130\n");
    EXPECT_EQ(ExplainBy(later, text, "3").json.at("needs_template"), "bilingual-new");
    EXPECT_EQ(ExplainBy(later, text, "0").json.at("looks_like"), (Json::array({"--format 3"})));
    const std::string reached = folder_.Write("reached.ini", "[DEALFIELD]\nBILLFORMAT_NEWDATE=20240129\n");
    EXPECT_FALSE(ExplainBy(reached, text, "3").json.contains("needs_template"));
    const std::string broken = folder_.Write("broken.ini", "[DEALFIELD]\nBILLFORMAT_NEWDATE=20241319\n");
    EXPECT_EQ(ExplainBy(broken, text, "3").json.at("needs_template"), "bilingual-new");  // nothing was read
    EXPECT_FALSE(Explain(StatementOf("bilingual"), "3").json.contains("needs_template"));
}

TEST_F(ExplainedChoice, SaysThatALayoutWithoutMarksMayNeedATemplate) {
    const std::string hint = "A layout that only a template describes needs --template FILE.ini and its --format N.\n";
    EXPECT_TRUE(Says(ExplainAsText(StatementOf("template-pairs"), "1"), hint));
    EXPECT_FALSE(Says(ExplainAsText(SmallStatement(), "1"), hint));
    ExplainCommand declining = Command(Statement({"别的"}), "1");
    declining.templateFile = folder_.Write("empty.ini", "[DEALFIELD]\n");
    declining.asJson = false;
    EXPECT_FALSE(Says(Run(declining).output, hint));
    ExplainCommand foreign = Command(Statement({"别的"}), "");
    foreign.kind = "foreign";
    foreign.asJson = false;
    EXPECT_FALSE(Says(Run(foreign).output, hint));  // it takes no template
}

TEST_F(ExplainedChoice, PicksByMarksAndSaysSo) {
    const Explained explained = Explain(StatementOf("spaced-title"), "auto");
    EXPECT_EQ(explained.json.at("layout"), "format 6, by the marks in the text");
    EXPECT_EQ(LayoutOf(explained), "spaced-title");
    const ExplainCommand foreign = Command(StatementOf("foreign"), "auto");
    EXPECT_THROW(static_cast<void>(Run(foreign)), CUsageError);
    ExplainCommand named = foreign;
    named.kind = "foreign";
    EXPECT_EQ(Run(named).exit, 0);
    EXPECT_THROW(static_cast<void>(Explain(Statement({"别的"}), "auto")), CUsageError);
    EXPECT_THROW(static_cast<void>(Explain("", "auto")), CUsageError);
}

TEST_F(ExplainedChoice, RefusesToPickOneOfTwo) {
    const ExplainCommand command = Command(SheetOfTwoFormats(), "auto");
    try {
        static_cast<void>(Run(command));
        ADD_FAILURE() << "picked";
    } catch (const CUsageError& error) {
        EXPECT_TRUE(Says(error.what(), "2 (client-bill), 201 (client-bill)")) << error.what();
        EXPECT_TRUE(Says(error.what(), "D1.20240129o.txt")) << error.what();
    }
}

TEST_F(ExplainedChoice, FollowsTheChangeDateOfTheTemplate) {
    const std::string byDate = folder_.Write("broker.ini", "[DEALFIELD]\nBILLFORMAT_NEWDATE=20240129\n");
    const std::string text = StatementOf("bilingual-new");
    EXPECT_EQ(LayoutOf(ExplainBy(byDate, text, "3")), "bilingual-new");
    EXPECT_TRUE(Says(ReasonOf(ExplainBy(byDate, text, "3")), "the template's change date is reached"));
    EXPECT_EQ(LayoutOf(Explain(text, "3")), "bilingual");
    ExplainCommand earlier = Command(text, "3");
    earlier.templateFile = byDate;
    earlier.day = "20240128";
    EXPECT_EQ(LayoutOf(Run(earlier)), "bilingual");
}

TEST_F(ExplainedChoice, ReadsByTheTemplatesOldAndNewDescription) {
    for (const std::string_view sample : {"template-pairs", "template-row"}) {
        const std::string file = Folder(sample) + "/BillTemplate/songta.ini";
        const std::string format = sample == "template-pairs" ? "1" : "201";
        for (const bool isNew : {false, true}) {  // the samples change on the 19th
            const std::string day = isNew ? "20240119" : "20240118";
            ExplainCommand command = Command(StatementOf(sample, day), format);
            command.templateFile = file;
            command.day = day;
            const Explained explained = Run(command);
            EXPECT_EQ(explained.exit, 0) << sample << day;
            EXPECT_EQ(explained.json.at("template"), (Json{{"outcome", "read"}, {"new_scheme", isNew}})) << sample;
            EXPECT_EQ(LayoutOf(explained), "template");
            EXPECT_EQ(explained.json.at("readers").size(), 1U);
            command.asJson = false;
            EXPECT_TRUE(Says(Run(command).output, isNew ? "Template    its new description: reads the statement\n"
                                                        : "Template    its old description: reads the statement\n"));
        }
    }
}

TEST_F(ExplainedChoice, TakesANumberWithoutReaderTogetherWithATemplate) {
    const std::string file = Folder("template-pairs") + "/BillTemplate/songta.ini";
    const Explained explained = ExplainBy(file, StatementOf("template-pairs"), "77");
    EXPECT_EQ(explained.exit, 0);
    EXPECT_EQ(LayoutOf(explained), "template");
    EXPECT_THROW(static_cast<void>(Explain(StatementOf("template-pairs"), "77")), CUsageError);
}

TEST_F(ExplainedChoice, GoesByTheFormatThatTheTemplateNames) {
    const std::string described = ReadFile(Folder("template-pairs") + "/BillTemplate/songta.ini");
    const std::size_t head = described.find("[DEALFIELD]");
    ASSERT_NE(head, std::string::npos);
    const std::string file = folder_.Write("songta.ini", std::string(described).insert(head + 11, "\r\nFORMAT=77"));
    const Explained explained = ExplainBy(file, StatementOf("template-pairs"), "auto");
    EXPECT_EQ(explained.exit, 0);
    EXPECT_EQ(explained.json.at("layout"), "format 77, by the template");
    EXPECT_EQ(LayoutOf(explained), "template");
    EXPECT_EQ(ExplainBy(file, StatementOf("template-pairs"), "1").json.at("layout"), "format 1");
}

TEST_F(ExplainedChoice, KnowsNoReaderForANumberWhoseTemplateDeclines) {
    const std::string file = folder_.Write("broker.ini", "[DEALFIELD]\nMONEY_MODE=0\n");
    ExplainCommand command = Command(StatementOf("fund-status"), "77");
    command.templateFile = file;
    const Explained explained = Run(command);
    EXPECT_EQ(explained.exit, 3);
    EXPECT_EQ(explained.json.at("template").at("outcome"), "declined");
    EXPECT_EQ(explained.json.at("looks_like"), (Json{"--format 1"}));
}

}  // namespace
}  // namespace tradebill::explain_choice_test
