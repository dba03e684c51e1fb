#include "app/demo/DemoCheck.h"

#include <gtest/gtest.h>

namespace app {
namespace {

using platform::software::SoftwareMidiService;
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
    SoftwareMidiService midiService;
    Demo demo(midiService);
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
    SoftwareMidiService midiService;
    Demo demo(midiService);
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
    SoftwareMidiService midiService;
    Demo demo(midiService);
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

}  // namespace
}  // namespace app
