// The whole upload, byte by byte and pause by pause, against one put together here from plain
// numbers.

#include "firmware/FirmwareTest.h"

namespace firmware {
namespace {

class ExpectedUpload {
public:
    /// `buffer` is what the image buffer holds, `size` what is to be sent of it.
    ExpectedUpload(const std::string& buffer, std::size_t size) {
        command(0x7F, 0x00, 0.002);
        pause(0.1);
        command(0x00, 0x70, 0.001);
        pause(0.1);
        std::size_t sent = 0;
        int counter = 0;
        while (sent < size) {
            block(counter % 256, buffer, sent);
            pause(0.1);
            ++counter;
            sent += 512;
        }
        command(0x02, 0x00, 0);
        pause(0.1);
        pause(0.1);
    }

    std::vector<Event> events;

private:
    void pause(double seconds) { events.push_back({{}, seconds}); }
    void byte(int value, double pauseAfter) {
        events.push_back(
            {{0x9F, static_cast<std::uint8_t>(value / 16), static_cast<std::uint8_t>(value % 16)},
             0});
        if (pauseAfter > 0) {
            pause(pauseAfter);
        }
    }
    void bytes(std::vector<int> values, double pauseAfter) {
        int sum = 0;
        for (const int value : values) {
            sum += value;
        }
        values.push_back(sum % 256);
        for (const int value : values) {
            byte(value, pauseAfter);
        }
    }
    static std::vector<int> head(int first, int second) {
        return {0x55, 0x55, 0x55, 0x55, 0x55, 0x55, 0x55,  0x55,
                0x55, 0x55, 0x1D, 0x03, 0x00, 0x49, first, second};
    }
    void command(int first, int second, double pauseAfter) {
        bytes(head(first, second), pauseAfter);
    }
    void block(int counter, const std::string& buffer, std::size_t from) {
        std::vector<int> values = head(0x01, counter);
        values.push_back(0);
        for (std::size_t i = from; i < from + 512; ++i) {
            values.push_back(i < buffer.size() ? static_cast<unsigned char>(buffer[i]) : 0);
        }
        bytes(values, 0.002);
    }
};

class UploadSequence : public FirmwareTest {
protected:
    UploadSequence() {
        plugController();
        chooseDevice();
    }

    void expectUpload(const std::string& buffer, std::size_t size) {
        record();
        upload();
        const ExpectedUpload expected(buffer, size);
        ASSERT_EQ(events.size(), expected.events.size());
        for (std::size_t i = 0; i < events.size(); ++i) {
            ASSERT_EQ(events[i], expected.events[i]) << "event " << i;
        }
    }
};

TEST_F(UploadSequence, Of1000BytesIsTwoBlocksTheSecondWith24BytesBeyondTheImage) {
    const std::string image = someImage(1000);
    openImage(image);
    expectUpload(image, 1000);
    // Connect and erase: 2 * 17 messages, as many pauses, and one more each. A block: 530 messages
    // and pauses, and one more. Reset: 17 messages and two pauses.
    ASSERT_EQ(events.size(), 2U * 35 + 2U * 1061 + 19);
    const auto byteOfBlock = [this](std::size_t block, std::size_t place) {
        const Bytes& message = events.at(70 + block * 1061 + 2 * place).bytes;
        return message.at(1) * 16 + message.at(2);
    };
    EXPECT_EQ(byteOfBlock(0, 15), 0);
    EXPECT_EQ(byteOfBlock(1, 15), 1);
    EXPECT_EQ(byteOfBlock(1, 16), 0);
    EXPECT_EQ(byteOfBlock(1, 17 + 487), static_cast<unsigned char>(image[999]));
    for (std::size_t beyond = 488; beyond < 512; ++beyond) {
        EXPECT_EQ(byteOfBlock(1, 17 + beyond), 0);
    }
}

TEST_F(UploadSequence, BeginsWithTheConnectFrameInSeventeenMessages) {
    openImage(someImage(10));
    record();
    upload();
    const std::vector<Bytes> expected = {{0x9F, 0x05, 0x05}, {0x9F, 0x05, 0x05}, {0x9F, 0x05, 0x05},
                                         {0x9F, 0x05, 0x05}, {0x9F, 0x05, 0x05}, {0x9F, 0x05, 0x05},
                                         {0x9F, 0x05, 0x05}, {0x9F, 0x05, 0x05}, {0x9F, 0x05, 0x05},
                                         {0x9F, 0x05, 0x05}, {0x9F, 0x01, 0x0D}, {0x9F, 0x00, 0x03},
                                         {0x9F, 0x00, 0x00}, {0x9F, 0x04, 0x09}, {0x9F, 0x07, 0x0F},
                                         {0x9F, 0x00, 0x00}, {0x9F, 0x03, 0x0A}};
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(events.at(2 * i).bytes, expected[i]);
        EXPECT_EQ(events.at(2 * i + 1).pause, 0.002);
    }
    EXPECT_EQ(events.at(34).pause, 0.1);
}

TEST_F(UploadSequence, OfEverySizeAroundWholeBlocks) {
    for (const std::size_t size : {1U, 511U, 512U, 513U, 1023U, 1024U, 1025U}) {
        SCOPED_TRACE(size);
        state.midi_program_hex = {};
        chooseDevice();
        const std::string image = someImage(size);
        openImage(image);
        expectUpload(image, size);
    }
}

TEST_F(UploadSequence, OfAnEmptyFileIsConnectEraseAndReset) {
    openImage("");
    expectUpload("", 0);
    EXPECT_EQ(events.size(), 2U * 35 + 19);
}

TEST_F(UploadSequence, Of40000BytesTakesTheTimeItSays) {
    const std::string image = someImage(40000);
    openImage(image);
    expectUpload(image, 40000);
    double pauses = 0;
    for (const Event& event : events) {
        pauses += event.pause;
    }
    EXPECT_NEAR(pauses, 92.091, 1e-6);
    EXPECT_NEAR(sending::timeOfUpload(79).count(), pauses, 1e-6);
}

TEST_F(UploadSequence, OfTheLargestFileHas112Blocks) {
    const std::string image = someImage(57343);
    openImage(image);
    expectUpload(image, 57343);
    EXPECT_EQ(state.midi_write[15], 112);
}

TEST_F(UploadSequence, EndsWithWhatALargerFileLeftInTheBuffer) {
    const std::string larger = someImage(3000, 5);
    openImage(larger);
    const std::string smaller = someImage(700, 6);
    openImage(smaller);
    expectUpload(smaller + larger.substr(700), 700);
}

TEST_F(UploadSequence, StartsTheBlockCounterAnewEachTime) {
    for (int round = 0; round < 2; ++round) {
        openImage(someImage(1200));
        expectUpload(someImage(1200), 1200);
        chooseDevice();
    }
}

TEST_F(UploadSequence, OfARefusedOversizedFileReadsZerosBeyondTheBuffer) {
    const std::string earlier = someImage(57343);
    openImage(earlier);
    desktop.answerAlert();
    openImage(someImage(70000, 9), "tormelk-large.bin");
    ASSERT_EQ(state.len, 70000U);
    expectUpload(earlier, 70000);
}

TEST_F(UploadSequence, WrapsTheBlockCounterAfter256Blocks) {
    openImage(someImage(2000));
    desktop.answerAlert();
    openImage(std::string(257UL * 512, 'x'), "tormelk-large.bin");
    expectUpload(someImage(2000), 257UL * 512);
    EXPECT_EQ(state.midi_write[15], 1);
}

TEST_F(UploadSequence, SendsEachMessageInAListOfItsOwnStampedNow) {
    openImage(someImage(100));
    service.at(*output).forgetReceived();
    upload();
    const auto lists = service.at(*output).received();
    ASSERT_EQ(lists.size(), 17U + 17 + 530 + 17);
    for (const auto& list : lists) {
        ASSERT_EQ(list.size(), 1U);
        EXPECT_EQ(list[0].timeStamp, 0U);
        EXPECT_EQ(list[0].bytes.size(), 3U);
        EXPECT_EQ(list[0].bytes[0], 0x9F);
    }
}

TEST_F(UploadSequence, OpensAndClosesTheOutputAroundEveryByte) {
    openImage(someImage(100));
    const std::size_t before = service.outputPortsCreated();
    std::size_t openInPauses = 0;
    std::size_t pauses = 0;
    desktop.onSleep = [&](Seconds pause) {
        ++pauses;
        openInPauses += service.openOutputPorts();
        EXPECT_EQ(service.openOutputPorts(), pause.count() < 0.05 ? 1U : 0U);
    };
    upload();
    EXPECT_EQ(service.outputPortsCreated() - before, 17U + 17 + 530 + 17);
    EXPECT_EQ(openInPauses, 17U + 17 + 530);
    EXPECT_EQ(pauses, 17U + 17 + 530 + 5);
}

}  // namespace
}  // namespace firmware
