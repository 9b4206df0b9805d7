// Pages that the system doesn't take: a gathered page tells it, and stays as far as it came.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

#include "page/html_builder.h"
#include "page/page_fixture.h"

namespace tradebill::linux_page_limits_test {
namespace {

constexpr std::size_t kEndSize = std::string_view("</body>\r\n</html>\r\n").size();

/// Lets no file of this process grow beyond a size, for as long as it lives.
class CFileSizeLimit {
public:
    explicit CFileSizeLimit(rlim_t most) : signal_(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{most, before_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~CFileSizeLimit() {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        static_cast<void>(std::signal(SIGXFSZ, signal_));
    }
    CFileSizeLimit(const CFileSizeLimit&) = delete;
    CFileSizeLimit& operator=(const CFileSizeLimit&) = delete;

private:
    void (*signal_)(int);
    rlimit before_{};
};

class PageLimits : public PageFixture {
protected:
    /// A closed page and `lines` behind it, gathered.
    static void Write(CHtmlBuilder& page, int lines) {
        const CPageGathering gathering(page);
        page.ClosePage();
        for (int i = 0; i < lines; ++i) page.AddText(std::string(998, 'x') + "\r\n");
        page.ClosePage();
    }
};

TEST_F(PageLimits, OfAFullDiskLeaveTheBeginningOfThePage) {
    for (const rlim_t most : {rlim_t{60}, rlim_t{1000}, rlim_t{300000}}) {
        CHtmlBuilder page(path_);
        {
            const CFileSizeLimit limit(most);
            Write(page, 1000);
        }
        EXPECT_TRUE(page.HasFailed()) << most;
        EXPECT_LE(Bytes().size(), most);
        const std::string before = Bytes();
        page.AddText("behind");
        page.ClosePage();
        EXPECT_EQ(Bytes(), before) << most;  // no page with a gap
    }
}

TEST_F(PageLimits, DontFailAPageThatFits) {
    CHtmlBuilder page(path_);
    {
        const CFileSizeLimit limit(2000000);
        Write(page, 1000);
    }
    EXPECT_FALSE(page.HasFailed());
    EXPECT_GT(Bytes().size(), 1000000U);
}

TEST_F(PageLimits, OfADeviceAreTold) {
    std::filesystem::create_symlink("/dev/null", path_);
    CHtmlBuilder page(path_);
    Write(page, 1000);
    EXPECT_TRUE(page.HasFailed());
}

TEST_F(PageLimits, OfAPageThatIsntGatheredAreTold) {
    const struct {
        void (*before)(CHtmlBuilder& page);
        void (*beyond)(CHtmlBuilder& page);
    } cases[] = {
        {[](CHtmlBuilder& page) { page.AddText("row"); }, [](CHtmlBuilder& page) { page.ClosePage(); }},
        {[](CHtmlBuilder& page) { page.AddText("row"); },
         [](CHtmlBuilder& page) { page.AddStyle({.tag = StyleTag::Div}); }},
        {[](CHtmlBuilder& page) {
             page.ClosePage();
             page.AddText("row");  // a closing adds its line end
         },
         [](CHtmlBuilder& page) { page.ClosePage(); }},
    };
    for (const auto& row : cases) {
        CHtmlBuilder page(path_);
        row.before(page);
        const std::string before = Bytes();
        EXPECT_FALSE(page.HasFailed());
        {
            const CFileSizeLimit limit(before.size());
            row.beyond(page);
        }
        EXPECT_TRUE(page.HasFailed());
        EXPECT_EQ(Bytes().size(), before.size());
    }
}

TEST_F(PageLimits, OfAPageThatIsCloseToItsEndAreTold) {
    constexpr std::size_t kStreamed = std::size_t{40} * 1024;
    for (const std::size_t behind : {std::size_t{0}, std::size_t{5}}) {
        CHtmlBuilder page(path_);
        {
            const CPageGathering gathering(page);
            page.ClosePage();
            page.AddText("begin");
            page.AddText(std::string(kStreamed, 'x'));
            page.AddText(std::string(behind, 'y'));
            // The end of the closed page is to be put back below what was added since.
            const CFileSizeLimit limit(Bytes().size() + (behind != 0 ? kEndSize : 0));
            page.Settle();
        }
        EXPECT_TRUE(page.HasFailed()) << behind;
    }
}

TEST_F(PageLimits, OfAShortGatheredPageAreTold) {
    CHtmlBuilder page(path_);
    {
        const CPageGathering gathering(page);
        page.AddText("row");
        const CFileSizeLimit limit(10);
        page.Settle();
    }
    EXPECT_TRUE(page.HasFailed());
}

TEST_F(PageLimits, StopAtTheFirstPieceThatDoesntFit) {
    CHtmlBuilder page(path_);
    const std::size_t headSize = Bytes().size();
    {
        const CPageGathering gathering(page);
        page.ClosePage();
        page.AddText("kept");
        const CFileSizeLimit limit(headSize);
        page.AddText(std::string(std::size_t{40} * 1024, 'x'));
    }
    EXPECT_TRUE(page.HasFailed());
    EXPECT_EQ(Bytes().size(), headSize);
}

TEST_F(PageLimits, AreTheSameForAPageThatWasTakenAway) {
    CHtmlBuilder page(path_);
    {
        const CPageGathering gathering(page);
        page.AddText("row");
        std::filesystem::remove(path_);
    }
    EXPECT_TRUE(page.HasFailed());
    EXPECT_FALSE(std::filesystem::exists(path_));
}

}  // namespace
}  // namespace tradebill::linux_page_limits_test
