// Whatever arrives, the controller stands: it takes in whole messages only, and keeps little.

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "simulator/SimulatedController.h"
#include "simulator/messages.h"
#include "support/countedMemory.h"

namespace simulator {
namespace {

/// Longest text an entry may need: the reasons quote a few bytes and numbers.
constexpr std::size_t longestText = 200;

void expectSound(const SimulatedController& tormelk) {
    ASSERT_LE(tormelk.log().size(), SimulatedController::longestLog);
    for (const LogEntry& entry : tormelk.log()) {
        ASSERT_LE(entry.text.size(), longestText);
        ASSERT_LE(entry.bytes, MessageAssembler::longestMessage);
    }
    for (std::size_t layer = 0; layer < tormelk.layers().size(); ++layer) {
        const auto& message = tormelk.layers().at(layer);
        if (!message) {
            continue;
        }
        const Bytes header = {
            0xF0, 0x1D, 0x03, 0x00, 0x69, 0x4E, static_cast<std::uint8_t>(layer + 1)};
        ASSERT_TRUE(std::equal(header.begin(), header.end(), message->begin()));
        ASSERT_TRUE(std::all_of(message->begin() + 1, message->end() - 1,
                                [](std::uint8_t byte) { return byte < 0x80; }));
        ASSERT_EQ(message->back(), 0xF7);
    }
}

class RandomBytes : public testing::TestWithParam<unsigned> {
protected:
    std::size_t below(std::size_t limit) {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random_);
    }
    std::uint8_t byte() { return static_cast<std::uint8_t>(below(256)); }

    /// Bytes in calls of random sizes.
    void receive(SimulatedController& tormelk, std::span<const std::uint8_t> bytes) {
        while (!bytes.empty()) {
            const std::size_t size = std::min(bytes.size(), below(300));
            tormelk.receive(bytes.first(size));
            bytes = bytes.subspan(size);
        }
    }

private:
    std::mt19937 random_{GetParam()};
};

TEST_P(RandomBytes, NoiseIsTakenForNothing) {
    SimulatedController tormelk;
    Bytes noise(200000);
    std::generate(noise.begin(), noise.end(), [&] { return byte(); });
    receive(tormelk, noise);
    expectSound(tormelk);
}

TEST_P(RandomBytes, HoweverMuchArrivesLittleIsKept) {
    constexpr std::size_t little = std::size_t{256} * 1024;
    SimulatedController tormelk;
    const std::size_t before = support::liveMemory();
    for (int round = 0; round < 20; ++round) {
        Bytes noise(20000);
        // Half of it without a status byte, as in a SysEx that never ends.
        std::generate(noise.begin(), noise.begin() + 10000, [&] { return byte(); });
        std::generate(noise.begin() + 10000, noise.end(), [&] { return byte() & 0x7F; });
        noise[10000] = 0xF0;
        receive(tormelk, noise);
        noise = {};
        ASSERT_LT(support::liveMemory(), before + little);
    }
}

TEST_P(RandomBytes, DamagedMessagesNeverBreakTheStream) {
    SimulatedController tormelk;
    for (int round = 0; round < 500; ++round) {
        Bytes message = configurationMessage(static_cast<int>(below(6)));
        for (std::size_t faults = below(4); faults > 0 && !message.empty(); --faults) {
            const auto place = message.begin() + static_cast<std::ptrdiff_t>(below(message.size()));
            switch (below(4)) {
                case 0:
                    *place = byte();
                    break;
                case 1:
                    message.erase(place);
                    break;
                case 2:
                    message.insert(place, byte());
                    break;
                default:
                    message.erase(place, message.end());
                    message.push_back(byte());
                    break;
            }
        }
        receive(tormelk, message);
        expectSound(tormelk);
    }
    tormelk.receive(configurationMessage(3));
    EXPECT_TRUE(tormelk.log().back().accepted);
    EXPECT_TRUE(std::ranges::equal(*tormelk.layers()[2], configurationMessage(3)));
}

TEST_P(RandomBytes, SoundMessagesAmongRealTimeBytesAreAllTaken) {
    SimulatedController tormelk;
    std::uint64_t sent = 0;
    for (int round = 0; round < 100; ++round) {
        const int block = static_cast<int>(below(4)) + 1;
        Bytes stream;
        for (const std::uint8_t content : configurationMessage(block)) {
            if (below(5) == 0) {
                stream.push_back(static_cast<std::uint8_t>(0xF8 + below(8)));
            }
            stream.push_back(content);
        }
        receive(tormelk, stream);
        ++sent;
        ASSERT_EQ(tormelk.log().back().number, sent);
        ASSERT_TRUE(tormelk.log().back().accepted);
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomBytes, testing::Range(1U, 9U));

}  // namespace
}  // namespace simulator
