// Lines, rows and records that a person finds in the sample statements of 4 January 2024.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "cli/explain_fixture.h"

namespace tradebill::explain_lines_test {
namespace {

class ExplainedLines : public ExplainFixture {
protected:
    [[nodiscard]] Explained ExplainSample(std::string_view sample, const std::string& format) const {
        const std::string root = std::string(TRADEBILL_SAMPLES) + "/" + std::string(sample) + "/root";
        ExplainCommand command{
            .statementFile = {}, .format = format, .kind = {}, .templateFile = {}, .day = {}, .asJson = true};
        for (const auto& entry : std::filesystem::directory_iterator(root + "/Users/demo/Data/Bill")) {
            const std::string name = entry.path().filename().string();
            if (name.find(".20240104o.") != std::string::npos) {
                command.statementFile = folder_.Write(name, ReadFile(entry.path().string()));
            }
        }
        const std::string templateFile = root + "/BillTemplate/songta.ini";
        if (std::filesystem::exists(templateFile)) command.templateFile = templateFile;
        if (sample == "foreign") command.kind = "foreign";
        return Run(command);
    }
    /// [title line, end line, rows read, records] of each section in its order.
    static Json FiguresOf(const Explained& explained) {
        Json figures = Json::array();
        for (const Json& section : explained.json.at("readers").back().at("sections")) {
            figures.push_back({section.at("section"), section.at("title_line"), section.at("end_line"),
                               section.at("rows_read"), section.at("records")});
        }
        return figures;
    }
    /// "line reason" of each row passed over.
    static Json PassedOver(const Json& section) {
        Json rows = Json::array();
        for (const Json& row : section.at("rows_passed_over")) {
            rows.push_back(row.at("line").dump() + " " + row.at("reason").get<std::string>());
        }
        return rows;
    }
};

TEST_F(ExplainedLines, OfAStatementWithASummary) {
    const Explained explained = ExplainSample("fund-status", "1");
    EXPECT_EQ(explained.json.at("lines"), 61);
    EXPECT_EQ(FiguresOf(explained), (Json{{"money", 7, 15, 6, 1},
                                          {"trades", 17, 24, 3, 3},
                                          {"closed", 27, 32, 1, 1},
                                          {"open", 35, 46, 7, 7},
                                          {"summary", 49, 58, 5, 5}}));
    // The rule above each count has no columns to speak of.
    EXPECT_EQ(explained.Section("trades").at("rows_passed_over"),
              (Json::array({{{"line", 23}, {"reason", "rule"}, {"columns", 1}}})));
    EXPECT_EQ(PassedOver(explained.Section("open")), (Json::array({"45 rule"})));
    EXPECT_EQ(explained.Section("money").at("money"), (Json::array({{{"currency", ""},
                                                                     {"fields",
                                                                      {{"BILL_DATE", "20240104"},
                                                                       {"QCQY", "500824.20"},
                                                                       {"QMJC", "520331.70"},
                                                                       {"CRJ", "0.00"},
                                                                       {"KHQY", "520331.70"},
                                                                       {"PCYK", "7400.00"},
                                                                       {"BZJZY", "96288.90"},
                                                                       {"CCDSYK", "12160.00"},
                                                                       {"KYZJ", "424042.80"},
                                                                       {"SXF", "52.50"}}}}})));
}

TEST_F(ExplainedLines, OfAStatementOfSheets) {
    const Explained explained = ExplainSample("client-bill", "2");
    EXPECT_EQ(
        FiguresOf(explained),
        (Json{{"money", 2, 4, 1, 1}, {"trades", 10, 17, 2, 2}, {"open", 21, 31, 5, 5}, {"closed", 35, 41, 1, 1}}));
    EXPECT_EQ(PassedOver(explained.Section("trades")), (Json::array({"16 rule"})));
    const Json fields = explained.Section("money").at("money")[0].at("fields");
    EXPECT_EQ(fields.at("QCQY"), "902965.17");
    EXPECT_EQ(fields.at("BZJZY"), "187748.20");
    EXPECT_EQ(explained.Section("money").at("labels_met"), Json::array());
    EXPECT_EQ(explained.Section("money").at("labels_not_met"), Json::array());
}

TEST_F(ExplainedLines, OfAForeignStatement) {
    const Explained explained = ExplainSample("foreign", "0");
    EXPECT_EQ(explained.json.at("lines"), 69);
    EXPECT_EQ(FiguresOf(explained), (Json{{"trades", 6, 21, 3, 3},
                                          {"closed", 21, 30, 1, 1},
                                          {"open", 30, 43, 3, 3},
                                          {"money", 43, 53, 8, 4},
                                          {"money", 56, 66, 8, 1}}));
    EXPECT_EQ(PassedOver(explained.Section("trades")),
              (Json{"10 heading", "12 subtotal", "13 heading", "15 subtotal", "16 heading", "18 subtotal"}));
    EXPECT_EQ(PassedOver(explained.Section("closed")), (Json{"25 first_of_pair", "27 subtotal"}));
    EXPECT_EQ(PassedOver(explained.Section("open")), (Json{"34 heading", "36 subtotal", "37 heading", "40 subtotal"}));
    std::vector<std::string> currencies;
    const Json money = explained.Section("money").at("money");
    for (const Json& record : money) currencies.push_back(record.at("currency"));
    EXPECT_EQ(currencies, (std::vector<std::string>{"HKD*", "HKD", "USD", "EUR"}));
    EXPECT_EQ(explained.json.at("money_records"), 5);
}

TEST_F(ExplainedLines, HoldAllRecordsOfTheSamples) {
    const struct {
        const char* sample;
        const char* format;
        Json records;
    } samples[] = {
        {"fund-class", "0", {{"money", 1}, {"trades", 3}, {"closed", 2}, {"open", 8}}},
        {"tabulated", "3", {{"money", 1}, {"trades", 4}, {"closed", 3}, {"open", 2}, {"summary", 2}}},
        {"bilingual", "3", {{"money", 1}, {"trades", 8}, {"closed", 7}, {"open", 3}}},
        {"client-bill-premium", "201", {{"money", 1}, {"trades", 3}, {"open", 5}, {"closed", 2}}},  // one of both sides
        {"spaced-title", "6", {{"money", 1}, {"trades", 4}, {"closed", 2}, {"open", 4}, {"summary", 4}}},
        {"template-pairs", "1", {{"money", 1}, {"trades", 6}, {"closed", 4}, {"open", 4}, {"summary", 4}}},
        {"template-row", "201", {{"money", 1}, {"trades", 3}, {"closed", 0}, {"open", 5}}},
    };
    for (const auto& sample : samples) {
        const Explained explained = ExplainSample(sample.sample, sample.format);
        for (const auto& [section, records] : sample.records.items()) {
            EXPECT_EQ(explained.Section(section).at("records"), records) << sample.sample << section;
        }
        EXPECT_EQ(explained.json.at("readers").back().at("sections").size(), sample.records.size()) << sample.sample;
    }
}

}  // namespace
}  // namespace tradebill::explain_lines_test
