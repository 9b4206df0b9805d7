// Batches of small accounts, made by the program as a user runs it.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <vector>

#include "batch/results_file.h"
#include "report/account_key.h"
#include "support/shell.h"
#include "support/temp_folder.h"

namespace tradebill {

class BatchFixture : public testing::Test {
protected:
    /// Statements of an account: the first `days` of a sample's, with its number in the place of theirs.
    void Put(const std::string& account, int days = 2, const std::string& user = "demo") const {
        PutSample("fund-status", "D90010002", "D" + account, days, user);
    }
    void PutForeign(const std::string& account, int days = 2, const std::string& user = "demo") const {
        PutSample("foreign", "DWP60010001", "DWP" + account, days, user);
    }

    [[nodiscard]] Answer Batch(const std::string& arguments) const {
        return RunProgram(folder_, "batch --root " + Quoted(root_) + " --out " + Quoted(out_) + " " + arguments);
    }
    [[nodiscard]] ResultsByAccount Results(const std::string& name = "results.jsonl") const {
        return LoadResults(out_ + "/" + name).results;
    }
    [[nodiscard]] AccountResult ResultOf(const std::string& account) const {
        const ResultsByAccount results = Results();
        const auto found = results.find({.user = "demo", .account = account});
        if (found != results.end()) return found->second;
        AccountResult none;
        none.reason = "no result of " + account;
        return none;
    }
    /// "demo/90010001 ok", in the order of the keys.
    [[nodiscard]] std::vector<std::string> Ends(const std::string& name = "results.jsonl") const {
        std::vector<std::string> ends;
        for (const auto& [key, result] : Results(name)) {
            ends.push_back(key.user + "/" + key.account + (key.isForeign ? " foreign " : " ") +
                           std::string(StatusName(result.status)));
        }
        return ends;
    }
    [[nodiscard]] std::string FolderOfAccount(const std::string& account) const {
        return out_ + "/accounts/domestic/demo/" + account;
    }
    [[nodiscard]] std::string Bills(const std::string& user = "demo") const {
        return root_ + "/Users/" + user + "/Data/Bill";
    }
    [[nodiscard]] std::ptrdiff_t Lines(const std::string& name = "results.jsonl") const {
        return std::ranges::count(ReadFile(out_ + "/" + name), '\n');
    }
    /// What lies right in the output folder, in order.
    [[nodiscard]] std::vector<std::string> NamesInOut() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(out_)) {
            names.push_back(entry.path().filename().string());
        }
        std::ranges::sort(names);
        return names;
    }
    [[nodiscard]] std::string PutManifest(const std::string& text) const {
        WriteFile(folder_.Path("manifest"), text);
        return "--manifest " + Quoted(folder_.Path("manifest")) + " ";
    }

    static void WriteFile(const std::string& path, const std::string& text) {
        std::ofstream(path, std::ios::binary) << text;
    }

    CTempFolder folder_;
    std::string root_ = folder_.Path("root");
    std::string out_ = folder_.Path("made");

private:
    void PutSample(const std::string& sample, const std::string& from, const std::string& to, int days,
                   const std::string& user) const {
        namespace fs = std::filesystem;
        const std::string bills = Bills(user);
        fs::create_directories(bills);
        std::vector<std::string> names;
        for (const auto& entry :
             fs::directory_iterator(std::string(TRADEBILL_SAMPLES) + "/" + sample + "/root/Users/demo/Data/Bill")) {
            if (entry.is_regular_file()) names.push_back(entry.path().string());
        }
        std::ranges::sort(names);
        for (const std::string& name : std::vector(names.begin(), names.begin() + days)) {
            std::string text = ReadFile(name);
            const std::string number = from.substr(from.find_first_of("0123456789"));
            const std::string own = to.substr(to.find_first_of("0123456789"));
            for (std::size_t at = text.find(number); at != std::string::npos; at = text.find(number, at + own.size())) {
                text.replace(at, number.size(), own);
            }
            WriteFile(bills + "/" + to + fs::path(name).filename().string().substr(from.size()), text);
        }
    }
};

}  // namespace tradebill
