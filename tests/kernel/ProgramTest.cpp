#include "kernel/Program.h"

#include <gtest/gtest.h>

#include <csignal>
#include <stdexcept>

namespace kernel {
namespace {

using namespace std::chrono_literals;

TEST(Program, HandsBackWhatWasWrittenAndTheExitStatus) {
    const ProgramResult result = run({"sh", "-c", "echo out; echo errors >&2; exit 3"});
    EXPECT_EQ(result.output, "out\nerrors\n");
    EXPECT_EQ(result.status, 3);
}

TEST(Program, TakesItsArgumentsAsTheyAre) {
    EXPECT_EQ(run({"printf", "[%s]", "a b", "$HOME", "'"}).output, "[a b][$HOME][']");
}

TEST(Program, ThatIsNotThereIsAFailureWithAReason) {
    EXPECT_THROW(run({"no-such-program"}), std::runtime_error);
}

TEST(Program, IsKilledAfterTheLimitWithAllThatItHasStarted) {
    const auto began = std::chrono::steady_clock::now();
    EXPECT_EQ(run({"sh", "-c", "sleep 60 & sleep 60"}, 100ms).status, 128 + SIGKILL);
    EXPECT_LT(std::chrono::steady_clock::now() - began, 10s);
}

TEST(Program, ShowsItsOutputWhileItRuns) {
    Program program({"sh", "-c", "echo ready; sleep 60"});
    EXPECT_TRUE(program.waitForOutput("ready\n", 10s));
    EXPECT_EQ(program.stop(SIGTERM).status, 128 + SIGTERM);
}

TEST(Program, IsNotWaitedForOnceItHasEndedWithoutTheText) {
    const Program program({"echo", "something else"});
    const auto began = std::chrono::steady_clock::now();
    EXPECT_FALSE(program.waitForOutput("ready", 60s));
    EXPECT_LT(std::chrono::steady_clock::now() - began, 30s);
}

}  // namespace
}  // namespace kernel
