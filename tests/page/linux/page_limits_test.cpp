// Pages that the system doesn't take: a gathered page tells it, and stays as far as it came.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <filesystem>
#include <string>

#include "page/html_builder.h"
#include "page/page_fixture.h"

namespace tradebill::linux_page_limits_test {
namespace {

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

}  // namespace
}  // namespace tradebill::linux_page_limits_test
