// Runs kept inputs once more, without a fuzzer: FOLDER/TARGET/FILE is run by TARGET. What fails ends the process behind
// the name of its file.
//
//     fuzz_replay FOLDER...
#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>
#include <vector>

#include "fuzz_target.h"

namespace tradebill {
namespace {

namespace fs = std::filesystem;

std::vector<fs::path> FilesOf(const fs::path& folder) {
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(folder)) {
        if (entry.is_regular_file()) files.push_back(entry.path());
    }
    std::ranges::sort(files);
    return files;
}

void RunFile(const FuzzTarget& target, const fs::path& file) {
    std::printf("%s\n", file.c_str());
    std::fflush(stdout);  // what fails stands behind it
    target.run(BytesOfFile(file.string()));
}

/// Returns how many inputs were run; a folder of no target is an error.
int Replay(const fs::path& folder) {
    int inputs = 0;
    for (const auto& entry : fs::directory_iterator(folder)) {
        const FuzzTarget* const target = FindFuzzTarget(entry.path().filename().string());
        Require(target != nullptr, entry.path().string() + " is the folder of a target");
        const std::vector<fs::path> files = FilesOf(entry.path());
        for (const fs::path& file : files) RunFile(*target, file);
        inputs += static_cast<int>(files.size());
    }
    return inputs;
}

int ReplayAll(int count, char** folders) {
    int inputs = 0;
    for (int i = 1; i < count; ++i) inputs += Replay(folders[i]);
    std::printf("%d inputs\n", inputs);
    return inputs > 0 ? 0 : 1;
}

}  // namespace
}  // namespace tradebill

int main(int count, char** arguments) {
    try {
        return tradebill::ReplayAll(count, arguments);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
