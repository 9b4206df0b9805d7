// A report of its own for each test.
#pragma once

#include <gtest/gtest.h>

#include "report/report.h"

namespace tradebill {

class StoreFixture : public testing::Test {
protected:
    CReport report;
};

}  // namespace tradebill
