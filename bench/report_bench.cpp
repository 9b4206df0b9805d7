// Makes accounts of its own and prints what a report of them costs, as ratios that hold on any machine.
//
// Usage: report_bench [--runs N] [--folder FOLDER] [SIZE...]
// SIZE is S, M, L (all three without) or tiny, which is as little as shows that everything runs. All that is made goes
// into a folder of its own in FOLDER (/dev/shm, if it is there), and goes with it.
#include "report_bench.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace tradebill {
namespace {

/// In memory, if the system has such a place: disks are noisier than programs.
std::string FolderOfData() {
    const std::string memory = "/dev/shm";
    return ::access(memory.c_str(), W_OK) == 0 ? memory : std::filesystem::temp_directory_path().string();
}

/// A folder that ends with what was made in it.
class CBenchFolder {
public:
    explicit CBenchFolder(const std::string& above) : path_(above + "/report-bench-" + std::to_string(::getpid())) {}
    ~CBenchFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    CBenchFolder(const CBenchFolder&) = delete;
    CBenchFolder& operator=(const CBenchFolder&) = delete;

    [[nodiscard]] const std::string& Path() const { return path_; }

private:
    std::string path_;
};

struct Choice {
    std::string folder = FolderOfData();
    int runs = 7;
    std::vector<BenchSize> sizes;
};

BenchSize SizeNamed(std::string_view name) {
    const auto* const size = std::ranges::find(kBenchSizes, name, &BenchSize::name);
    if (size == std::end(kBenchSizes)) throw std::runtime_error("no size " + std::string(name));
    return *size;
}

Choice ChoiceOf(const std::vector<std::string>& arguments) {
    Choice choice;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const bool hasValue = i + 1 < arguments.size();
        if (arguments[i] == "--runs" && hasValue) {
            choice.runs = std::max(1, std::atoi(arguments[++i].c_str()));
        } else if (arguments[i] == "--folder" && hasValue) {
            choice.folder = arguments[++i];
        } else {
            choice.sizes.push_back(SizeNamed(arguments[i]));
        }
    }
    if (choice.sizes.empty()) choice.sizes = {SizeNamed("S"), SizeNamed("M"), SizeNamed("L")};
    return choice;
}

void ShowAll(const Choice& choice) {
    const CBenchFolder folder(choice.folder);
    const auto isTiny = [](const BenchSize& size) { return size.name == "tiny"; };
    const BenchSettings settings{folder.Path(), choice.runs, std::ranges::all_of(choice.sizes, isTiny)};
    for (const BenchSize& size : choice.sizes) {
        const std::string root = settings.folder + "/" + std::string(size.name);
        const BenchAccount account = MakeBenchAccount(root, size.days, size.shape);
        ShowWholeReport(size, account, settings);
        if (&size == &choice.sizes.front()) ShowStopCost(account, settings);
        std::filesystem::remove_all(root);
    }
    ShowRowCosts(settings);
    ShowLayouts(settings);
}

}  // namespace
}  // namespace tradebill

int main(int count, char** arguments) {
    using namespace tradebill;
    try {
        std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
        ShowAll(ChoiceOf({arguments + 1, arguments + count}));
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "report_bench: %s\n", error.what());
        return 1;
    }
}
