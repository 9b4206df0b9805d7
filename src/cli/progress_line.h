// The line on a terminal that shows how far a run is.
#pragma once

#include <chrono>
#include <string_view>

#include "driver/report_run.h"

namespace tradebill {

/// Redraws one line of standard error, at most some twenty times a second, and takes it away at the end.
class CProgressLine : public CRunWatcher {
public:
    ~CProgressLine() override;
    void OnDay(int day, int days, std::string_view dayText) override;
    void OnStage(std::string_view stage) override;

private:
    std::chrono::steady_clock::time_point drawn_{};
};

}  // namespace tradebill
