// What `explain` says of each sample statement after each kind of damage.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "base/text.h"
#include "cli/damaged_samples.h"

namespace tradebill::explain_damage_test {
namespace {

class DamagedStatement : public DamagedSampleFixture {
protected:
    /// What the sections other than `name` have read.
    static Json OthersThan(const Explained& explained, std::string_view name) {
        Json others = Json::object();
        for (const Json& section : explained.json.at("readers").back().at("sections")) {
            if (section.at("section") == name) continue;
            others[section.at("section").get<std::string>()] = {section.at("found"), section.at("rows_read"),
                                                                section.at("records")};
        }
        return others;
    }
    /// The money block of these layouts ends where the trades begin.
    static bool EndsMoneyWithTrades() { return Sample().name == "bilingual-new" || Sample().name == "template-pairs"; }

    /// Index of the line `count` rows below another; blank lines aren't rows.
    static std::size_t RowBelow(const std::vector<std::string>& lines, std::size_t index, std::size_t count) {
        while (count > 0) {
            if (!Trim(lines.at(++index)).empty()) --count;
        }
        return index;
    }
    /// The first two columns of a row.
    static std::string CutRow(const std::string& row) {
        if (row.find('|') != std::string::npos) return row.substr(0, row.find('|', row.find('|', 1) + 1) + 1);
        const std::size_t first = row.find(' ', row.find_first_not_of(' '));
        return row.substr(0, row.find(' ', row.find_first_not_of(' ', first)));
    }
    static Json SectionTitled(const Explained& explained, const std::string& title) {
        for (const Json& section : explained.json.at("readers").back().at("sections")) {
            if (section.at("title") == title) return section;
        }
        ADD_FAILURE() << "no section titled " << title;
        return Json::object();
    }
};

TEST_P(DamagedStatement, LacksASectionWithoutItsTitle) {
    const Explained whole = Explain(Whole());
    for (const SampleSection& section : Sample().sections) {
        const std::string name(section.name);
        const Explained damaged = Explain(Replaced(Whole(), section.title, "另册"));
        const Json lost = damaged.Section(name);
        EXPECT_EQ(lost.at("found"), false) << name;
        EXPECT_EQ(lost.at("title_line"), nullptr) << name;
        EXPECT_FALSE(lost.contains("unseen_title_line")) << name;
        EXPECT_EQ(lost.at("records"), 0) << name;
        const bool losesMoney = name == "money" || (name == "trades" && EndsMoneyWithTrades());
        EXPECT_EQ(damaged.exit, losesMoney ? 1 : 0) << name;
        if (Sample().isForeign || (losesMoney && name != "money")) continue;  // titles that end other sections
        EXPECT_EQ(OthersThan(damaged, name), OthersThan(whole, name)) << name;
        EXPECT_EQ(damaged.json.at("sections_found").get<int>(), whole.json.at("sections_found").get<int>() - 1);
    }
}

TEST_P(DamagedStatement, HasNoMoneyWithoutTheMoneySection) {
    const auto money = std::ranges::find(Sample().sections, "money", &SampleSection::name);
    const std::string damaged = Replaced(Whole(), money->title, "另册");
    const Explained explained = Explain(damaged);
    EXPECT_EQ(explained.json.at("money_records"), 0);
    EXPECT_EQ(explained.json.at("exit"), 1);
    const std::string words = ExplainInWords(damaged);
    EXPECT_NE(words.find("not found: no row contains its title \"" + std::string(money->title) + "\""),
              std::string::npos)
        << words;
    EXPECT_NE(words.find("but no money record"), std::string::npos) << words;
}

TEST_P(DamagedStatement, LacksItsLastSectionIfTheFileBreaksOff) {
    const Explained whole = Explain(Whole());
    const Json last = whole.json.at("readers").back().at("sections").back();
    std::vector<std::string> lines = Lines();
    lines.resize(IndexOf(last.at("end_line")));
    const Explained damaged = Explain(Joined(lines));
    const Json broken = SectionTitled(damaged, last.at("title"));
    if (!broken.contains("found")) return;  // told already
    EXPECT_EQ(broken.at("found"), false);
    EXPECT_EQ(broken.at("title_line"), last.at("title_line"));
    EXPECT_EQ(broken.at("end_line"), nullptr);
    EXPECT_EQ(broken.at("records"), 0);
    EXPECT_EQ(damaged.exit, 0);
    EXPECT_EQ(damaged.json.at("sections_found").get<int>(), whole.json.at("sections_found").get<int>() - 1);
    const std::string words = ExplainInWords(Joined(lines));
    const std::string sentence = "not found: its title stands at line " + last.at("title_line").dump() +
                                 ", but no row that ends it (" + last.at("end").get<std::string>() + ")";
    EXPECT_NE(words.find(sentence), std::string::npos) << words;
}

TEST_P(DamagedStatement, NamesARowThatIsTooShort) {
    const Explained whole = Explain(Whole());
    for (const SampleSection& section : Sample().sections) {
        const std::string name(section.name);
        const bool isPaired = Sample().isForeign && name == "closed";  // cutting a row changes the pairs behind it
        if (section.columns == 0) continue;
        const Json before = whole.Section(name);
        std::vector<std::string> lines = Lines();
        const std::size_t index = RowBelow(lines, IndexOf(before.at("title_line")), section.firstRow);
        lines[index] = CutRow(lines[index]);
        const Explained damaged = Explain(Joined(lines));
        const Json after = damaged.Section(name);
        const Json expected{{"line", index + 1}, {"reason", "too_short"}, {"columns", 2}, {"needed", section.columns}};
        const Json passedOver = after.at("rows_passed_over");
        EXPECT_TRUE(Holds(passedOver, expected)) << name << passedOver;
        EXPECT_EQ(OthersThan(damaged, name), OthersThan(whole, name)) << name;
        if (name == "money") {
            EXPECT_EQ(damaged.exit, 1);
            EXPECT_EQ(after.at("money"), Json::array());
        } else if (!isPaired) {
            EXPECT_EQ(damaged.exit, 0);
            EXPECT_EQ(after.at("rows_read").get<int>(), before.at("rows_read").get<int>() - 1) << name;
            EXPECT_LT(after.at("records"), before.at("records")) << name;
            EXPECT_EQ(passedOver.size(), before.at("rows_passed_over").size() + 1) << name;
        }
    }
}

TEST_P(DamagedStatement, TellsALabelThatIsMisspelt) {
    if (Sample().label.empty()) return;
    const std::string label(Sample().label);
    const Json before = Explain(Whole()).Section("money");
    EXPECT_TRUE(Holds(before.at("labels_met"), label));
    EXPECT_TRUE(before.at("money")[0].at("fields").contains("KHQY"));
    const std::string damaged = Replaced(Whole(), "权益", "权宜");
    const Explained explained = Explain(damaged);
    const Json after = explained.Section("money");
    EXPECT_EQ(explained.exit, 0);
    EXPECT_FALSE(Holds(after.at("labels_met"), label));
    EXPECT_TRUE(Holds(after.at("labels_not_met"), label));
    EXPECT_EQ(after.at("labels_met").size(), before.at("labels_met").size() - 1);
    EXPECT_FALSE(after.at("money")[0].at("fields").contains("KHQY"));
    const std::string words = ExplainInWords(damaged);
    const std::size_t at = words.find("labels not met: ");
    ASSERT_NE(at, std::string::npos) << words;
    EXPECT_NE(words.substr(at, words.find('\n', at) - at).find(label), std::string::npos) << words;
}

TEST_P(DamagedStatement, MeetsAllLabelsIfItIsWhole) {
    Json expected = Json::array();
    if (Sample().name == "bilingual") expected = {"权利金支出 Premium paid："};  // its row ends the block
    EXPECT_EQ(Explain(Whole()).Section("money").at("labels_not_met"), expected);
}

TEST_P(DamagedStatement, TellsASectionThatStandsAboveTheOthers) {
    if (Sample().isForeign) return;  // a title ends the table above it
    const Explained whole = Explain(Whole());
    const std::string name =
        Sample().keepsOrder ? whole.json.at("readers").back().at("sections").back().at("section").get<std::string>()
                            : "open";
    const Json before = whole.Section(name);
    std::vector<std::string> lines = Lines();
    const auto at = [&](const char* key) {
        return lines.begin() + static_cast<std::ptrdiff_t>(IndexOf(before.at(key)));
    };
    const std::vector<std::string> moved(at("title_line"), at("end_line") + 1);
    lines.erase(at("title_line"), at("end_line") + 1);
    lines.insert(lines.begin() + 1, moved.begin(), moved.end());
    const Explained explained = Explain(Joined(lines));
    const Json after = explained.Section(name);
    EXPECT_EQ(explained.exit, 0);
    EXPECT_EQ(OthersThan(explained, name), OthersThan(whole, name));
    EXPECT_EQ(after.at("found"), !Sample().keepsOrder);
    if (Sample().keepsOrder) {
        EXPECT_EQ(after.at("title_line"), nullptr);
        EXPECT_EQ(after.at("unseen_title_line"), 2);
        EXPECT_EQ(after.at("records"), 0);
        EXPECT_NE(ExplainInWords(Joined(lines)).find("its title stands at line 2, above where this reader looks"),
                  std::string::npos);
    } else {
        EXPECT_EQ(after.at("title_line"), 2);
        EXPECT_EQ(after.at("end_line"), 1 + moved.size());
        EXPECT_EQ(after.at("records"), before.at("records"));
        EXPECT_EQ(explained.json.at("readers").back().at("sections")[0].at("section"), name);  // in file order
    }
}

INSTANTIATE_TEST_SUITE_P(Samples, DamagedStatement, testing::ValuesIn(DamagedSamples()), DamagedSampleName);

}  // namespace
}  // namespace tradebill::explain_damage_test
