#include "kernel/usbMidiDescriptors.h"

#include <gmock/gmock.h>

namespace kernel {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

TEST(UsbMidiDescriptors, EachTellItsOwnLength) {
    EXPECT_EQ(deviceDescriptor()[0], 18);
    EXPECT_THAT(deviceDescriptor(), SizeIs(18));
    EXPECT_EQ(endpointDescriptor(bulkOutAddress)[0], 7);
    EXPECT_THAT(endpointDescriptor(bulkOutAddress), SizeIs(7));
    EXPECT_EQ(stringDescriptor("Ab"), (Bytes{6, 3, 'A', 0, 'b', 0}));
}

TEST(UsbMidiDescriptors, OfAConfigurationAddUpToTheTotalsTheyTell) {
    for (const int ports : {1, 2, 16}) {
        const Bytes bytes = configurationDescriptor(ports);
        EXPECT_EQ(bytes[2] + 256 * bytes[3], static_cast<int>(bytes.size())) << ports;
        std::size_t sum = 0;
        while (sum < bytes.size() && bytes[sum] > 0) {
            sum += bytes[sum];
        }
        EXPECT_EQ(sum, bytes.size()) << ports;
    }
}

TEST(UsbMidiEvents, CarryThePortAndAsManyBytesAsTheirCodeSays) {
    const std::vector<UsbMidiEvent> events =
        usbMidiEvents({0x19, 0x90, 60,   127, 0x0C, 0xC0, 5,    0,    0x04, 0xF0,
                       1,    2,    0x06, 3,   0xF7, 0,    0x0F, 0xF8, 0,    0});
    ASSERT_THAT(events, SizeIs(5));
    EXPECT_EQ(events[0].port, 1);
    EXPECT_EQ(events[0].bytes, (Bytes{0x90, 60, 127}));
    EXPECT_EQ(events[1].port, 0);
    EXPECT_EQ(events[1].bytes, (Bytes{0xC0, 5}));
    EXPECT_EQ(events[2].bytes, (Bytes{0xF0, 1, 2}));
    EXPECT_EQ(events[3].bytes, (Bytes{3, 0xF7}));
    EXPECT_EQ(events[4].bytes, (Bytes{0xF8}));
}

TEST(UsbMidiEvents, WithoutMeaningAreLeftOut) {
    EXPECT_THAT(usbMidiEvents({0, 0, 0, 0, 0x01, 1, 2, 3, 0x09, 0x90}), IsEmpty());
}

}  // namespace
}  // namespace kernel
