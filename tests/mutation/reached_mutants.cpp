// Tells which mutants each test passes: a line for each test, with the source that has it, its milliseconds and the
// numbers.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>

#include "base/mutant_switch.h"

namespace tradebill::reached_mutants {
namespace {

class CTeller : public ::testing::EmptyTestEventListener {
public:
    explicit CTeller(const char* path) : file_(path) {}

    void OnTestStart(const ::testing::TestInfo&) override {
        std::fill(std::begin(reachedMutants), std::end(reachedMutants), false);
    }

    void OnTestEnd(const ::testing::TestInfo& test) override {
        file_ << test.test_suite_name() << '.' << test.name() << '\t' << test.file() << '\t'
              << test.result()->elapsed_time() << '\t';
        for (int number = 1; number < kMostMutants; ++number) {
            if (reachedMutants[number]) file_ << number << ' ';
        }
        file_ << std::endl;
    }

private:
    std::ofstream file_;
};

const bool kIsTold = [] {
    const char* const path = std::getenv("TRADEBILL_REACHED");
    if (path != nullptr) ::testing::UnitTest::GetInstance()->listeners().Append(new CTeller(path));
    return path != nullptr;
}();

}  // namespace
}  // namespace tradebill::reached_mutants
