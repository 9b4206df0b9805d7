// Which libraries the program loads: each costs every start of it 0.1 ms and more.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "cli/program_fixture.h"

namespace tradebill::linux_loaded_libraries_test {
namespace {

/// What the C library is parted into on some systems, and what sanitizers bring along.
bool IsOfTheToolchain(std::string_view name) {
    constexpr std::string_view kToolchain[] = {"ld-linux",  "libpthread", "librt",    "libdl",
                                               "libresolv", "libasan",    "libubsan", "libtsan"};
    return std::ranges::any_of(kToolchain, [&](std::string_view known) { return name.starts_with(known); });
}

/// File names of all that a run of the program loads, at its start or later, in the order of their initialisation.
std::vector<std::string> LibrariesOf(const CTempFolder& folder, const std::string& arguments) {
    constexpr std::string_view kLoaded = "calling init: ";  // the loader's own words
    const std::string said = folder.Path("loader");
    const std::string command =
        "LD_DEBUG=files LD_DEBUG_OUTPUT=" + Quoted(said) + " " + Quoted(TRADEBILL_PROGRAM) + " " + arguments;
    std::vector<std::string> names;
    EXPECT_EQ(RunShell(command + " >" + Quoted(folder.Path("out"))), 0);
    for (const auto& entry : fs::directory_iterator(folder.Path())) {
        if (!entry.path().filename().string().starts_with("loader.")) continue;  // and the process's number
        std::istringstream lines(ReadFile(entry.path().string()));
        for (std::string line; std::getline(lines, line);) {
            const std::size_t place = line.find(kLoaded);
            if (place == std::string::npos) continue;
            const std::string name = fs::path(line.substr(place + kLoaded.size())).filename().string();
            if (!IsOfTheToolchain(name)) names.push_back(name);
        }
        fs::remove(entry.path());
    }
    return names;
}

bool HasLibrary(const std::vector<std::string>& names, std::string_view beginning) {
    return std::ranges::any_of(names, [&](const std::string& name) { return name.starts_with(beginning); });
}

TEST_F(Program, LoadsFewLibrariesBeforeItKnowsItsCommand) {
    constexpr std::size_t kMost = 12;  // fonts, pictures, what these two need, and the runtime of the language
    for (const char* const arguments : {"--version", "--help"}) {
        const std::vector<std::string> names = LibrariesOf(folder_, arguments);
        EXPECT_TRUE(HasLibrary(names, "libc.so")) << testing::PrintToString(names);
        EXPECT_LE(names.size(), kMost)
            << "tradebill " << arguments << " loads " << testing::PrintToString(names)
            << "\nA library that only some commands need is loaded by them (dlopen), not linked to the program.";
    }
}

TEST_F(Program, LoadsWhatOnlyACommandNeedsOnceItIsNeeded) {
    constexpr std::string_view kGbkConverter = "GBK.so";  // of iconv
    EXPECT_FALSE(HasLibrary(LibrariesOf(folder_, "--version"), kGbkConverter));
    EXPECT_TRUE(HasLibrary(LibrariesOf(folder_, Report("--quiet")), kGbkConverter));
}

}  // namespace
}  // namespace tradebill::linux_loaded_libraries_test
