// Where the system has no thread to spare.
#include "cli/page_relay.h"

#include <gtest/gtest.h>
#include <pthread.h>

#include <cstddef>
#include <string>
#include <string_view>

#include "page/page_form.h"
#include "page/page_sink.h"

namespace tradebill::linux_page_relay_test {
namespace {

/// As long as it lives, no new thread gets the memory that it asks for.
class CNoThreads {
public:
    CNoThreads() {
        constexpr std::size_t kTooMuch = std::size_t{1} << 60;
        EXPECT_EQ(::pthread_getattr_default_np(&before_), 0);
        pthread_attr_t large{};
        EXPECT_EQ(::pthread_attr_init(&large), 0);
        EXPECT_EQ(::pthread_attr_setstacksize(&large, kTooMuch), 0);
        EXPECT_EQ(::pthread_setattr_default_np(&large), 0);
        ::pthread_attr_destroy(&large);
    }
    ~CNoThreads() {
        EXPECT_EQ(::pthread_setattr_default_np(&before_), 0);
        ::pthread_attr_destroy(&before_);
    }
    CNoThreads(const CNoThreads&) = delete;
    CNoThreads& operator=(const CNoThreads&) = delete;

private:
    pthread_attr_t before_{};
};

class CNotes final : public CPageSink {
public:
    [[nodiscard]] const CPageForm& Form() const override { return form_; }
    void AddStyle(std::string_view block) override { notes.append("style ").append(block).append(";"); }
    void AddText(std::string_view text) override { notes.append(text).append(";"); }
    void ClosePage() override { notes += "close"; }

    std::string notes;

private:
    CPageForm form_;
};

TEST(PageRelay, HandsEverythingOnItselfWithoutAThread) {
    const CNoThreads none;
    CNotes notes;
    CPageRelay relay(notes);
    relay.AddStyle("h1");
    EXPECT_EQ(notes.notes, "style h1;");  // at once
    relay.AddText("one");
    relay.ClosePage();
    relay.Finish();
    EXPECT_EQ(notes.notes, "style h1;one;close");
}

}  // namespace
}  // namespace tradebill::linux_page_relay_test
