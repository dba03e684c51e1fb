#include "rescue/Work.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <random>

#include "rescue/works.h"

namespace rescue {
namespace {

/// A configuration that no two bytes of can be exchanged in without its being seen.
Configuration randomConfiguration(unsigned seed) {
    Configuration configuration;
    std::mt19937 random(seed);
    const auto byte = [&] { return static_cast<std::uint8_t>(random()); };
    // What every block begins with stays.
    for (int layer = 0; layer < config::layerCount; ++layer) {
        for (std::size_t offset = config::channelOffset; offset < config::blockSize; ++offset) {
            configuration.image[config::at(layer, offset)] = byte();
        }
        for (std::size_t offset = config::channelOffset; offset < config::userBlockSize; ++offset) {
            configuration.stores
                .SysBuf_usrdef[static_cast<std::size_t>(layer) * config::userBlockSize + offset] =
                byte();
        }
    }
    return configuration;
}

TEST(Work, HoldsTheConfigurationAsAPresetHoldsIt) {
    const Configuration configuration = randomConfiguration(1);
    EXPECT_EQ(configuration.work().shown, config::presetBytes(configuration.image));
}

TEST(Work, GivesEveryByteOfTheStoreBackThatIsEverRead) {
    for (unsigned seed = 0; seed < 50; ++seed) {
        const Configuration configuration = randomConfiguration(seed);
        Configuration other;
        giveBackUserDefined(configuration.work(), other.stores);
        EXPECT_EQ(other.stores.SysBuf_usrdef, configuration.stores.SysBuf_usrdef);
        EXPECT_EQ(other.stores.SysBuf_MCP, configuration.stores.SysBuf_MCP);
    }
}

TEST(Work, HasThePersonsOwnAssignmentsAsAPresetOfUserDefinedMode) {
    const Configuration configuration = randomConfiguration(2);
    const Work work = configuration.work();
    EXPECT_TRUE(config::hasPresetHeader(work.userDefined, configuration.image));
    for (int layer = 0; layer < config::layerCount; ++layer) {
        EXPECT_EQ(work.userDefined[config::at(layer, config::dawModeOffset)], 0);
        for (const std::size_t offset :
             {config::curveOffset, config::intervalOffset, config::lockOffset, config::endOffset}) {
            EXPECT_EQ(work.userDefined[config::at(layer, offset)],
                      configuration.image[config::at(layer, offset)]);
        }
    }
}

TEST(Work, DiffersWhenOnlyTheAssignmentsBehindTheDawModeDo) {
    Configuration configuration;
    const Work before = configuration.work();
    configuration.stores.SysBuf_usrdef[config::numberOffset] ^= 1U;
    EXPECT_NE(configuration.work(), before);
    EXPECT_EQ(configuration.work().shown, before.shown);
}

}  // namespace
}  // namespace rescue
