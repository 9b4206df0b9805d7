#include "intake/bill_import.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "intake/text_forms.h"
#include "platform/text_encoding.h"
#include "support/gbk_text.h"
#include "support/temp_folder.h"

namespace tradebill::bill_import_test {
namespace {

namespace fs = std::filesystem;

std::map<std::string, std::string> FilesIn(const std::string& folder) {
    std::map<std::string, std::string> files;
    if (!fs::is_directory(folder)) return files;
    for (const auto& entry : fs::directory_iterator(folder)) {
        files[entry.path().filename().string()] = ReadFile(entry.path().string());
    }
    return files;
}

std::string Bill(const std::string& day, const std::string& figure = "1.00") {
    return Statement({"客户号: 9001 日期: " + day, "资金状况", "上日结存: " + figure});
}

class BillImport : public testing::Test {
protected:
    [[nodiscard]] ImportSettings Settings() const { return {.root = folder_.Path("root"), .user = "demo"}; }
    [[nodiscard]] std::string Target(const std::string& name) const {
        return folder_.Path("root/Users/demo/Data/Bill/" + name);
    }
    [[nodiscard]] std::map<std::string, std::string> Imported() const { return FilesIn(Target("")); }

    CTempFolder folder_;
};

/// A text as somebody else saved it.
struct SavedForm {
    const char* name;
    std::function<std::string(const std::string& gbk)> save;
};

const std::vector<SavedForm>& SavedForms() {
    static const std::vector<SavedForm> forms = {
        {"as it is", [](const std::string& gbk) { return gbk; }},
        {"UTF-8", [](const std::string& gbk) { return GbkToUtf8(gbk); }},
        {"UTF-8 with a mark", [](const std::string& gbk) { return std::string(kUtf8Mark) + GbkToUtf8(gbk); }},
        {"UTF-16LE", [](const std::string& gbk) { return Utf16(GbkToUtf8(gbk), false); }},
        {"UTF-16BE with a mark",
         [](const std::string& gbk) { return std::string(kBigEndianMark) + Utf16(GbkToUtf8(gbk), true); }},
        {"GBK, LF", [](const std::string& gbk) { return WithLineEnds(gbk, "\n"); }},
        {"UTF-8, CR", [](const std::string& gbk) { return GbkToUtf8(WithLineEnds(gbk, "\r")); }},
    };
    return forms;
}

class SampleImport : public BillImport, public testing::WithParamInterface<const char*> {
protected:
    [[nodiscard]] static std::map<std::string, std::string> Originals() {
        return FilesIn(std::string(TRADEBILL_SAMPLES) + "/" + GetParam() + "/root/Users/demo/Data/Bill");
    }
};

TEST_P(SampleImport, MakesTheSameFilesOfEveryFormAndName) {
    const auto originals = Originals();
    ASSERT_FALSE(originals.empty());
    for (const SavedForm& form : SavedForms()) {
        ImportSettings settings = Settings();
        settings.user = form.name;
        CBillImport import(settings);
        std::size_t number = originals.size();
        for (const auto& [name, bytes] : originals) {
            const std::string file = folder_.Write("bill " + std::to_string(--number) + ".x", form.save(bytes));
            const ImportedFile result = import.Import(file);
            EXPECT_EQ(result.text, "") << name << ", " << form.name;
            ASSERT_EQ(result.outcome, ImportOutcome::Imported) << name << ", " << form.name;
            EXPECT_EQ(result.layout.isForeign, name.starts_with("DWP"));
            EXPECT_TRUE(std::string(GetParam()).starts_with(result.layout.name) ||
                        GetParam() == std::string("one-year"))
                << result.layout.name;
        }
        EXPECT_EQ(FilesIn(import.Folder()), originals) << form.name;
    }
}

TEST_P(SampleImport, CutsAllDaysInOneFileApart) {
    const auto originals = Originals();
    std::string joined;
    for (const auto& [name, bytes] : originals) joined += GbkToUtf8(bytes);
    CBillImport import(Settings());
    const ImportedFile result = import.Import(folder_.Write("all.txt", joined));
    EXPECT_EQ(result.text, "");
    EXPECT_EQ(result.days.size(), originals.size());
    EXPECT_EQ(Imported(), originals);
    EXPECT_EQ(import.Import(folder_.Path("all.txt")).outcome, ImportOutcome::Equal);
}

INSTANTIATE_TEST_SUITE_P(Samples, SampleImport,
                         testing::Values("fund-class", "fund-status", "fund-status-premium", "client-bill",
                                         "client-bill-premium", "tabulated", "bilingual", "bilingual-new",
                                         "spaced-title", "spaced-title-premium", "foreign"));

TEST_F(BillImport, TellsWhatAFileIs) {
    CBillImport import(Settings());
    const ImportedFile result = import.Import(folder_.Write("a.txt", Bill("20240102")));
    EXPECT_EQ(result.file, folder_.Path("a.txt"));
    EXPECT_EQ(result.layout.name, "fund-status");
    EXPECT_EQ(result.layout.format, 1);
    EXPECT_EQ(result.encoding, "GBK");
    EXPECT_EQ(result.account, "9001");
    EXPECT_EQ(result.days, std::vector<std::string>{"20240102"});
    EXPECT_EQ(result.to, std::vector<std::string>{Target("D9001.20240102o.txt")});
    EXPECT_EQ(result.outcome, ImportOutcome::Imported);
    EXPECT_EQ(OutcomeName(result.outcome), "imported");
    EXPECT_EQ(ReadFile(Target("D9001.20240102o.txt")), Bill("20240102"));
}

TEST_F(BillImport, LeavesWhatIsEqualAndRefusesWhatDiffers) {
    const std::string target = folder_.Write("root/Users/demo/Data/Bill/D9001.20240102o.txt", Bill("20240102"));
    const auto before = fs::last_write_time(target);
    CBillImport import(Settings());
    const std::string equal = folder_.Write("a.txt", GbkToUtf8(Bill("20240102")));
    EXPECT_EQ(import.Import(equal).outcome, ImportOutcome::Equal);
    EXPECT_EQ(OutcomeName(ImportOutcome::Equal), "equal");
    EXPECT_EQ(fs::last_write_time(target), before);
    CBillImport later(Settings());
    const ImportedFile other =
        later.Import(folder_.Write("b.txt", Bill("20240102", "2.00") + Bill("20240103") + Bill("20240104")));
    EXPECT_EQ(other.outcome, ImportOutcome::Refused);
    EXPECT_EQ(OutcomeName(other.outcome), "refused");
    EXPECT_EQ(other.text, "of 20240102 other content is there already (--force replaces it)");
    EXPECT_EQ(other.days.size(), 3u);
    EXPECT_TRUE(other.to.empty());
    EXPECT_EQ(Imported().size(), 1u);
    EXPECT_EQ(ReadFile(target), Bill("20240102"));
}

TEST_F(BillImport, NamesTheFirstOfSeveralDaysThatDiffer) {
    folder_.Write("root/Users/demo/Data/Bill/D9001.20240102o.txt", "x");
    folder_.Write("root/Users/demo/Data/Bill/D9001.20240103o.txt", "x");
    CBillImport import(Settings());
    const std::string file = folder_.Write("b.txt", Bill("20240102") + Bill("20240103"));
    EXPECT_EQ(import.Import(file).text,
              "of 20240102 and 1 more day other content is there already (--force replaces it)");
    folder_.Write("root/Users/demo/Data/Bill/D9001.20240104o.txt", "x");
    folder_.Write("b.txt", Bill("20240102") + Bill("20240103") + Bill("20240104"));
    EXPECT_EQ(import.Import(file).text,
              "of 20240102 and 2 more days other content is there already (--force replaces it)");
}

TEST_F(BillImport, ReplacesWhatDiffersIfItIsToldTo) {
    folder_.Write("root/Users/demo/Data/Bill/D9001.20240102o.txt", "other");
    ImportSettings settings = Settings();
    settings.replaces = true;
    CBillImport import(settings);
    EXPECT_EQ(import.Import(folder_.Write("a.txt", Bill("20240102"))).outcome, ImportOutcome::Imported);
    EXPECT_EQ(ReadFile(Target("D9001.20240102o.txt")), Bill("20240102"));
    const ImportedFile second = import.Import(folder_.Write("b.txt", Bill("20240102", "2.00")));
    EXPECT_EQ(second.outcome, ImportOutcome::Refused);  // of two contents in one call the first is taken
    EXPECT_EQ(second.text, "its statement of 20240102 differs from that in " + folder_.Path("a.txt"));
    EXPECT_EQ(import.Import(folder_.Write("c.txt", Bill("20240102"))).outcome, ImportOutcome::Equal);
}

TEST_F(BillImport, WritesNothingInADryRunAndTellsTheSame) {
    ImportSettings settings = Settings();
    settings.isDryRun = true;
    CBillImport import(settings);
    const ImportedFile first = import.Import(folder_.Write("a.txt", Bill("20240102")));
    EXPECT_EQ(first.outcome, ImportOutcome::Imported);
    EXPECT_EQ(first.to, std::vector<std::string>{Target("D9001.20240102o.txt")});
    EXPECT_EQ(import.Import(folder_.Write("b.txt", Bill("20240102"))).outcome, ImportOutcome::Equal);
    EXPECT_EQ(import.Import(folder_.Write("c.txt", Bill("20240102", "2.00"))).outcome, ImportOutcome::Refused);
    EXPECT_FALSE(fs::exists(folder_.Path("root")));
}

TEST_F(BillImport, MakesNoFolderForWhatItRefuses) {
    CBillImport import(Settings());
    EXPECT_EQ(import.Import(folder_.Write("a.txt", "rubbish")).outcome, ImportOutcome::Refused);
    EXPECT_FALSE(fs::exists(folder_.Path("root")));
}

TEST_F(BillImport, RefusesWhatIsNoFileOrTooLarge) {
    CBillImport import(Settings());
    EXPECT_EQ(import.Import(folder_.Path("none.txt")).text, "it isn't there");
    fs::create_directories(folder_.Path("folder"));
    EXPECT_EQ(import.Import(folder_.Path("folder")).text, "it is no file");
    const std::string large = folder_.Write("large.txt", Bill("20240102"));
    fs::resize_file(large, CBillImport::kMostBytes);
    EXPECT_EQ(import.Import(large).text, "it has zero bytes, as no text has");
    fs::resize_file(large, CBillImport::kMostBytes + 1);
    EXPECT_EQ(import.Import(large).text, "it is larger than 64 MB");
}

TEST_F(BillImport, TellsATargetThatCantBeWritten) {
    folder_.Write("root/Users", "a file");
    CBillImport import(Settings());
    const ImportedFile result = import.Import(folder_.Write("a.txt", Bill("20240102")));
    EXPECT_EQ(result.outcome, ImportOutcome::Refused);
    EXPECT_TRUE(result.isUnwritten);
    EXPECT_TRUE(result.text.starts_with("can't write " + folder_.Path("root/Users/demo/Data/Bill"))) << result.text;
    EXPECT_TRUE(result.to.empty());
}

TEST_F(BillImport, TellsWhichDaysAreThereWhereWritingFailsMidway) {
    fs::create_directories(Target("D9001.20240103o.txt.part"));  // in the place of what is being written
    CBillImport import(Settings());
    const ImportedFile result =
        import.Import(folder_.Write("a.txt", Bill("20240102") + Bill("20240103") + Bill("20240104")));
    EXPECT_EQ(result.outcome, ImportOutcome::Refused);
    EXPECT_TRUE(result.isUnwritten);
    EXPECT_TRUE(result.text.starts_with("can't write " + Target("D9001.20240103o.txt"))) << result.text;
    EXPECT_EQ(result.to, std::vector<std::string>{Target("D9001.20240102o.txt")});
    EXPECT_EQ(ReadFile(Target("D9001.20240102o.txt")), Bill("20240102"));
    EXPECT_FALSE(fs::exists(Target("D9001.20240104o.txt")));
}

TEST_F(BillImport, RefusesAFolderInThePlaceOfAStatement) {
    fs::create_directories(Target("D9001.20240102o.txt"));
    CBillImport import(Settings());
    const ImportedFile result = import.Import(folder_.Write("a.txt", Bill("20240102")));
    EXPECT_EQ(result.text, "can't write " + Target("D9001.20240102o.txt") + ": something else is there");
    EXPECT_TRUE(result.isUnwritten);
}

}  // namespace
}  // namespace tradebill::bill_import_test
