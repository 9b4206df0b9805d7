#include "requests/configuration.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>

#include "cli/cli_fixture.h"
#include "platform/paths.h"
#include "requests/report_options.h"

namespace tradebill::requests_configuration_test {
namespace {

using Optional = std::optional<std::string>;

class Configuration : public CliFixture {
protected:
    [[nodiscard]] std::shared_ptr<const ReportOptions> Load(const std::string& content) const {
        return LoadConfiguration(root_.Write("config.ini", content));
    }
    [[nodiscard]] std::string Refusal(const std::string& content) const {
        return UsageErrorOf([&] { return Load(content); });
    }
    /// A path that the configuration means by `name`.
    [[nodiscard]] std::string Below(const std::string& name) const {
        return FolderOf(root_.Path("config.ini")) + "/" + name;
    }
};

TEST_F(Configuration, SaysWhatIsTypedEveryDay) {
    const auto options = Load(
        "; mine\n[OPTIONS]\nroot=settlement\nUser=li\nuser=wang\nunits=\nproducts=sub/products.ini\n"
        "max_statement=1M\n");
    ASSERT_NE(options, nullptr);
    EXPECT_EQ(options->root, Below("settlement"));
    EXPECT_EQ(options->user, "li");  // the first of two
    EXPECT_EQ(options->unitFile, Optional());
    EXPECT_EQ(options->productFile, Below("sub/products.ini"));
    EXPECT_EQ(options->maxStatement, "1M");
}

TEST_F(Configuration, HasPathsFromItsOwnFolderOrFromWhereTheyBegin) {
    const std::string absolute = FolderOf(root_.Path("x")) + "/units.ini";
    EXPECT_EQ(Load("[OPTIONS]\nunits=" + absolute + "\n")->unitFile, absolute);
    EXPECT_EQ(Load("[OPTIONS]\nunits=none\n")->unitFile, "none");
    EXPECT_EQ(Load("[OPTIONS]\nroot=none\n")->root, Below("none"));
}

TEST_F(Configuration, RefusesWhatItCannotSay) {
    EXPECT_TRUE(IsClearLine(Refusal("[OPTIONS]\nroot=a\nformat=1\n"), "config.ini, line 3"));
    EXPECT_TRUE(Refusal("[OPTIONS]\naccount=1\n")
                    .ends_with("expected root, user, units, products or max_statement, found \"account\""));
    EXPECT_TRUE(IsClearLine(Refusal("root=a\n[REQUEST]\n"), "config.ini"));
    EXPECT_TRUE(IsClearLine(UsageErrorOf([&] { return LoadConfiguration(root_.Path("missing.ini")); }), "missing.ini"));
}

TEST_F(Configuration, IsNoneIfThatIsAsked) {
    EXPECT_EQ(LoadConfiguration("none"), nullptr);
}

TEST_F(Configuration, CountsWhereNeitherOptionsNorRequestFileSayAnything) {
    options_ = {};
    root_.Write("Users/other/Data/Bill/x", "");
    options_.configured = Load("[OPTIONS]\nroot=" + root_.Path() + "\nuser=other\n");
    EXPECT_EQ(Settle(options_).options.root, root_.Path());
    EXPECT_EQ(Settle(options_).options.user, "other");
    options_.requestFile = root_.Write("request.ini", "[REQUEST]\nuser=demo\n");
    EXPECT_EQ(Settle(options_).options.user, "demo");
    options_.user = "third";
    EXPECT_EQ(Settle(options_).options.user, "third");
}

TEST_F(Configuration, HasAUserForItsOwnRootAlone) {
    options_ = {};
    options_.configured = Load("[OPTIONS]\nroot=elsewhere\nuser=other\nunits=none\n");
    options_.root = root_.Path();
    EXPECT_EQ(Settle(options_).options.user, Optional());
    EXPECT_EQ(Settle(options_).options.unitFile, "none");
}

}  // namespace
}  // namespace tradebill::requests_configuration_test
