#include "cli/progress_line.h"

#include <chrono>
#include <iostream>
#include <string_view>

#include "cli/shown_text.h"

namespace tradebill {
namespace {

constexpr std::string_view kEraseLine = "\r\x1B[K";

}  // namespace

CProgressLine::~CProgressLine() {
    SendOrders(std::cerr, kEraseLine);
    std::cerr << std::flush;
}

void CProgressLine::OnDay(int day, int days, std::string_view dayText) {
    constexpr auto kRedrawTime = std::chrono::milliseconds(50);
    const auto now = std::chrono::steady_clock::now();
    if (now - drawn_ < kRedrawTime && day != days) return;
    drawn_ = now;
    SendOrders(std::cerr, kEraseLine);
    std::cerr << "reading day " << day << " of " << days << "  " << dayText << std::flush;
}

void CProgressLine::OnStage(std::string_view stage) {
    SendOrders(std::cerr, kEraseLine);
    std::cerr << stage << " ..." << std::flush;
}

}  // namespace tradebill
