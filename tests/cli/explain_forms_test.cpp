// The two forms of an explanation, words and JSON, and the stores behind them.
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/damaged_samples.h"
#include "readers/statement_loader.h"
#include "report/report.h"
#include "report/request_copy.h"
#include "requests/format_choice.h"
#include "requests/scan_report.h"
#include "support/report_json.h"

namespace tradebill::explain_forms_test {
namespace {

/// Checks that phrases stand in a text, one behind the other.
class CPhrases {
public:
    explicit CPhrases(const std::string& text) : text_(text) {}

    void Expect(const std::string& phrase) {
        const std::size_t found = text_.find(phrase, at_);
        EXPECT_NE(found, std::string::npos) << phrase << " behind byte " << at_ << " of\n" << text_;
        if (found != std::string::npos) at_ = found + phrase.size();
    }

    /// The rest of the line behind the last phrase.
    [[nodiscard]] std::string RestOfLine() const { return text_.substr(at_, text_.find('\n', at_) - at_) + " "; }

private:
    const std::string& text_;
    std::size_t at_ = 0;
};

std::string Counted(const Json& count, const std::string& one, const std::string& many) {
    return count.dump() + " " + (count == 1 ? one : many);
}

std::string Joined(const Json& words) {
    std::string text;
    for (const Json& word : words) text += (text.empty() ? "" : ", ") + word.get<std::string>();
    return text;
}

void ExpectMoney(const Json& section, CPhrases& words) {
    if (!section.at("labels_met").empty()) words.Expect("labels met: " + Joined(section.at("labels_met")) + "\n");
    if (!section.at("labels_not_met").empty()) {
        words.Expect("labels not met: " + Joined(section.at("labels_not_met")) + "\n");
    }
    for (const Json& money : section.at("money")) {
        const auto currency = money.at("currency").get<std::string>();
        words.Expect("money record" + (currency.empty() ? "" : " " + currency) + ":");
        for (const auto& [name, value] : money.at("fields").items()) {
            const std::string field = " " + name + "=" + value.get<std::string>() + " ";
            EXPECT_NE(words.RestOfLine().find(field), std::string::npos) << field;
        }
    }
}

void ExpectSection(const Json& section, CPhrases& words) {
    static const Json kNames{{"money", "money"},
                             {"trades", "trades"},
                             {"closed", "closed positions"},
                             {"open", "open positions"},
                             {"summary", "position summary"}};
    words.Expect("  " + kNames.at(section.at("section").get<std::string>()).get<std::string>() + " ");
    const std::string end = section.at("end").get<std::string>();
    if (!section.at("found").get<bool>()) {
        words.Expect("not found: ");
        if (!section.at("title_line").is_null()) {
            words.Expect("line " + section.at("title_line").dump() + ", but no row that ends it (" + end + ")");
        } else if (section.contains("unseen_title_line")) {
            words.Expect("line " + section.at("unseen_title_line").dump());
        } else {
            words.Expect("\"" + section.at("title").get<std::string>() + "\"");
        }
        return;
    }
    words.Expect("from line " + section.at("title_line").dump());
    if (!section.at("end_line").is_null()) words.Expect(" to line " + section.at("end_line").dump() + " (" + end + ")");
    const Json passedOver = section.at("rows_passed_over");
    words.Expect("\n    " + Counted(section.at("rows_read"), "row read", "rows read") + ", " +
                 std::to_string(passedOver.size()) + " passed over, " +
                 Counted(section.at("records"), "record", "records") + "\n");
    std::size_t shown = 0;
    for (const Json& row : passedOver) {
        if (++shown > 20) break;
        words.Expect("line " + row.at("line").dump() + " passed over: ");
        if (row.at("reason") == "too_short") {
            words.Expect(Counted(row.at("columns"), "column, ", "columns, ") + row.at("needed").dump() + " needed\n");
        }
    }
    if (shown > 20) words.Expect("... and " + std::to_string(passedOver.size() - 20) + " more\n");
    if (section.contains("money")) ExpectMoney(section, words);
}

void ExpectSameFacts(const Json& json, const std::string& text) {
    CPhrases words(text);
    words.Expect("Statement   " + json.at("file").get<std::string>() + ", " +
                 Counted(json.at("lines"), "line", "lines") + "\n");
    words.Expect("Day         " + json.at("day").get<std::string>() + " (" + json.at("day_from").get<std::string>());
    words.Expect("Layout      " + json.at("layout").get<std::string>());
    for (const Json& reader : json.at("readers")) {
        const auto reason = reader.at("reason").get<std::string>();
        if (!reason.empty()) words.Expect(", " + reason);
    }
    for (const Json& reader : json.at("readers")) {
        words.Expect("\nRead as " + reader.at("layout").get<std::string>() + "\n");
        if (reader.contains("date")) {
            const Json date = reader.at("date");
            const auto found = date.at("date").get<std::string>();
            words.Expect((found.empty() ? "none" : "\"" + found + "\"") + " behind \"" +
                         date.at("word").get<std::string>() + "\"");
        }
        for (const Json& section : reader.at("sections")) ExpectSection(section, words);
    }
    if (json.contains("error")) {
        words.Expect("so would a report: " + json.at("error").get<std::string>());
    } else if (json.at("exit") == 3) {
        words.Expect("\nNothing was recognised.\n");
    } else {
        words.Expect("\n" + Counted(json.at("sections_found"), "section found, ", "sections found, "));
        const Json records = json.at("money_records");
        words.Expect(records == 0 ? "but no money record" : Counted(records, "money record.", "money records."));
    }
    std::string options;
    for (const Json& option : json.at("looks_like")) {
        options += (options.empty() ? "" : " or ") + option.get<std::string>();
    }
    if (!options.empty()) words.Expect("This looks like " + options + ".\n");
    EXPECT_EQ(text.find("This looks like") == std::string::npos, options.empty());
}

class ExplanationForms : public DamagedSampleFixture {
protected:
    /// Both forms of the statement read as this format.
    void ExpectSameForms(const std::string& text, const std::optional<std::string>& format) const {
        ExplainCommand command = CommandFor(text);
        if (format) command.format = format;
        const Explained asJson = Run(command);
        command.asJson = false;
        const Explained inWords = Run(command);
        EXPECT_EQ(inWords.exit, asJson.exit);
        EXPECT_EQ(asJson.json.at("exit"), asJson.exit);
        ExpectSameFacts(asJson.json, inWords.output);
    }
};

TEST_P(ExplanationForms, SayTheSame) {
    ExpectSameForms(Whole(), {});
}

TEST_P(ExplanationForms, SayTheSameOfAWrongFormat) {
    for (const std::string format : {"0", "1", "2", "3", "6", "201"}) ExpectSameForms(Whole(), format);
}

TEST_P(ExplanationForms, SayTheSameOfDamage) {
    for (const SampleSection& section : Sample().sections)
        ExpectSameForms(Replaced(Whole(), section.title, "另册"), {});
    const std::string whole = Whole();
    for (std::size_t tenth = 0; tenth < 10; ++tenth) ExpectSameForms(whole.substr(0, whole.size() * tenth / 10), {});
}

TEST_P(ExplanationForms, CountSectionsAndMoneyRecordsOnce) {
    const Json json = Explain(Whole()).json;
    int sections = 0;
    std::size_t records = 0;
    for (const Json& section : json.at("readers").back().at("sections")) {
        if (section.at("found").get<bool>()) ++sections;
        if (section.contains("money")) records += section.at("money").size();
    }
    EXPECT_EQ(json.at("sections_found"), sections);
    EXPECT_EQ(json.at("money_records"), records);
}

TEST_P(ExplanationForms, LeaveTheStoresAsAPlainReadingDoes) {
    const auto ask = [](CReport& report) {
        report.Request.StatementFormat = FormatNumber(std::string(Sample().format), true);
        report.Request.StatementKind = Sample().isForeign ? kForeignKind : 1;
        if (Sample().hasTemplate) report.TemplatePath = TemplateFile();
    };
    const std::string text = Whole();
    CScanReport seen(text);
    CReport explained;
    ask(explained);
    CStatementLoader(explained).Read("20240129", text, &seen);
    seen.Finish();
    EXPECT_GT(seen.MoneyRecords(), 0);
    CReport plain;
    ask(plain);
    const std::string path = folder_.Write("plain.txt", text);
    EXPECT_EQ(CStatementLoader(plain).Load("20240129", path).state, StatementState::Read);
    EXPECT_EQ(ReportJson(plain), ReportJson(explained));
}

TEST_P(ExplanationForms, LeaveNothingOfTheStatementBefore) {
    const Explained once = Explain(Whole());
    EXPECT_EQ(once.exit, 0);
    static_cast<void>(Explain(SmallStatement()));
    EXPECT_EQ(Explain(Whole()).json, once.json);
}

TEST_P(ExplanationForms, LeaveTheStatementAlone) {
    static_cast<void>(Explain(Whole()));
    EXPECT_EQ(ReadFile(folder_.Path("D1.20240129o.txt")), Whole());
}

INSTANTIATE_TEST_SUITE_P(Samples, ExplanationForms, testing::ValuesIn(DamagedSamples()), DamagedSampleName);

class ExplanationOfOneStatement : public ExplainFixture {};

TEST_F(ExplanationOfOneStatement, ShowsTheFirstTwentyRowsPassedOver) {
    for (const int rows : {20, 21, 23}) {
        std::string text = Statement({"结算单", "成交记录", "-", "-"});
        for (int i = 0; i < rows; ++i) text += "short row\r\n";
        text += Statement({"共"});
        const std::string words = ExplainAsText(text, "1");
        EXPECT_NE(words.find("0 rows read, " + std::to_string(rows) + " passed over, 0 records\n"), std::string::npos);
        EXPECT_NE(words.find("line 24 passed over: 2 columns, 12 needed\n"), std::string::npos) << words;
        EXPECT_EQ(words.find("line 25 passed over"), std::string::npos) << words;
        const std::string more = "    ... and " + std::to_string(rows - 20) + " more\n";
        EXPECT_EQ(words.find(more) != std::string::npos, rows > 20) << words;
        EXPECT_EQ(Explain(text, "1").Section("trades").at("rows_passed_over").size(), static_cast<std::size_t>(rows));
    }
}

TEST_F(ExplanationOfOneStatement, IsJsonWhateverTheBytes) {
    std::string text = SmallStatement();
    for (std::size_t i = 0; i < text.size(); i += 7) {
        std::string damaged = text;
        damaged[i] = static_cast<char>(0x81 + i % 0x7E);
        const Explained explained = Explain(damaged, "1");  // parses what was printed
        EXPECT_TRUE(explained.exit == 0 || explained.exit == 1) << i;
        ExpectSameFacts(explained.json, ExplainAsText(damaged, "1"));
    }
}

TEST_F(ExplanationOfOneStatement, EndsAtAZeroByte) {
    std::string text = SmallStatement();
    const std::size_t cut = text.find(Gbk("持仓明细"));
    text[cut] = '\0';
    const Explained explained = Explain(text, "1");
    EXPECT_EQ(explained.json.at("lines"), 17);
    EXPECT_EQ(explained.Section("open").at("found"), false);
    EXPECT_EQ(explained.Section("trades").at("found"), true);
}

}  // namespace
}  // namespace tradebill::explain_forms_test
