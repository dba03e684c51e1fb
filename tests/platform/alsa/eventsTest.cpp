#include "platform/alsa/events.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace platform::alsa {
namespace {

using testing::IsEmpty;
using Bytes = std::vector<std::uint8_t>;

/// What is left of a message that was made into an event and back.
Bytes thereAndBack(const Bytes& message) {
    const Codec codec = makeCodec();
    snd_seq_event_t event{};
    return toEvent(*codec, message, event) ? bytesOf(*codec, event) : Bytes();
}

TEST(Events, EveryMessageComesBackAsItWas) {
    for (const Bytes& message : {Bytes{0x80, 60, 64},
                                 Bytes{0x9F, 60, 100},
                                 Bytes{0x90, 60, 0},
                                 Bytes{0xA0, 1, 2},
                                 Bytes{0xB0, 7, 127},
                                 Bytes{0xB0, 0, 1},
                                 Bytes{0xB0, 6, 1},
                                 Bytes{0xC0, 5},
                                 Bytes{0xD0, 6},
                                 Bytes{0xE0, 0, 0},
                                 Bytes{0xE0, 0, 64},
                                 Bytes{0xE3, 127, 127},
                                 Bytes{0xF1, 1},
                                 Bytes{0xF2, 1, 2},
                                 Bytes{0xF3, 3},
                                 Bytes{0xF6},
                                 Bytes{0xF8},
                                 Bytes{0xFA},
                                 Bytes{0xFB},
                                 Bytes{0xFC},
                                 Bytes{0xFE},
                                 Bytes{0xFF},
                                 Bytes{0xF0, 1, 2, 0xF7},
                                 Bytes{0xF0, 1},
                                 Bytes{1, 2},
                                 Bytes{0xF7}}) {
        EXPECT_EQ(thereAndBack(message), message);
    }
}

TEST(Events, EachMessageHasItsStatusByte) {
    const Codec codec = makeCodec();
    for (int time = 0; time < 2; ++time) {
        snd_seq_event_t event{};
        ASSERT_TRUE(toEvent(*codec, Bytes{0x90, 60, 64}, event));
        EXPECT_EQ(bytesOf(*codec, event), (Bytes{0x90, 60, 64}));
    }
}

TEST(Events, ASysExIsOneEventOfAnyLength) {
    Bytes block(254, 1);
    block.front() = 0xF0;
    block.back() = 0xF7;
    const Codec codec = makeCodec();
    snd_seq_event_t event{};
    ASSERT_TRUE(toEvent(*codec, block, event));
    EXPECT_EQ(event.type, SND_SEQ_EVENT_SYSEX);
    EXPECT_EQ(event.data.ext.len, 254U);
    EXPECT_EQ(thereAndBack(block), block);
}

TEST(Events, ANoteOnWithVelocityZeroIsANoteOn) {
    const Codec codec = makeCodec();
    snd_seq_event_t event{};
    ASSERT_TRUE(toEvent(*codec, Bytes{0x9F, 60, 0}, event));
    EXPECT_EQ(event.type, SND_SEQ_EVENT_NOTEON);
    EXPECT_EQ(event.data.note.velocity, 0);
}

TEST(Events, AnEventIsSentAtOnce) {
    const Codec codec = makeCodec();
    snd_seq_event_t event{};
    ASSERT_TRUE(toEvent(*codec, Bytes{0xC0, 5}, event));
    EXPECT_EQ(event.queue, SND_SEQ_QUEUE_DIRECT);
}

TEST(Events, AControllerOfFourteenBitsIsSeveralMessages) {
    snd_seq_event_t event{};
    event.type = SND_SEQ_EVENT_CONTROL14;
    event.data.control.param = 7;
    event.data.control.value = 3 * 128 + 5;
    EXPECT_EQ(bytesOf(*makeCodec(), event), (Bytes{0xB0, 7, 3, 0xB0, 39, 5}));
}

TEST(Events, WhatIsNoMidiHasNoBytes) {
    snd_seq_event_t event{};
    event.type = SND_SEQ_EVENT_PORT_SUBSCRIBED;
    EXPECT_THAT(bytesOf(*makeCodec(), event), IsEmpty());
}

TEST(Events, NoMessageIsNoEvent) {
    const Codec codec = makeCodec();
    snd_seq_event_t event{};
    EXPECT_FALSE(toEvent(*codec, {}, event));
}

}  // namespace
}  // namespace platform::alsa
