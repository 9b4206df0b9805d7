// The sample statements as a person reads them, and ways to damage one.
#pragma once

#include <algorithm>
#include <filesystem>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "cli/explain_fixture.h"

namespace tradebill {

/// A section of a sample's layout: the title word, how many rows below the title its data begins, and how many columns
/// a row must have (0: labels and values).
struct SampleSection {
    std::string_view name;
    std::string_view title;
    std::size_t firstRow;
    int columns;
};

struct DamagedSample {
    std::string_view name;
    std::string_view format;
    bool isForeign;
    bool hasTemplate;
    bool keepsOrder;         ///< sections are looked for behind one another
    std::string_view label;  ///< of the equity, if the money section has labels
    std::vector<SampleSection> sections;
};

inline void PrintTo(const DamagedSample& sample, std::ostream* out) {
    *out << sample.name;
}

/// One statement of each layout, of 29 January 2024.
// clang-format off
inline const std::vector<DamagedSample>& DamagedSamples() {
    static const std::vector<DamagedSample> samples{
        {"fund-class", "0", false, false, true, "客户权益", {
            {"money", "资金类别", 2, 0}, {"trades", "成交记录", 3, 12}, {"closed", "平仓明细", 3, 13},
            {"open", "持仓明细", 3, 13}}},
        {"fund-status", "1", false, false, true, "客户权益", {
            {"money", "资金状况", 2, 0}, {"trades", "成交记录", 3, 12}, {"closed", "平仓明细", 3, 12},
            {"open", "持仓明细", 3, 13}, {"summary", "持仓汇总", 3, 13}}},
        {"fund-status-premium", "1", false, false, false, "客户权益:", {
            {"money", "资金状况", 2, 0}, {"trades", "成交记录", 3, 11}, {"closed", "平仓明细", 3, 11},
            {"open", "持仓明细", 3, 11}}},
        {"tabulated", "3", false, false, true, "客户权益", {
            {"money", "资金状况", 2, 0}, {"trades", "成交记录", 4, 12}, {"closed", "平仓明细", 4, 11},
            {"open", "持仓明细", 4, 13}, {"summary", "持仓汇总", 4, 11}}},
        {"client-bill", "2", false, false, true, "", {
            {"money", "客户帐单_资金清单", 4, 9}, {"trades", "客户帐单_成交记录单", 4, 12},
            {"open", "客户帐单_持仓盈亏单", 4, 11}, {"closed", "客户帐单_平仓盈亏单", 4, 12}}},
        {"client-bill-premium", "201", false, false, false, "", {
            {"money", "客户帐单_资金清单", 4, 9}, {"trades", "客户帐单_成交记录单", 4, 13},
            {"open", "客户帐单_持仓盈亏单", 4, 11}, {"closed", "客户帐单_平仓盈亏单", 4, 11}}},
        {"spaced-title", "6", false, false, true, "", {
            {"money", "资 金 清 单", 3, 5}, {"trades", "成 交 记 录 单", 3, 9}, {"closed", "平 仓 盈 亏 单", 3, 10},
            {"open", "持仓明细", 3, 13}, {"summary", "持 仓 盈 亏 汇 总", 3, 8}}},
        {"spaced-title-premium", "6", false, false, true, "", {
            {"money", "资 金 清 单", 3, 5}, {"trades", "成 交 记 录 单", 3, 9}, {"closed", "平 仓 盈 亏 单", 3, 10},
            {"open", "持仓明细", 3, 13}, {"summary", "持 仓 盈 亏 汇 总", 3, 8}}},
        {"bilingual", "3", false, false, false, "客户权益 Client Equity：：", {
            {"money", "资金状况", 2, 0}, {"trades", "成交记录", 5, 11}, {"closed", "平仓明细", 5, 11},
            {"open", "持仓明细", 5, 11}}},
        {"bilingual-new", "3", false, true, false, "客户权益 Client Equity:", {
            {"money", "资金状况", 2, 0}, {"trades", "成交记录", 5, 11}, {"closed", "平仓明细", 5, 11},
            {"open", "持仓明细", 5, 11}}},
        {"template-pairs", "1", false, true, false, "权益 Equity", {
            {"money", "资金 Funds", 2, 0}, {"trades", "成交 Trades", 4, 11}, {"closed", "平仓 Closed", 4, 11},
            {"open", "持仓 Positions", 4, 11}, {"summary", "总览 Overview", 4, 12}}},
        {"template-row", "201", false, true, false, "", {
            {"money", "资金表 Funds", 4, 9}, {"trades", "成交表 Trades", 4, 11}, {"closed", "平仓表 Closed", 4, 11},
            {"open", "持仓表 Positions", 4, 11}}},
        {"foreign", "0", true, false, false, "当前权益", {
            {"trades", "成交记录", 5, 7}, {"closed", "平仓明细", 4, 7}, {"open", "持仓明细", 5, 7},
            {"money", "资金汇总", 2, 0}}},
    };
    return samples;
}
// clang-format on

class DamagedSampleFixture : public ExplainFixture, public testing::WithParamInterface<DamagedSample> {
protected:
    [[nodiscard]] static const DamagedSample& Sample() { return GetParam(); }
    [[nodiscard]] static std::string Folder() {
        return std::string(TRADEBILL_SAMPLES) + "/" + std::string(Sample().name) + "/root";
    }
    [[nodiscard]] static std::string TemplateFile() { return Folder() + "/BillTemplate/songta.ini"; }

    /// The bytes of the sample's statement.
    [[nodiscard]] static std::string Whole() {
        for (const auto& entry : std::filesystem::directory_iterator(Folder() + "/Users/demo/Data/Bill")) {
            const std::string name = entry.path().filename().string();
            if (name.find(".20240129o.") != std::string::npos) return ReadFile(entry.path().string());
        }
        ADD_FAILURE() << "no statement in " << Folder();
        return {};
    }
    [[nodiscard]] static std::vector<std::string> Lines() {
        std::vector<std::string> lines;
        const std::string text = Whole();
        for (std::size_t start = 0; start < text.size();) {
            const std::size_t end = text.find("\r\n", start);
            lines.push_back(text.substr(start, end - start));
            start += lines.back().size() + 2;
        }
        return lines;
    }
    [[nodiscard]] static std::string Joined(const std::vector<std::string>& lines) {
        std::string text;
        for (const std::string& line : lines) text += line + "\r\n";
        return text;
    }

    [[nodiscard]] ExplainCommand CommandFor(const std::string& text) const {
        ExplainCommand command{.statementFile = folder_.Write("D1.20240129o.txt", text),
                               .format = std::string(Sample().format),
                               .kind = {},
                               .templateFile = {},
                               .day = {},
                               .asJson = true};
        if (Sample().isForeign) command.kind = "foreign";
        if (Sample().hasTemplate) command.templateFile = TemplateFile();
        return command;
    }
    [[nodiscard]] Explained Explain(const std::string& text) const { return Run(CommandFor(text)); }
    [[nodiscard]] std::string ExplainInWords(const std::string& text) const {
        ExplainCommand command = CommandFor(text);
        command.asJson = false;
        return Run(command).output;
    }

    /// `text` with each `from` in it replaced.
    static std::string Replaced(std::string text, std::string_view from, std::string_view to) {
        const std::string word = Gbk(from);
        const std::string other = Gbk(to);
        std::size_t at = text.find(word);
        EXPECT_NE(at, std::string::npos) << from;
        for (; at != std::string::npos; at = text.find(word, at + other.size())) text.replace(at, word.size(), other);
        return text;
    }

    /// Whether `item` is in a JSON list.
    [[nodiscard]] static bool Holds(const Json& list, const Json& item) {
        return std::find(list.begin(), list.end(), item) != list.end();
    }
    [[nodiscard]] static std::size_t IndexOf(const Json& line) { return line.get<std::size_t>() - 1; }
};

inline std::string DamagedSampleName(const testing::TestParamInfo<DamagedSample>& sample) {
    std::string name(sample.param.name);
    std::ranges::replace(name, '-', '_');
    return name;
}

}  // namespace tradebill
