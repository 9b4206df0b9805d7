#include "cli/output_file.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <iostream>
#include <iterator>
#include <optional>
#include <ostream>
#include <string>

#include "cli/cli_fixture.h"
#include "support/shell.h"
#include "support/temp_folder.h"

namespace tradebill::output_file_test {
namespace {

class OutputFile : public testing::Test {
protected:
    [[nodiscard]] std::string Refusal(const std::string& given) const {
        return UsageErrorOf([&] { return COutputFile("--json", given).IsFile(); });
    }
    [[nodiscard]] static bool Save(const COutputFile& output, const std::string& content, bool isWritten = true) {
        return output.Save([&](std::ostream& out) {
            out << content;
            return isWritten;
        });
    }
    [[nodiscard]] bool IsAlone() const {
        return std::distance(std::filesystem::directory_iterator(folder_.Path()), {}) == 1;
    }

    CTempFolder folder_;
    std::string path_ = folder_.Path("a.json");
};

TEST_F(OutputFile, IsWrittenAsAWhole) {
    const COutputFile output("--json", path_);
    EXPECT_TRUE(output.IsFile());
    EXPECT_FALSE(output.IsStandardOutput());
    EXPECT_EQ(output.Name(), path_);
    EXPECT_TRUE(Save(output, "old"));
    EXPECT_FALSE(Save(output, "half", false));
    EXPECT_EQ(ReadFile(path_), "old");
    EXPECT_TRUE(Save(output, "new\r\n"));
    EXPECT_EQ(ReadFile(path_), "new\r\n");
    EXPECT_TRUE(IsAlone());
}

TEST_F(OutputFile, IsTheSameWhateverThePiecesAre) {
    std::string content;
    for (int i = 0; i < 20'000; ++i) content += std::to_string(i);
    const auto byByte = [&content](std::ostream& out) {
        for (const char byte : content) out.put(byte);
        return true;
    };
    const auto byPiece = [&content](std::ostream& out) {
        for (std::size_t at = 0; at < content.size(); at += 1000) out << content.substr(at, 1000);
        return true;
    };
    const COutputFile output("--json", path_);
    EXPECT_TRUE(output.Save(byByte));
    EXPECT_EQ(ReadFile(path_), content);
    EXPECT_TRUE(output.Save(byPiece));
    EXPECT_EQ(ReadFile(path_), content);
    EXPECT_TRUE(Save(output, content));
    EXPECT_EQ(ReadFile(path_), content);
}

#if !defined(_WIN32)  // which has no device that is always full
TEST_F(OutputFile, TellsThatNotAllBytesGotOut) {
    bool isGood = true;
    EXPECT_FALSE(COutputFile("--json", "/dev/full").Save([&isGood](std::ostream& out) {
        for (int i = 0; i < 100'000; ++i) out.put('x');
        isGood = out.good();
        return true;
    }));
    EXPECT_FALSE(isGood);  // long before the end
}

TEST_F(OutputFile, IsNotAtTheEndOfLinksInACircle) {
    std::filesystem::create_symlink("round", folder_.Path("circle"));
    std::filesystem::create_symlink("circle", folder_.Path("round"));
    EXPECT_FALSE(COutputFile("--json", "-").LeadsTo(folder_.Path("circle")));
}
#endif

TEST_F(OutputFile, IsRefusedWithoutItsFolder) {
    for (const std::string& given : {std::string(), folder_.Path(), folder_.Path("none/a"), path_ + "/a"}) {
        EXPECT_PRED2(IsClearLine, Refusal(given), "--json") << given;
    }
    EXPECT_EQ(Refusal(path_), "");
    EXPECT_EQ(Refusal("-"), "");
}

#if defined(_WIN32)  // elsewhere a device is a file that could be replaced: a test makes its own
TEST_F(OutputFile, MayBeADevice) {
    const COutputFile device("--json", kNullDevice);
    EXPECT_FALSE(device.IsFile());
    EXPECT_FALSE(device.IsStandardOutput());
    EXPECT_EQ(device.Name(), kNullDevice);
    EXPECT_TRUE(Save(device, std::string(100'000, 'x')));
    EXPECT_FALSE(Save(device, "half", false));
}
#endif

TEST_F(OutputFile, IsStandardOutputByItsName) {
    const COutputFile output("--json", "-");
    EXPECT_TRUE(output.IsStandardOutput());
    EXPECT_FALSE(output.IsFile());
    EXPECT_EQ(output.Name(), "standard output");
    EXPECT_FALSE(output.LeadsTo("-"));
    EXPECT_EQ(&SummaryStream({output}), &std::cerr);
    EXPECT_EQ(&SummaryStream({std::nullopt, COutputFile("--json", path_)}), &std::cout);
}

TEST_F(OutputFile, IsThatOfItsOption) {
    EXPECT_FALSE(FindOutput("--json", std::nullopt).has_value());
    const auto output = FindOutput("--json", path_);
    ASSERT_TRUE(output.has_value());
    EXPECT_EQ(output->Option(), "--json");
}

TEST_F(OutputFile, HasAPlaceOfItsOwn) {
    const auto refusal = [](const std::string& one, const std::string& other) {
        return UsageErrorOf([&] { CheckOutputs({COutputFile("--json", one), COutputFile("--page", other)}); });
    };
    EXPECT_PRED2(IsClearLine, refusal("-", "-"), "--page");
    EXPECT_PRED2(IsClearLine, refusal(path_, path_), "--page");
    EXPECT_PRED2(IsClearLine, refusal(path_, folder_.Path() + "/./a.json"), "--json");
    EXPECT_EQ(refusal("-", path_), "");
    EXPECT_EQ(refusal(path_, "-"), "");
    EXPECT_EQ(refusal(path_, folder_.Path("b.json")), "");
    std::filesystem::create_directory(folder_.Path("other"));
    EXPECT_EQ(refusal(path_, folder_.Path("other/a.json")), "");
    EXPECT_EQ(refusal(kNullDevice, kNullDevice), "");
    EXPECT_EQ(UsageErrorOf([] { CheckOutputs({std::nullopt, std::nullopt, COutputFile("--json", "-")}); }), "");
}

TEST_F(OutputFile, LeadsToWhatItWillReplace) {
    const COutputFile output("--json", path_);
    EXPECT_FALSE(output.LeadsTo(path_));  // which isn't there yet
    folder_.Write("a.json", "");
    EXPECT_TRUE(output.LeadsTo(folder_.Path() + "/./a.json"));
    EXPECT_FALSE(output.LeadsTo(folder_.Write("b.json", "")));
}

}  // namespace
}  // namespace tradebill::output_file_test
