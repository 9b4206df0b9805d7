// Each sample explained with its own format, with all the others, and with none.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

#include "cli/explain_fixture.h"
#include "requests/usage_error.h"

namespace tradebill::explain_samples_test {
namespace {

struct Sample {
    const char* name;
    const char* format;
    const char* layout;
    int sections;
    bool isForeign = false;
    bool hasTemplate = false;
};

void PrintTo(const Sample& sample, std::ostream* out) {
    *out << sample.name;
}

// clang-format off
constexpr Sample kSamples[] = {
    {"fund-class",           "0",   "fund-class",           4},
    {"fund-status",          "1",   "fund-status",          5},
    {"fund-status-premium",  "1",   "fund-status-premium",  4},
    {"client-bill",          "2",   "client-bill",          4},
    {"client-bill-premium",  "201", "client-bill-premium",  4},
    {"tabulated",            "3",   "tabulated",            5},
    {"bilingual",            "3",   "bilingual",            4},
    {"bilingual-new",        "3",   "bilingual-new",        4, false, true},
    {"spaced-title",         "6",   "spaced-title",         5},
    {"spaced-title-premium", "6",   "spaced-title-premium", 5},
    {"template-pairs",       "1",   "template",             5, false, true},
    {"template-row",         "201", "template",             4, false, true},
    {"foreign",              "0",   "foreign",              5, true},
    {"one-year",             "1",   "fund-status",          5},
};
// clang-format on

class ExplainedSample : public ExplainFixture, public testing::WithParamInterface<Sample> {
protected:
    [[nodiscard]] static std::string Root() { return std::string(TRADEBILL_SAMPLES) + "/" + GetParam().name + "/root"; }
    /// The twentieth statement: behind the change date of the samples that have one.
    [[nodiscard]] std::string StatementFile() const {
        std::vector<std::filesystem::path> files;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(Root() + "/Users")) {
            if (entry.path().extension() == ".txt") files.push_back(entry.path());
        }
        std::ranges::sort(files);
        const std::string copy = folder_.Path(files.at(19).filename().string());
        std::filesystem::copy_file(files.at(19), copy, std::filesystem::copy_options::overwrite_existing);
        return copy;
    }
    [[nodiscard]] ExplainCommand Command(const std::string& format) const {
        ExplainCommand command{.statementFile = StatementFile(),
                               .format = format,
                               .kind = {},
                               .templateFile = {},
                               .day = {},
                               .asJson = true};
        if (GetParam().isForeign) command.kind = "foreign";
        if (GetParam().hasTemplate) command.templateFile = Root() + "/BillTemplate/songta.ini";
        return command;
    }
};

TEST_P(ExplainedSample, IsRecognisedWithItsOwnFormat) {
    const Explained explained = Run(Command(GetParam().format));
    EXPECT_EQ(explained.exit, 0);
    EXPECT_EQ(explained.json.at("sections_found"), GetParam().sections);
    EXPECT_EQ(explained.json.at("readers").back().at("layout"), GetParam().layout);
    EXPECT_EQ(explained.json.at("looks_like"), Json::array());
    EXPECT_FALSE(explained.json.contains("needs_template"));
    EXPECT_GE(explained.json.at("money_records"), 1);
    for (const Json& section : explained.json.at("readers").back().at("sections")) {
        EXPECT_TRUE(section.at("found")) << section;
        for (const Json& row : section.at("rows_passed_over")) {
            EXPECT_NE(row.at("reason"), "too_short") << section;
        }
        EXPECT_EQ(section.at("no_amounts"), Json::array());
        EXPECT_EQ(section.at("columns_not_in_rows"), Json::array());
        const bool hasRecord = section.at("section") != "money" && section.at("records") > 0;
        EXPECT_EQ(section.contains("first_record"), hasRecord) << section;
    }
}

TEST_P(ExplainedSample, IsToldFromAWrongFormat) {
    if (GetParam().hasTemplate && std::string(GetParam().layout) == "template") return;  // no fixed layout's marks
    const std::string right =
        GetParam().isForeign ? std::string("--kind foreign") : std::string("--format ") + GetParam().format;
    for (const std::string format : {"0", "1", "2", "3", "6", "201"}) {
        ExplainCommand command = Command(format);
        command.kind = {};
        const bool isTwin =
            std::string(GetParam().layout).starts_with("client-bill") && (format == "2" || format == "201");
        if (!GetParam().isForeign && (format == GetParam().format || isTwin)) continue;
        const Explained explained = Run(command);
        const Json guesses = explained.json.at("looks_like");
        EXPECT_EQ(guesses, Json::array({right})) << format << ' ' << explained.output;
    }
}

TEST_P(ExplainedSample, PicksItsFormatByItsMarks) {
    ExplainCommand command = Command("auto");
    if (std::string(GetParam().layout) == "template") {
        EXPECT_THROW(static_cast<void>(Run(command)), CUsageError);
        return;
    }
    const Explained explained = Run(command);
    EXPECT_EQ(explained.exit, 0);
    if (GetParam().isForeign) return;
    EXPECT_EQ(explained.json.at("layout"), std::string("format ") + GetParam().format + ", by the marks in the text");
    EXPECT_EQ(explained.json.at("readers").back().at("layout"), GetParam().layout);
}

std::string NameOf(const testing::TestParamInfo<Sample>& sample) {
    std::string name = sample.param.name;
    std::ranges::replace(name, '-', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Samples, ExplainedSample, testing::ValuesIn(kSamples), NameOf);

}  // namespace
}  // namespace tradebill::explain_samples_test
