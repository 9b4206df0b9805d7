#include "batch/batch_state.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "platform/file.h"
#include "support/temp_folder.h"

namespace tradebill::batch_state_test {
namespace {

class State : public testing::Test {
protected:
    CTempFolder folder_;
    std::string path_ = folder_.Path("batch.json");
};

TEST_F(State, IsReadAsItWasWritten) {
    const BatchState state{.accounts = 10000, .today = "2026-11-23", .version = "0.1.0"};
    ASSERT_TRUE(SaveBatchState(path_, state));
    EXPECT_EQ(LoadBatchState(path_).state, state);
    EXPECT_EQ(ReadFile(path_), "{\"accounts\":10000,\"today\":\"2026-11-23\",\"version\":\"0.1.0\"}\n");
}

TEST_F(State, IsNothingBeforeABatchHasBegun) {
    const ReadState read = LoadBatchState(path_);
    EXPECT_FALSE(read.state);
    EXPECT_FALSE(read.unread);
}

TEST_F(State, IsNothingOfWhatIsNone) {
    for (const char* const text :
         {"", "{", "[]", "{\"accounts\":1}", "{\"accounts\":\"1\",\"today\":\"\",\"version\":\"\"}"}) {
        std::ofstream(path_) << text;
        EXPECT_FALSE(LoadBatchState(path_).state) << text;
    }
}

TEST_F(State, TellsWhatCannotBeRead) {
    const ReadState read = LoadBatchState(folder_.Path());
    ASSERT_TRUE(read.unread);
    EXPECT_EQ(read.unread->state, FileState::NotAFile);
}

}  // namespace
}  // namespace tradebill::batch_state_test
