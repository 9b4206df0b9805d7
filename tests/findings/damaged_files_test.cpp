// Made-up accounts with one file that is missing, isn't what it should be, or belongs elsewhere: what follows from that
// is found and nothing else.
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "findings/account_check.h"
#include "findings/account_maker.h"
#include "findings/account_pages.h"
#include "findings/finding.h"
#include "findings/made_accounts.h"
#include "platform/text_encoding.h"
#include "readers/statement_loader.h"
#include "support/gbk_text.h"

namespace tradebill::damaged_files_test {
namespace {

constexpr unsigned kSeeds = 4;

/// Each account's day with `damage(DayFile&)` done to its file, which no other day is compared with then.
template <class Damage>
void ExpectAlone(std::string_view code, Damage damage) {
    DamageAccounts(kSeeds, IsAnyDay, [&](MadeStatements& made, CDice&, std::size_t day) {
        std::vector<DayFile> files = made.Files();
        damage(files[day]);
        FindingKeys expected = made.PairKeys(day);
        expected.insert(KeyOf(code, made.Day(day)));
        EXPECT_EQ(KeysOf(files, made.layout), expected);
    });
}

/// The same for a file that is still read.
template <class Damage>
void ExpectBeside(std::string_view code, Damage damage) {
    DamageAccounts(kSeeds, IsAnyDay, [&](MadeStatements& made, CDice&, std::size_t day) {
        std::vector<DayFile> files = made.Files();
        damage(files[day]);
        FindingKeys expected = made.PairKeys();
        expected.insert(KeyOf(code, made.Day(day)));
        EXPECT_EQ(KeysOf(files, made.layout), expected);
    });
}

std::string Utf16Of(const std::string& bytes) {
    std::string wide;
    for (const char byte : bytes) wide.append(1, byte).append(1, '\0');
    return wide;
}

TEST(DamagedFiles, OneThatIsMissingLeavesAGap) {
    DamageAccounts(16, IsAnyDay, [&](MadeStatements& made, CDice&, std::size_t day) {
        std::vector<DayFile> files = made.Files();
        files.erase(files.begin() + static_cast<std::ptrdiff_t>(day));
        made.account.days.erase(made.account.days.begin() + static_cast<std::ptrdiff_t>(day));
        EXPECT_EQ(KeysOf(files, made.layout), made.PairKeys());
    });
}

TEST(DamagedFiles, AreToldByWhatIsThere) {
    ExpectAlone("empty", [](DayFile& file) { file.bytes.clear(); });
    ExpectAlone("empty", [](DayFile& file) { file.bytes = " \r\n\t\r\n"; });
    ExpectAlone("not-a-file", [](DayFile& file) { file.state = StatementState::NotAFile; });
    ExpectAlone("unreadable", [](DayFile& file) { file.state = StatementState::Unreadable; });
}

TEST(DamagedFiles, AreToldByTheirEncoding) {
    ExpectAlone("encoding", [](DayFile& file) { file.bytes = GbkToUtf8(file.bytes); });
    ExpectAlone("encoding", [](DayFile& file) { file.bytes = "\xEF\xBB\xBF" + GbkToUtf8(file.bytes); });
    ExpectAlone("encoding", [](DayFile& file) { file.bytes = "\xFF\xFE" + Utf16Of(file.bytes); });
    ExpectAlone("encoding", [](DayFile& file) { file.bytes = std::string("\xFE\xFF\0", 3) + Utf16Of(file.bytes); });
    ExpectBeside("encoding", [](DayFile& file) { file.bytes = "\xEF\xBB\xBF" + file.bytes; });
    ExpectBeside("encoding", [](DayFile& file) { file.bytes += "\xFF \r\n"; });
    ExpectBeside("encoding", [](DayFile& file) { file.bytes.append(1, '\0').append("more"); });
}

TEST(DamagedFiles, AreToldByTheLineOfABadByte) {
    MadeStatements made(3, MadeLayout::Bilingual, {});
    std::vector<DayFile> files = made.Files();
    files[2].bytes += "one\r\n\x81 two\r\n";
    const CCheckedRun run(files, AskedFor(made.layout));
    ASSERT_FALSE(run.findings.empty());
    EXPECT_EQ(run.findings.front().code, FindingCode::Encoding);
    EXPECT_EQ(run.findings.front().row, static_cast<int>(made.pages[2].lines.size()) + 2);
}

TEST(DamagedFiles, MayLackTheirLastLineEnd) {
    DamageAccounts(kSeeds, IsAnyDay, [&](MadeStatements& made, CDice&, std::size_t day) {
        for (const std::size_t bytes : {1U, 2U}) {
            std::vector<DayFile> files = made.Files();
            std::string& text = files[day].bytes;
            text.resize(text.find_last_not_of("\r\n") + 3 - bytes);
            EXPECT_EQ(KeysOf(files, made.layout), made.PairKeys());
            text.resize(text.find_last_not_of("\r\n") + 1);
            EXPECT_EQ(KeysOf(files, made.layout), made.PairKeys());
        }
    });
}

TEST(DamagedFiles, OneOfTheDayBeforeIsAWrongDayAndARepetition) {
    DamageAccounts(16, IsAnyDay, [&](MadeStatements& made, CDice&, std::size_t day) {
        std::vector<DayFile> files = made.Files();
        files[day].bytes = files[day - 1].bytes;
        const std::string name = made.Day(day);
        MadeDay copy = made.account.days[day - 1];
        copy.day = name;
        made.account.days[day] = copy;
        FindingKeys expected = made.PairKeys();
        expected.insert(KeyOf("wrong-day", name));
        expected.insert(KeyOf("repeated", name));
        EXPECT_EQ(KeysOf(files, made.layout), expected);
    });
}

TEST(DamagedFiles, OneOfAnotherAccountIsToldByItsNumber) {
    ExpectBeside("wrong-account",
                 [](DayFile& file) { file.bytes.replace(file.bytes.find("90010002"), 8, "80000007"); });
    ExpectBeside("wrong-account", [](DayFile& file) { file.bytes.replace(file.bytes.find("90010002"), 8, "9001000"); });
}

TEST(DamagedFiles, OneOfAnotherAccountDoesntFitTheBalances) {
    DamageAccounts(kSeeds, IsAnyDay, [&](MadeStatements& made, CDice&, std::size_t day) {
        AccountWishes wishes = made.wishes;
        wishes.days = static_cast<int>(made.account.days.size());
        MadeStatements other(static_cast<unsigned>(777 + day), made.layout, wishes);
        MadeDay strange = other.account.days[day];
        strange.day = made.Day(day);
        made.account.days[day] = strange;
        made.Reprint(day);
        std::string& text = made.pages[day].lines[made.layout == MadeLayout::ClientBill ? 2 : 3];
        text.replace(text.find("90010002"), 8, "70000001");
        FindingKeys found = made.Keys();
        EXPECT_TRUE(found.contains(KeyOf("wrong-account", made.Day(day))));
        EXPECT_TRUE(found.contains(KeyOf("continuity", made.Day(day))) ||
                    !WeekdaysMissing(made.Day(day - 1), made.Day(day)).empty());
    });
}

TEST(DamagedFiles, OneOfAnotherLayoutIsToldAlone) {
    DamageAccounts(kSeeds, IsAnyDay, [&](MadeStatements& made, CDice&, std::size_t day) {
        for (const MadeLayout other : kMadeLayouts) {
            if (other == made.layout) continue;
            std::vector<DayFile> files = made.Files();
            files[day].bytes = CPagePrinter(other, made.account, false).Print(made.account.days[day]).Bytes();
            const CCheckedRun run(files, AskedFor(made.layout));
            FindingKeys expected = made.PairKeys(day);
            expected.insert(KeyOf("unrecognised", made.Day(day)));
            EXPECT_EQ(KeysOf(run.findings), expected);
            const Finding& finding = run.findings.front();
            EXPECT_EQ(finding.expected, "--format " + std::to_string(AskedFor(made.layout).format));
            EXPECT_NE(finding.found.find("--format " + std::to_string(AskedFor(other).format)), std::string::npos)
                << finding.found;
        }
    });
}

TEST(DamagedFiles, AreAllOfAnotherLayoutWhereTheRequestIsWrong) {
    const MadeStatements made(5, MadeLayout::FundStatus, {});
    const FindingKeys found = KeysOf(CCheckedRun(made.Files(), {.format = 3}).findings);
    for (const MadeDay& day : made.account.days) EXPECT_TRUE(found.contains(KeyOf("unrecognised", day.day)));
    for (const std::string& key : found)
        EXPECT_TRUE(key.starts_with("unrecognised@") || key.starts_with("gap(note)@")) << key;
}

}  // namespace
}  // namespace tradebill::damaged_files_test
