// Statements written to a file, explained, and what the explanation says.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "cli/explain_command.h"
#include "support/gbk_text.h"
#include "support/temp_folder.h"

namespace tradebill {

using Json = nlohmann::json;

struct Explained {
    int exit = -1;
    std::string output;
    Json json;  ///< of the JSON form

    /// The first section of this name in the last reader's pass.
    [[nodiscard]] Json Section(const std::string& name) const {
        for (const Json& section : json.at("readers").back().at("sections")) {
            if (section.at("section") == name) return section;
        }
        ADD_FAILURE() << "no section " << name;
        return Json::object();
    }
};

class ExplainFixture : public testing::Test {
protected:
    static Explained Run(ExplainCommand command) {
        Explained explained;
        testing::internal::CaptureStdout();
        try {
            explained.exit = RunExplainCommand(command);
        } catch (...) {
            testing::internal::GetCapturedStdout();
            throw;
        }
        explained.output = testing::internal::GetCapturedStdout();
        if (command.asJson) explained.json = Json::parse(explained.output);
        return explained;
    }

    /// The statement of the command with another format.
    [[nodiscard]] Explained Explain(const std::string& text, const std::string& format) const {
        return Run({.statementFile = folder_.Write("D1.20240102o.txt", text),
                    .format = format,
                    .kind = {},
                    .templateFile = {},
                    .day = {},
                    .asJson = true});
    }
    [[nodiscard]] std::string ExplainAsText(const std::string& text, const std::string& format) const {
        return Run({.statementFile = folder_.Write("D1.20240102o.txt", text),
                    .format = format,
                    .kind = {},
                    .templateFile = {},
                    .day = {}})
            .output;
    }

    CTempFolder folder_;
};

/// A statement of format 1 with a money block, two trades and a position; blank lines among them.
inline std::string SmallStatement() {
    return Statement({"结算单",                                      // 1
                      "日  期:20240102",                             // 2
                      "",                                            // 3
                      "资金状况",                                    // 4
                      "----------",                                  // 5
                      "",                                            // 6
                      "客户权益: 500.00 可用资金: 300.00",           // 7
                      "手续费: 1.00 无名: 2",                        // 8
                      "----------",                                  // 9
                      "成交记录",                                    // 10
                      "----------",                                  // 11
                      "成交日期",                                    // 12
                      "20240102 大商所 i 2405 买 开 1 2 3 4 5 投",   // 13
                      "20240102 大商所 i 2405 卖 开 1",              // 14
                      "",                                            // 15
                      "20240102 大商所 i 2405 卖 平 1 2 3 4 5 投",   // 16
                      "共 2条",                                      // 17
                      "持仓明细",                                    // 18
                      "----------",                                  // 19
                      "交易所",                                      // 20
                      "大商所 i 2405 20240102 买 投 1 2 3 4 5 6 7",  // 21
                      "共 1条"});                                    // 22
}

}  // namespace tradebill
