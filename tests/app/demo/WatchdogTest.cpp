#include "app/demo/Watchdog.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace app {
namespace {

using WatchdogDeathTest = testing::Test;

TEST(WatchdogDeathTest, EndsAProcessThatHangs) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            const Watchdog watchdog(std::chrono::seconds(1));
            std::this_thread::sleep_for(std::chrono::minutes(1));
        },
        testing::ExitedWithCode(3), "");
}

TEST(Watchdog, LetsGoOfAProcessThatIsDoneInTime) {
    const auto start = std::chrono::steady_clock::now();
    { const Watchdog watchdog(std::chrono::minutes(5)); }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

}  // namespace
}  // namespace app
