#include "platform/alsa/Interruption.h"

#include <gtest/gtest.h>
#include <poll.h>

#include <cerrno>

namespace platform::alsa {
namespace {

using namespace std::chrono_literals;

TEST(Interruption, BreaksIntoWhatTheKernelLetsTheThreadWaitFor) {
    const Interruption interruption(0ms);
    // More than once: the first time the thread may not be waiting yet.
    for (int time = 0; time < 3; ++time) {
        EXPECT_EQ(poll(nullptr, 0, 60000), -1);
        EXPECT_EQ(errno, EINTR);
    }
}

TEST(Interruption, LeavesTheThreadAloneAfterwards) {
    { const Interruption interruption(0ms); }
    EXPECT_EQ(poll(nullptr, 0, 20), 0);
}

TEST(Interruption, LetsSomeTimePassBefore) {
    const Interruption interruption(std::chrono::hours(1));
    EXPECT_EQ(poll(nullptr, 0, 20), 0);
}

}  // namespace
}  // namespace platform::alsa
