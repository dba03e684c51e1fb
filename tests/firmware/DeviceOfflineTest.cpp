#include "firmware/FirmwareTest.h"

namespace firmware {
namespace {

using testing::ElementsAre;

class DeviceOffline : public FirmwareTest {
protected:
    DeviceOffline() {
        plugController();
        chooseDevice();
        openImage(someImage(2000));  // four blocks
        record();
    }

    void afterMessages(std::size_t count, const std::function<void()>& act) {
        output->onReceive([this, count, act](const platform::MIDIPacketList&) {
            events.push_back({{0x9F}, 0});
            if (++received == count) {
                act();
            }
        });
    }
    [[nodiscard]] std::size_t pauses(double seconds) const {
        std::size_t count = 0;
        for (const Event& event : events) {
            count += event.bytes.empty() && event.pause == seconds ? 1U : 0U;
        }
        return count;
    }
    void expectCompleted() {
        EXPECT_THAT(alerts(), ElementsAre(alertLine("Upload", "Upload completed.")));
        EXPECT_EQ(pauses(0.1), 2U + 4 + 2) << "the pauses after frames and blocks go on";
        EXPECT_EQ(service.openOutputPorts(), 0U);
    }

    std::size_t received = 0;
};

TEST_F(DeviceOffline, SkipsTheRestWithItsPausesFromTheMomentTheDeviceIsOffline) {
    afterMessages(34 + 530 + 100,
                  [this] { output->setIntegerProperty(platform::kMIDIPropertyOffline, 1); });
    upload();
    EXPECT_EQ(received, 664U);
    EXPECT_EQ(pauses(0.002), 17U + 630) << "the last byte's own pause is kept";
    EXPECT_EQ(pauses(0.001), 17U);
    expectCompleted();
}

TEST_F(DeviceOffline, GoesOnSilentlyWhenTheDeviceIsPulledOut) {
    afterMessages(700, [this] {
        device->unplug();
        service.dispatch();
    });
    upload();
    EXPECT_EQ(received, 700U);
    expectCompleted();
}

TEST_F(DeviceOffline, SendsNothingToADeviceThatWasOfflineFromTheStart) {
    device->unplug();
    service.dispatch();
    upload();
    EXPECT_EQ(received, 0U);
    EXPECT_EQ(events.size(), 8U);
    expectCompleted();
}

TEST_F(DeviceOffline, SendsTheRestToADeviceThatComesBack) {
    afterMessages(200, [this] { output->setIntegerProperty(platform::kMIDIPropertyOffline, 1); });
    std::size_t tenths = 0;
    desktop.onSleep = [&](Seconds pause) {
        if (pause.count() == 0.1 && ++tenths == 4) {  // the second block was skipped
            output->setIntegerProperty(platform::kMIDIPropertyOffline, 0);
        }
        events.push_back({{}, pause.count()});
    };
    upload();
    EXPECT_EQ(received, 200U + 2 * 530 + 17);
    expectCompleted();
}

TEST_F(DeviceOffline, CountsTheBlocksItSkips) {
    device->unplug();
    service.dispatch();
    double last = 0;
    dialog().progress.onDisplay = [&] { last = dialog().progress.doubleValue(); };
    upload();
    EXPECT_EQ(last, 4);
    EXPECT_EQ(state.file_len_count, 2048U);
}

TEST_F(DeviceOffline, GoesOnWhenTheServiceRefusesToSend) {
    service.fail("MIDISend", platform::kMIDIUnknownEndpoint);
    upload();
    EXPECT_EQ(received, 0U);
    expectCompleted();
}

TEST_F(DeviceOffline, GoesOnWhenNoPortCanBeOpened) {
    service.fail("MIDIOutputPortCreate", platform::kMIDIInvalidClient);
    upload();
    EXPECT_EQ(received, 0U);
    expectCompleted();
}

}  // namespace
}  // namespace firmware
