#include "config/sendPause.h"

#include <gtest/gtest.h>

namespace config {
namespace {

TEST(SendPause, ThePauseAfterABlockIsTwoMilliseconds) {
    EXPECT_EQ(pauseAfterBlock.count(), 0.002);
}

}  // namespace
}  // namespace config
