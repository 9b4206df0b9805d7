#include "cli/progress_line.h"

#include <chrono>
#include <iostream>
#include <string_view>

namespace tradebill {
namespace {

constexpr std::string_view kEraseLine = "\r\x1B[K";

}  // namespace

CProgressLine::~CProgressLine() {
    std::cerr << kEraseLine << std::flush;
}

void CProgressLine::OnDay(int day, int days, std::string_view dayText) {
    constexpr auto kRedrawTime = std::chrono::milliseconds(50);
    const auto now = std::chrono::steady_clock::now();
    if (now - drawn_ < kRedrawTime && day != days) return;
    drawn_ = now;
    std::cerr << kEraseLine << "reading day " << day << " of " << days << "  " << dayText << std::flush;
}

void CProgressLine::OnStage(std::string_view stage) {
    std::cerr << kEraseLine << stage << " ..." << std::flush;
}

}  // namespace tradebill
