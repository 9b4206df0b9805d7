// The program run as a shell runs it, on a copy of a sample.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <initializer_list>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>

#include "platform/local_time.h"
#include "support/shell.h"
#include "support/temp_folder.h"

namespace tradebill {

namespace fs = std::filesystem;

class Program : public testing::Test {
protected:
    /// A copy of the sample account that bears all of an account's files.
    Program() { fs::copy(std::string(TRADEBILL_SAMPLES) + "/fund-status", sample_, fs::copy_options::recursive); }

    Answer Run(const std::string& arguments) const { return RunProgram(folder_, arguments); }

    /// The report of the sample, with `more` behind its options.
    [[nodiscard]] std::string Report(const std::string& more = {}) const {
        return "report --root " + Quoted(root_) + " --request " + Quoted(sample_ + "/request.ini") + " " + more;
    }
    /// The options of a report of two days, each as it is unless `changed`.
    [[nodiscard]] std::string Options(const std::string& option = {}, const std::string& changed = {}) const {
        std::string text = "report";
        for (const auto& [name, value] :
             std::initializer_list<std::pair<std::string, std::string>>{{"--root", root_},
                                                                        {"--user", "demo"},
                                                                        {"--account", "90010002"},
                                                                        {"--from", "2024-01-02"},
                                                                        {"--to", "2024-01-03"},
                                                                        {"--format", "1"}}) {
            if (name != option) text += " " + name + " " + Quoted(value);
        }
        return option.empty() || changed.empty() ? text : text + " " + option + " " + Quoted(changed);
    }
    [[nodiscard]] std::string PageFile() const { return root_ + "/Users/demo/Data/Bill/Image/TradeBill.html"; }

    CTempFolder folder_;
    std::string sample_ = folder_.Path("sample");
    std::string root_ = sample_ + "/root";
};

}  // namespace tradebill
