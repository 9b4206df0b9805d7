// A root folder with one user, options that name it, and what a wrong use is answered with.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>

#include "requests/report_options.h"
#include "requests/usage_error.h"
#include "support/gbk_text.h"
#include "support/temp_folder.h"

namespace tradebill {

/// The message of the CUsageError that `action` throws; empty if it throws none.
template <class Action>
std::string UsageErrorOf(Action action) {
    try {
        action();
    } catch (const CUsageError& error) {
        return error.what();
    }
    return {};
}

/// One line that says what was expected and where or for which option.
inline bool IsClearLine(std::string_view message, std::string_view place) {
    return message.find(place) != std::string_view::npos && message.find("expected") != std::string_view::npos &&
           message.find('\n') == std::string_view::npos;
}

class CliFixture : public testing::Test {
protected:
    CliFixture() {
        std::filesystem::create_directories(root_.Path("Users/demo"));
        options_.root = root_.Path();
        options_.user = "demo";
        options_.account = "90010002";
        options_.from = "2024-01-02";
        options_.to = "2024-01-03";
        options_.format = "1";
    }

    /// A day's statement with a block of funds and one open position.
    void PutStatement(const std::string& day, const std::string& closing) const {
        root_.Write("Users/demo/Data/Bill/D90010002." + day + "o.txt",
                    Statement({"结算单", "日  期:" + day, "资金状况", "----------",
                               "上日结存: 1000.00 当日结存: " + closing, "客户权益: " + closing + " 可用资金: 0.00",
                               "----------", "持仓明细", "----------", "交易所 品种 ...",
                               "大商所 i 2405 20231229 买 投 1 900.0 895.0 890.0 0.00 0.00 9000.00", "共 1条"}));
    }

    [[nodiscard]] std::string PageFile() const { return root_.Path("Users/demo/Data/Bill/Image/TradeBill.html"); }

    CTempFolder root_;
    ReportOptions options_;
};

}  // namespace tradebill
