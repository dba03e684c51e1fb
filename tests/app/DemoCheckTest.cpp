#include "app/DemoCheck.h"

#include <gtest/gtest.h>

#include "app/Watchdog.h"

namespace app {
namespace {

using testing::internal::CaptureStdout;
using testing::internal::GetCapturedStdout;

/// What the check said, and its verdict.
struct Verdict {
    bool right;
    std::string said;
};

Verdict check(Demo& demo) {
    demo.show();
    DemoCheck demoCheck(demo);
    CaptureStdout();
    const bool right = demoCheck.run();
    return {right, GetCapturedStdout()};
}

TEST(DemoCheck, IsContentWhenEveryByteArrives) {
    Demo demo;
    const Verdict verdict = check(demo);
    EXPECT_TRUE(verdict.right) << verdict.said;
    EXPECT_EQ(demo.tormelk.log().size(), 8U);
}

/// Passes on what is sent, after `change` had its way with it.
void comeBetween(Demo& demo, const std::function<void(std::vector<std::uint8_t>&)>& change) {
    demo.destination.onReceive([&demo, change](const platform::MIDIPacketList& list) {
        platform::forEachPacket(list, [&](std::uint64_t, std::span<const std::uint8_t> bytes) {
            std::vector<std::uint8_t> changed(bytes.begin(), bytes.end());
            change(changed);
            demo.tormelk.receive(changed);
        });
    });
}

TEST(DemoCheck, SeesOneWrongByteAndSaysWhichOne) {
    Demo demo;
    comeBetween(demo, [](std::vector<std::uint8_t>& message) {
        if (message[6] == 3) {
            message[100] = 0x55;
        }
    });
    const Verdict verdict = check(demo);
    EXPECT_FALSE(verdict.right);
    EXPECT_NE(verdict.said.find("WRONG: byte 100 arrived as 55, the editor holds"),
              std::string::npos)
        << verdict.said;
}

TEST(DemoCheck, MissesAMessageThatDidNotArrive) {
    Demo demo;
    comeBetween(demo, [](std::vector<std::uint8_t>& message) {
        if (message[6] == 2) {
            message.clear();
        }
    });
    const Verdict verdict = check(demo);
    EXPECT_FALSE(verdict.right);
    EXPECT_NE(verdict.said.find("WRONG: message 2 did not arrive"), std::string::npos)
        << verdict.said;
}

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
