#include "cli/page_relay.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>

#include "page/page_form.h"

namespace tradebill::page_relay_test {
namespace {

/// Writes down what it gets, and throws at the text "throw".
class CNotes final : public CPageSink {
public:
    [[nodiscard]] const CPageForm& Form() const override { return form_; }
    void AddStyle(std::string_view block) override { Note("style " + std::string(block)); }
    void AddText(std::string_view text) override {
        if (text == "throw") throw std::runtime_error("thrown");
        Note(std::string(text));
    }
    void ClosePage() override { Note("close"); }
    void BeginRows(const PageRows& table) override {
        Note("rows of " + std::to_string(table.columns) + " " + std::string(table.lineClass));
    }
    void BeginDay(std::string_view day) override { Note("day " + std::string(day)); }
    void EndRows() override { Note("end"); }

    std::string notes;
    std::thread::id thread;

private:
    void Note(const std::string& what) {
        notes += what + "\n";
        thread = std::this_thread::get_id();
    }
    CPageForm form_;
};

TEST(PageRelay, HandsEverythingOnInItsOrder) {
    CNotes notes;
    CPageRelay relay(notes);
    EXPECT_EQ(&relay.Form(), &notes.Form());
    std::string expected;
    for (int i = 0; i < 1000; ++i) {
        const std::string number = std::to_string(i);
        relay.AddText(number);
        relay.AddStyle(number);
        if (i % 10 == 0) relay.ClosePage();
        expected += number + "\nstyle " + number + "\n" + (i % 10 == 0 ? "close\n" : "");
    }
    relay.Finish();
    EXPECT_EQ(notes.notes, expected);
    EXPECT_NE(notes.thread, std::this_thread::get_id());
}

TEST(PageRelay, HandsOnWhatIsKnownOfRows) {
    CNotes notes;
    CPageRelay relay(notes);
    {
        const std::string lineClass = "a class that is gone when it is handed on";
        const std::string day = "a day that is gone when it is handed on";
        relay.BeginRows({.columns = 9, .lineClass = lineClass});
        relay.BeginDay(day);
    }
    relay.EndRows();
    relay.Finish();
    EXPECT_EQ(
        notes.notes,
        "rows of 9 a class that is gone when it is handed on\nday a day that is gone when it is handed on\nend\n");
}

TEST(PageRelay, TellsAtTheEndWhatTheSinkHasThrown) {
    CNotes notes;
    CPageRelay relay(notes);
    relay.AddText("before");
    relay.AddText("throw");
    for (int i = 0; i < 100; ++i) relay.AddText("behind");
    EXPECT_THROW(relay.Finish(), std::runtime_error);
    EXPECT_EQ(notes.notes, "before\n");
}

TEST(PageRelay, MayGoWithoutAnEnd) {
    CNotes notes;
    {
        CPageRelay relay(notes);
        relay.AddText("text");
    }
    EXPECT_EQ(notes.notes, "text\n");
}

}  // namespace
}  // namespace tradebill::page_relay_test
