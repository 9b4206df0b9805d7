#include "requests/report_options.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/text.h"
#include "cli/cli_fixture.h"
#include "driver/host_module.h"
#include "platform/local_time.h"

namespace tradebill::report_options_test {
namespace {

class Options : public CliFixture {
protected:
    [[nodiscard]] std::string Refusal() const {
        return UsageErrorOf([this] { return PrepareRequest(options_); });
    }
    [[nodiscard]] std::vector<std::string> Warnings() const { return PrepareRequest(options_).warnings; }
    /// Whether there is one warning, of these words.
    [[nodiscard]] bool WarnsOnlyOf(const std::string& words) const {
        const auto warnings = Warnings();
        return warnings.size() == 1 && warnings[0].find(words) != std::string::npos &&
               warnings[0].find('\n') == std::string::npos;
    }
    void UseDates(const std::string& from, const std::string& to) {
        options_.from = from;
        options_.to = to;
    }

    std::string today_ = DashedDayText(LocalDayOf(PresentTime()));
};

TEST_F(Options, BecomeARequest) {
    options_.dpi = "120";
    options_.templateName = "songta";
    options_.marginOffset = "1";
    const PreparedRequest prepared = PrepareRequest(options_);
    const GenerateBillRequest& request = prepared.request;
    EXPECT_EQ(FieldText(request.UserFolder), "demo");
    EXPECT_EQ(FieldText(request.Account), "90010002");
    EXPECT_EQ(FieldText(request.StartDate), "2024-01-02");
    EXPECT_EQ(FieldText(request.EndDate), "2024-01-03");
    EXPECT_EQ(FieldText(request.TemplateName), "songta");
    EXPECT_EQ(request.StatementFormat, 1);
    EXPECT_EQ(request.StatementKind, 1);
    EXPECT_EQ(request.Dpi, 120);
    EXPECT_EQ(request.MarginOffsetFlag, 1);
    EXPECT_EQ(request.BaseMoney.EXCHANGE_RATE, 1.0);
    EXPECT_EQ(prepared.rootFolder, root_.Path());
    EXPECT_TRUE(prepared.warnings.empty());
}

TEST_F(Options, LeftOutMeanADomesticReportWithoutScalingNamesOrCallbacks) {
    const PreparedRequest prepared = PrepareRequest(options_);
    const GenerateBillRequest& request = prepared.request;
    EXPECT_EQ(prepared.products->CodeOf("name"), std::nullopt);
    EXPECT_EQ(request.StatementKind, 1);
    EXPECT_EQ(request.Dpi, 0);
    EXPECT_EQ(request.MarginOffsetFlag, 0);
    EXPECT_EQ(FieldText(request.TemplateName), "");
    EXPECT_EQ(request.CurrencyCount, 0);
    EXPECT_EQ(request.ContractUnitCallback, nullptr);
    EXPECT_EQ(request.ProductNameCallback, nullptr);
    EXPECT_EQ(request.ChartSizeCallback, nullptr);
    EXPECT_EQ(request.HostWindow, nullptr);
    EXPECT_EQ(request.StopEvent, nullptr);
}

TEST_F(Options, SayTheFamily) {
    options_.kind = "foreign";
    EXPECT_EQ(PrepareRequest(options_).request.StatementKind, 2);
    options_.kind = "domestic";
    EXPECT_EQ(PrepareRequest(options_).request.StatementKind, 1);
}

/// A wrong use: what is done to good options, and what the message must name.
struct WrongUse {
    std::function<void(ReportOptions&)> change;
    std::string named;
};

TEST_F(Options, AreRefusedInOneLineThatNamesThem) {
    const std::string long128(128, 'u');
    const WrongUse wrongUses[] = {
        {[](auto& o) { o.root.reset(); }, "--root"},
        {[](auto& o) { o.root = ""; }, "--root"},
        {[&](auto& o) { o.root = root_.Path("missing"); }, "--root"},
        {[&](auto& o) { o.root = root_.Write("file", ""); }, "--root"},
        {[](auto& o) { o.user = ""; }, "--user"},
        {[](auto& o) { o.user = "nobody"; }, "--user"},
        {[](auto& o) { o.user = "../Users/demo"; }, "--user"},
        {[](auto& o) { o.user = "demo/"; }, "--user"},
        {[](auto& o) { o.user = "a\\b"; }, "--user"},
        {[](auto& o) { o.user = ".."; }, "--user"},
        {[](auto& o) { o.user = "."; }, "--user"},
        {[&](auto& o) { o.user = long128; }, "--user"},
        {[](auto& o) { o.account = ""; }, "--account"},
        {[](auto& o) { o.account = "12345678901234567"; }, "--account"},
        {[](auto& o) { o.account = "1/2"; }, "--account"},
        {[](auto& o) { o.account = "1\\2"; }, "--account"},
        {[](auto& o) { o.templateName = "12345678901"; }, "--template"},
        {[](auto& o) { o.templateName = "../songta"; }, "--template"},
        {[](auto& o) { o.format = ""; }, "--format"},
        {[](auto& o) { o.format = "7"; }, "--format"},
        {[](auto& o) { o.format = "-1"; }, "--format"},
        {[](auto& o) { o.format = "one"; }, "--format"},
        {[](auto& o) { o.format = "1.0"; }, "--format"},
        {[](auto& o) { o.kind = "local"; }, "--kind"},
        {[](auto& o) { o.kind = "Foreign"; }, "--kind"},
        {[](auto& o) { o.kind = ""; }, "--kind"},
        {[](auto& o) { o.dpi = "high"; }, "--dpi"},
        {[](auto& o) { o.dpi = "-1"; }, "--dpi"},
        {[](auto& o) { o.dpi = "96.5"; }, "--dpi"},
        {[](auto& o) { o.from = "1899-12-31"; }, "--from"},
        {[](auto& o) { o.from = "2024-13-1"; }, "--from"},
        {[](auto& o) { o.from = "2024-1-32"; }, "--from"},
        {[](auto& o) { o.from = "2024010"; }, "--from"},
        {[](auto& o) { o.from = "1969-12-30"; }, "--from"},
        {[](auto& o) { o.from = "2024-1-2" + std::string(56, ' '); }, "--from"},
        {[](auto& o) { o.to = "tomorrow"; }, "--to"},
        {[](auto& o) { o.today = "noon"; }, "--today"},
        {[](auto& o) { o.to = "3001-1-2"; }, "--to"},
        {[&](auto& o) { o.unitFile = root_.Path("missing.ini"); }, "missing.ini"},
        {[&](auto& o) { o.productFile = root_.Path("missing.ini"); }, "missing.ini"},
        {[&](auto& o) { o.liveFile = root_.Path("missing.ini"); }, "missing.ini"},
        {[&](auto& o) { o.requestFile = root_.Path("missing.ini"); }, "missing.ini"},
        {[&](auto& o) { o.unitFile = root_.Write("u.ini", "[UNITS]\n\nrb\n"); }, "u.ini, line 3"},
        {[&](auto& o) { o.productFile = root_.Write("p.ini", "[PRODUCTS]\nrb\n"); }, "p.ini, line 2"},
        {[&](auto& o) { o.liveFile = root_.Write("l.ini", "BASE\n"); }, "l.ini, line 1"},
    };
    const ReportOptions good = options_;
    for (const WrongUse& wrong : wrongUses) {
        options_ = good;
        wrong.change(options_);
        EXPECT_PRED2(IsClearLine, Refusal(), wrong.named);
    }
}

TEST_F(Options, TakeNamesThatFillTheirFields) {
    const std::string user(127, 'u');
    std::filesystem::create_directories(root_.Path("Users/" + user));
    options_.user = user;
    options_.account = "1234567890123456";
    options_.templateName = "1234567890";
    const GenerateBillRequest request = PrepareRequest(options_).request;
    EXPECT_EQ(FieldText(request.UserFolder), user);
    EXPECT_EQ(FieldText(request.Account), "1234567890123456");
    EXPECT_EQ(FieldText(request.TemplateName), "1234567890");
}

TEST_F(Options, RefuseARootWhosePathsAreTooLong) {
    options_.kind = "foreign";
    const std::string tail = "/Users/demo/Data/Bill/DWP90010002.20240102o.txt";
    const std::size_t longestRoot = 259 - tail.size();
    std::string root = root_.Path();
    while (root.size() + 102 < longestRoot) root += "/" + std::string(99, 'r');
    root += "/" + std::string(longestRoot - root.size() - 1, 'r');
    std::filesystem::create_directories(root + "/Users/demo");
    std::filesystem::create_directories(root + "r/Users/demo");
    options_.root = root;
    EXPECT_EQ(Refusal(), "");
    options_.root = root + "r";
    EXPECT_PRED2(IsClearLine, Refusal(), "--root");
}

TEST_F(Options, TakeEveryFormatThatHasAReader) {
    for (const char* const format : {"0", "1", "2", "3", "6", "201"}) {
        options_.format = format;
        EXPECT_EQ(PrepareRequest(options_).request.StatementFormat, std::stoi(format));
    }
    for (const char* const format : {"4", "5", "7", "200", "202"}) {
        options_.format = format;
        EXPECT_NE(Refusal(), "") << format;
    }
}

TEST_F(Options, TakeAnyFormatTogetherWithATemplate) {
    options_.format = "7";
    options_.templateName = "songta";
    EXPECT_EQ(PrepareRequest(options_).request.StatementFormat, 7);
    options_.format = "seven";
    EXPECT_PRED2(IsClearLine, Refusal(), "--format");
    options_.format = "7";
    options_.templateName = "";
    EXPECT_PRED2(IsClearLine, Refusal(), "--format");
}

TEST_F(Options, PassDatesOnAsTheyWereGiven) {
    for (const char* const date : {"2024-1-2", "2024-2-30", " 2024-01-02", "2024-1-2 00:00"}) {
        UseDates(date, date);
        const GenerateBillRequest request = PrepareRequest(options_).request;
        EXPECT_EQ(FieldText(request.StartDate), date);
        EXPECT_EQ(FieldText(request.EndDate), date);
    }
}

TEST_F(Options, RefuseAStartAfterTheEnd) {
    UseDates("2024-1-3", "2024-1-2");
    EXPECT_PRED2(IsClearLine, Refusal(), "--from");
    UseDates("2024-2-30", "2024-3-1");  // the same day
    EXPECT_EQ(Refusal(), "");
    UseDates("2024-2-30", "2024-2-29");
    EXPECT_PRED2(IsClearLine, Refusal(), "--from");
}

TEST_F(Options, RefuseAnEmptyDate) {
    options_.to = "";
    EXPECT_PRED2(IsClearLine, Refusal(), "--to");
    UseDates("", "2024-1-3");
    EXPECT_PRED2(IsClearLine, Refusal(), "--from");
}

TEST_F(Options, TakeOneDateFromARequestFileAndTheOtherFromTheCommandLine) {
    options_.from.reset();
    options_.requestFile = root_.Write("request.ini", "[REQUEST]\nfrom=2024-1-2\n");
    options_.to = "2024-1-3";
    EXPECT_EQ(Refusal(), "");
    options_.to = "2024-1-1";
    EXPECT_PRED2(IsClearLine, Refusal(), "--from");
}

TEST_F(Options, RequireTheTemplateThatTheyName) {
    const auto refusal = [this] { return UsageErrorOf([this] { RequireTemplate(PrepareRequest(options_)); }); };
    EXPECT_EQ(refusal(), "");
    options_.templateName = "nope";
    EXPECT_EQ(Refusal(), "");  // who only looks needn't have it
    EXPECT_PRED2(IsClearLine, refusal(), "--template");
    std::filesystem::create_directories(root_.Path("BillTemplate/nope.ini"));
    EXPECT_PRED2(IsClearLine, refusal(), "--template");
    std::filesystem::remove(root_.Path("BillTemplate/nope.ini"));
    root_.Write("BillTemplate/nope.ini", "");
    EXPECT_EQ(refusal(), "");
}

TEST_F(Options, WarnOfATemplateForForeignStatementsWhichTakeNone) {
    options_.kind = "foreign";
    options_.templateName = "nope";
    EXPECT_TRUE(WarnsOnlyOf("--template isn't used"));
    EXPECT_EQ(UsageErrorOf([this] { RequireTemplate(PrepareRequest(options_)); }), "");
    options_.templateName.reset();
    EXPECT_TRUE(Warnings().empty());
}

TEST_F(Options, WarnOfLiveFiguresForAReportThatEndsBeforeToday) {
    options_.liveFile = root_.Write("live.ini", "[BASE]\n");
    EXPECT_TRUE(WarnsOnlyOf("--live isn't used: the report ends on 2024-01-03"));
    UseDates("2024-1-2", today_);
    EXPECT_TRUE(Warnings().empty());
    EXPECT_TRUE(PrepareRequest(options_).present.hasLiveFigures);
    options_.liveFile.reset();
    EXPECT_FALSE(PrepareRequest(options_).present.hasLiveFigures);
}

TEST_F(Options, TakeADayForToday) {
    options_.today = "2024-2-1";
    UseDates("2024-1-2", "today");
    const PreparedRequest prepared = PrepareRequest(options_);
    EXPECT_EQ(prepared.present.day, (CalendarDay{2024, 2, 1}));
    EXPECT_EQ(FieldText(prepared.request.EndDate), "2024-02-01");
    options_.today.reset();
    UseDates("today", "today");
    EXPECT_EQ(FieldText(PrepareRequest(options_).request.StartDate), today_);
    EXPECT_EQ(FieldText(PrepareRequest(options_).request.EndDate), today_);
}

class UntoldOptions : public Options {
protected:
    UntoldOptions() {
        options_ = {};
        options_.root = root_.Path();
    }
    /// User, account, kind and days of the request.
    [[nodiscard]] std::string Found() const {
        const GenerateBillRequest request = PrepareRequest(options_).request;
        std::string text;
        for (const std::string_view field :
             {FieldText(request.UserFolder), FieldText(request.Account), FieldText(request.StartDate)}) {
            text.append(field).append(" ");
        }
        return text.append(FieldText(request.EndDate)) + (request.StatementKind == 2 ? " foreign" : "");
    }
    void PutForeign(const std::string& user) const {
        root_.Write("Users/" + user + "/Data/Bill/DWP7.20240105o.txt", "");
    }
};

TEST_F(UntoldOptions, AreThoseOfTheOnlyAccount) {
    EXPECT_PRED2(IsClearLine, Refusal(), "--user");
    PutStatement("20240102", "1.00");
    PutStatement("20240105", "1.00");
    EXPECT_EQ(Found(), "demo 90010002 2024-01-02 2024-01-05");
    EXPECT_EQ(PrepareRequest(options_).request.StatementFormat, 1);
    options_.from = "2024-1-3";
    EXPECT_EQ(Found(), "demo 90010002 2024-1-3 2024-01-05");
    options_.from.reset();
    options_.to = "2024-1-4";
    EXPECT_EQ(Found(), "demo 90010002 2024-01-02 2024-1-4");
}

TEST_F(UntoldOptions, RecogniseTheForeignFamily) {
    PutForeign("demo");
    EXPECT_EQ(Found(), "demo 7 2024-01-05 2024-01-05 foreign");
    root_.Write("Users/demo/Data/Bill/D7.20240104o.txt", ReadFile(root_.Write("text", Statement({"资金状况"}))));
    options_.user = "demo";
    options_.account = "7";
    options_.format = "1";
    EXPECT_EQ(Found(), "demo 7 2024-01-04 2024-01-04") << "who names an account means the domestic one";
    options_.kind = "foreign";
    EXPECT_EQ(Found(), "demo 7 2024-01-05 2024-01-05 foreign");
}

TEST_F(UntoldOptions, ListTheAccountsToChooseFrom) {
    PutStatement("20240102", "1.00");
    PutForeign("demo");
    PutForeign("other");
    EXPECT_PRED2(IsClearLine, Refusal(),
                 "--user demo --account 7 --kind foreign, --user demo --account 90010002, --user other --account 7 "
                 "--kind foreign");
    options_.user = "demo";
    EXPECT_PRED2(IsClearLine, Refusal(), "--user demo --account 7 --kind foreign, --user demo --account 90010002");
    options_.account = "90010002";
    EXPECT_EQ(Found(), "demo 90010002 2024-01-02 2024-01-02");
    options_.user.reset();
    options_.account = "7";
    EXPECT_PRED2(IsClearLine, Refusal(), "--user is missing");
}

TEST_F(UntoldOptions, NameTheOneThatTellsTheAccountsApart) {
    PutStatement("20240102", "1.00");
    root_.Write("Users/demo/Data/Bill/D90010003.20240102o.txt", "");
    EXPECT_PRED2(IsClearLine, Refusal(), "--account is missing");
    PutForeign("demo");
    root_.Write("Users/demo/Data/Bill/D7.20240104o.txt", "");
    options_.account = "7";
    EXPECT_PRED2(IsClearLine, Refusal(), "--kind is missing");
    options_.account.reset();
    PutForeign("other");
    EXPECT_PRED2(IsClearLine, Refusal(), "--user is missing");
}

TEST_F(UntoldOptions, ListNoMoreThanAreReadAtAGlance) {
    for (int account = 0; account < 25; ++account) {
        root_.Write("Users/demo/Data/Bill/D" + std::to_string(100 + account) + ".20240102o.txt", "");
    }
    const std::string refusal = Refusal();
    EXPECT_NE(refusal.find("--account 119 and 5 more"), std::string::npos) << refusal;
}

// What has no statement at all is told by the run, which reads none.
TEST_F(UntoldOptions, AreOfTodayForAnAccountWithoutStatements) {
    options_.user = "demo";
    options_.account = "1";
    options_.format = "1";
    EXPECT_EQ(Found(), "demo 1 " + today_ + " " + today_);
    options_.to = "2024-1-4";
    EXPECT_EQ(Found(), "demo 1 2024-1-4 2024-1-4");
}

TEST_F(Options, BringTheTablesOfAHost) {
    options_.unitFile = root_.Write("units.ini", "[UNITS]\nrb=10\n");
    options_.productFile = root_.Write("products.ini", "[PRODUCTS]\nname=code\n");
    options_.liveFile = root_.Write("live.ini", "[BASE]\nQMJC=5\n[CURRENCY1]\nQMJC=6\n");
    const PreparedRequest prepared = PrepareRequest(options_);
    const GenerateBillRequest& request = prepared.request;
    EXPECT_EQ(prepared.products->UnitOf("rb2405", ""), 10);
    EXPECT_EQ(prepared.products->CodeOf("name"), "code");
    EXPECT_EQ(FieldText(request.BaseMoney.QMJC), "5");
    EXPECT_EQ(FieldText(request.CurrencyMoney[0].QMJC), "6");
    EXPECT_EQ(request.CurrencyCount, 1);
}

TEST_F(Options, TakeUnitsFromTradesAndTableWithoutAFile) {
    EXPECT_TRUE(PrepareRequest(options_).products->WantsTrades());
    EXPECT_EQ(PrepareRequest(options_).products->UnitOf("rb2405", ""), 10);
    options_.kind = "foreign";
    EXPECT_FALSE(PrepareRequest(options_).products->WantsTrades());
    EXPECT_EQ(PrepareRequest(options_).products->UnitOf("rb2405", ""), 1);
}

TEST_F(Options, TakeNoneForUnitsOfOne) {
    root_.Write("none", "[UNITS]\nrb=10\n");
    options_.unitFile = "none";
    EXPECT_FALSE(PrepareRequest(options_).products->WantsTrades());
    EXPECT_EQ(PrepareRequest(options_).products->UnitOf("rb2405", ""), 1);
    options_.unitFile = root_.Path("none");
    EXPECT_EQ(PrepareRequest(options_).products->UnitOf("rb2405", ""), 10);
}

TEST_F(Options, LeaveTheRootFolderOfTheModule) {
    TheModule().rootFolder = "the host's";
    static_cast<void>(PrepareRequest(options_));
    options_.account.reset();
    EXPECT_NE(Refusal(), "");
    EXPECT_EQ(TheModule().rootFolder, "the host's");
}

TEST_F(Options, TakeARootWithSeparatorsAtItsEnd) {
    options_.root = root_.Path() + "//";
    EXPECT_EQ(PrepareRequest(options_).rootFolder, root_.Path());
}

}  // namespace
}  // namespace tradebill::report_options_test
