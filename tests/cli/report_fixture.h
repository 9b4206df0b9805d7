// The command `report`, run in the test's own process.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "cli/cli_fixture.h"
#include "cli/report_command.h"
#include "support/shell.h"

namespace tradebill {

class ReportFixture : public CliFixture {
protected:
    Answer Run() {
        command_.options = options_;
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        Answer answer{};
        try {
            answer.exit = RunReportCommand(command_);
        } catch (...) {
            testing::internal::GetCapturedStdout();
            testing::internal::GetCapturedStderr();
            throw;
        }
        answer.out = testing::internal::GetCapturedStdout();
        answer.err = testing::internal::GetCapturedStderr();
        return answer;
    }

    ReportCommand command_;
};

}  // namespace tradebill
