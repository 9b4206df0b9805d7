#include "cli/awaited_work.h"

#include <chrono>
#include <cstddef>
#include <iostream>
#include <string>
#include <string_view>
#include <system_error>

#include "cli/shown_text.h"
#include "cli/voice.h"
#include "platform/terminal.h"
#include "requests/usage_error.h"

namespace tradebill {
namespace {

constexpr std::string_view kEraseLine = "\r\x1B[K";

}  // namespace

CAwaitedWork::CAwaitedWork(bool quiet, Duration longWork)
    : isQuiet_(quiet), isTerminal_(IsErrorOutputTerminal()), longWork_(longWork), begun_(Clock::now()), shown_(begun_) {
    try {
        signal_.emplace([] {}, kExitTryAgain);
    } catch (const std::system_error&) {
        signal_.reset();  // the wish ends the program then
    }
}

CAwaitedWork::~CAwaitedWork() {
    Rest();
}

void CAwaitedWork::OnDay(int day, int days, std::string_view dayText) {
    std::string text = "reading day " + std::to_string(day) + " of " + std::to_string(days);
    Show(text.append("  ").append(dayText), day == 1 || (day == days && isTerminal_));
}

void CAwaitedWork::OnStage(std::string_view stage) {
    Show(std::string(stage) + " ...", true);
}

void CAwaitedWork::BeginStep(std::string_view what, std::size_t step, std::size_t steps) {
    const std::string ofAll = " of " + std::to_string(steps) + " " + std::string(what);
    if (WantsStop()) throw CStoppedWork(std::to_string(step - 1) + ofAll + " are done");
    Show(std::to_string(step) + ofAll, step == steps && isTerminal_);
}

void CAwaitedWork::BeginFile(const std::string& file) {
    if (WantsStop()) throw CStoppedWork(file + " isn't written");
    OnStage(file);
}

void CAwaitedWork::Rest() {
    if (!isLineThere_) return;
    SendOrders(std::cerr, kEraseLine);
    std::cerr << std::flush;
    isLineThere_ = false;
}

bool CAwaitedWork::IsDue(bool isNew) {
    constexpr auto kRedrawTime = std::chrono::milliseconds(50);
    constexpr auto kBetweenLines = std::chrono::seconds(5);
    if (isQuiet_) return false;
    const auto now = Clock::now();
    if (isTerminal_ ? !isNew && now - shown_ < kRedrawTime
                    : now - begun_ < longWork_ || (!isNew && now - shown_ < kBetweenLines)) {
        return false;
    }
    shown_ = now;
    return true;
}

void CAwaitedWork::Show(const std::string& text, bool isNew) {
    if (!IsDue(isNew)) return;
    if (!isTerminal_) return Say(text);
    Rest();
    std::cerr << ShownText(text) << std::flush;
    isLineThere_ = true;
}

}  // namespace tradebill
