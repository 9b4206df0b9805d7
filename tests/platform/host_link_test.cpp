#include "platform/host_link.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <string>
#include <thread>
#include <type_traits>
#include <vector>

#include "support/host_objects.h"

namespace tradebill::host_link_test {
namespace {

using std::chrono::steady_clock;

struct DestroyEvent {
    void operator()(HostEventHandle event) const { DestroyHostEvent(event); }
};
using UniqueEvent = std::unique_ptr<std::remove_pointer_t<HostEventHandle>, DestroyEvent>;

struct DestroyWindow {
    void operator()(HostWindowHandle window) const { DestroyHostWindow(window); }
};
using UniqueWindow = std::unique_ptr<std::remove_pointer_t<HostWindowHandle>, DestroyWindow>;

UniqueEvent ManualEvent() {
    return UniqueEvent(CreateHostEvent(1));
}

UniqueEvent AutoEvent() {
    return UniqueEvent(CreateHostEvent(0));
}

struct Message {
    std::uint32_t message;
    std::uint64_t wParam;
    std::int64_t lParam;
    std::thread::id thread;
};

void KeepMessage(void* context, std::uint32_t message, std::uint64_t wParam, std::int64_t lParam) {
    static_cast<std::vector<Message>*>(context)->push_back({message, wParam, lParam, std::this_thread::get_id()});
}

TEST(HostWindow, ReceivesMessageAndParameters) {
    std::vector<Message> messages;
    const UniqueWindow window(CreateHostWindow(KeepMessage, &messages));
    SendHostMessage(window.get(), 0x0400 + 77, 4);
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages[0].message, 0x0400U + 77);
    EXPECT_EQ(messages[0].wParam, 4U);
    EXPECT_EQ(messages[0].lParam, 0);
}

TEST(HostWindow, HasHandledAMessageWhenSendingReturns) {
    std::vector<Message> messages;
    const UniqueWindow window(CreateHostWindow(KeepMessage, &messages));
    SendHostMessage(window.get(), 0xFFFFFFFF, 1);
    SendHostMessage(window.get(), 0, 0xFFFFFFFFFFFFFFFF);
    ASSERT_EQ(messages.size(), 2U);
    EXPECT_EQ(messages[0].message, 0xFFFFFFFFU);
    EXPECT_EQ(messages[1].wParam, 0xFFFFFFFFFFFFFFFFU);
    EXPECT_EQ(messages[0].thread, std::this_thread::get_id());
}

TEST(HostWindow, MayBeNull) {
    SendHostMessage(nullptr, 1, 4);
    DestroyHostWindow(nullptr);
    const UniqueWindow mute(CreateHostWindow(nullptr, nullptr));
    SendHostMessage(mute.get(), 1, 4);
}

TEST(HostEvent, IsUnsignalledAtFirst) {
    EXPECT_EQ(WaitForHostEvent(ManualEvent().get(), 0), 0);
    EXPECT_EQ(WaitForHostEvent(AutoEvent().get(), 0), 0);
}

TEST(HostEvent, StaysSignalledUntilResetIfManual) {
    const UniqueEvent event = ManualEvent();
    SignalHostEvent(event.get());
    EXPECT_EQ(WaitForHostEvent(event.get(), 0), 1);
    EXPECT_EQ(WaitForHostEvent(event.get(), 0), 1);
    ResetHostEvent(event.get());
    EXPECT_EQ(WaitForHostEvent(event.get(), 0), 0);
}

TEST(HostEvent, IsResetByOneWaitIfAutomatic) {
    const UniqueEvent event = AutoEvent();
    SignalHostEvent(event.get());
    SignalHostEvent(event.get());
    EXPECT_EQ(WaitForHostEvent(event.get(), 0), 1);
    EXPECT_EQ(WaitForHostEvent(event.get(), 0), 0);
    SignalHostEvent(event.get());
    ResetHostEvent(event.get());
    EXPECT_EQ(WaitForHostEvent(event.get(), 0), 0);
}

TEST(HostEvent, TakesAnyNonzeroFlagAsManual) {
    const UniqueEvent event(CreateHostEvent(-5));
    SignalHostEvent(event.get());
    EXPECT_EQ(WaitForHostEvent(event.get(), 0), 1);
    EXPECT_EQ(WaitForHostEvent(event.get(), 0), 1);
}

TEST(HostEvent, LetsAWaitRunOutOfTime) {
    const UniqueEvent event = AutoEvent();
    const auto start = steady_clock::now();
    EXPECT_EQ(WaitForHostEvent(event.get(), 20), 0);
    EXPECT_GE(steady_clock::now() - start, std::chrono::milliseconds(20));
}

TEST(HostEvent, WakesAWaitWithoutEnd) {
    const UniqueEvent event = AutoEvent();
    std::thread host([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
        SignalHostEvent(event.get());
    });
    EXPECT_EQ(WaitForHostEvent(event.get(), -1), 1);
    host.join();
}

TEST(HostEvent, WakesAWaitBeforeItsTimeRunsOut) {
    const UniqueEvent event = ManualEvent();
    const auto start = steady_clock::now();
    std::thread host([&] { SignalHostEvent(event.get()); });
    EXPECT_TRUE(WaitForEvent(event.get(), 60000));
    EXPECT_LT(steady_clock::now() - start, std::chrono::seconds(30));
    host.join();
}

TEST(HostEvent, LetsOneOfTwoWaitersPassIfAutomatic) {
    const UniqueEvent event = AutoEvent();
    std::atomic<int> passed = 0;
    const auto wait = [&] { passed += WaitForHostEvent(event.get(), 40); };
    std::thread one(wait);
    std::thread other(wait);
    SignalEvent(event.get());
    one.join();
    other.join();
    EXPECT_EQ(passed, 1);
}

TEST(HostEvent, MayBeNull) {
    SignalHostEvent(nullptr);
    ResetHostEvent(nullptr);
    DestroyHostEvent(nullptr);
    EXPECT_EQ(WaitForHostEvent(nullptr, 0), 0);
    EXPECT_EQ(WaitForHostEvent(nullptr, -1), 0);
    EXPECT_FALSE(WaitForEvent(nullptr, 1));
    SignalEvent(nullptr);
}

TEST(AcknowledgeStop, DoesNothingWithoutAStopEvent) {
    const UniqueEvent acknowledge = ManualEvent();
    EXPECT_FALSE(AcknowledgeStop(nullptr, acknowledge.get(), [] { ADD_FAILURE() << "no stop was asked for"; }));
    EXPECT_FALSE(WaitForEvent(acknowledge.get(), 0));
}

TEST(AcknowledgeStop, DoesNothingUntilTheStopIsSignalled) {
    const UniqueEvent stop = ManualEvent();
    const UniqueEvent acknowledge = ManualEvent();
    EXPECT_FALSE(AcknowledgeStop(stop.get(), acknowledge.get(), [] { ADD_FAILURE() << "no stop was asked for"; }));
    EXPECT_FALSE(WaitForEvent(acknowledge.get(), 0));
}

TEST(AcknowledgeStop, ActsBeforeItAnswers) {
    const UniqueEvent stop = ManualEvent();
    const UniqueEvent acknowledge = ManualEvent();
    SignalEvent(stop.get());
    std::string order;
    EXPECT_TRUE(AcknowledgeStop(stop.get(), acknowledge.get(),
                                [&] { order += WaitForEvent(acknowledge.get(), 0) ? "after" : "before"; }));
    EXPECT_EQ(order, "before");
    EXPECT_TRUE(WaitForEvent(acknowledge.get(), 0));
}

TEST(AcknowledgeStop, NeverResetsAManualStop) {
    const UniqueEvent stop = ManualEvent();
    const UniqueEvent acknowledge = AutoEvent();
    SignalEvent(stop.get());
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(AcknowledgeStop(stop.get(), acknowledge.get(), [] {}));
        EXPECT_TRUE(WaitForEvent(acknowledge.get(), 0));
    }
}

TEST(AcknowledgeStop, AnswersAnAutomaticStopOnce) {
    const UniqueEvent stop = AutoEvent();
    const UniqueEvent acknowledge = ManualEvent();
    SignalEvent(stop.get());
    EXPECT_TRUE(AcknowledgeStop(stop.get(), acknowledge.get(), [] {}));
    EXPECT_FALSE(AcknowledgeStop(stop.get(), acknowledge.get(), [] {}));
}

TEST(AcknowledgeStop, SeesAStopWithoutAnEventToAnswerBy) {
    const UniqueEvent stop = ManualEvent();
    SignalEvent(stop.get());
    EXPECT_TRUE(AcknowledgeStop(stop.get(), nullptr, [] {}));
}

}  // namespace
}  // namespace tradebill::host_link_test
