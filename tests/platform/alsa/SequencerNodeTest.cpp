#include "platform/alsa/SequencerNode.h"

#include <gtest/gtest.h>
#include <poll.h>

#include <cerrno>
#include <filesystem>

#include "files/TemporaryFolder.h"

namespace platform::alsa {
namespace {

namespace fs = std::filesystem;
using Obstacle = ServiceState::Obstacle;

bool hasNews(const NodeWatch& watch) {
    pollfd descriptor{watch.descriptor(), POLLIN, 0};
    return poll(&descriptor, 1, 0) == 1;
}

/// A folder for the node within one that nobody else uses: both are watched.
struct SequencerNodeWatch : testing::Test {
    const files::TemporaryFolder around;
    const files::TemporaryFolder folder{around.path()};
};

TEST(SequencerNode, IsTheKernelsOwn) {
    EXPECT_EQ(SequencerNode().path, "/dev/snd/seq");
}

TEST(SequencerNode, OpensOrTellsTheErrorsNumber) {
    const files::TemporaryFolder folder;
    EXPECT_EQ(tryToOpen(folder / "seq"), ENOENT);
    files::write(folder / "seq", "");
    EXPECT_EQ(tryToOpen(folder / "seq"), 0);
    EXPECT_EQ(tryToOpen(folder.path()), EISDIR);
}

TEST(SequencerNode, ThatIsNotAllowedNamesTheGroupAndTheCommandThatMendsIt) {
    const ServiceState state = whereNodeFailsWith(EACCES);
    EXPECT_EQ(state.obstacle, Obstacle::NotAllowed);
    EXPECT_EQ(state.group, "audio");
    EXPECT_EQ(state.remedy, "sudo usermod -aG audio $USER");
    EXPECT_FALSE(state.hasDestination);
}

TEST(SequencerNode, ThatIsNotThereNamesTheModule) {
    for (const int error : {ENOENT, ENODEV, ENXIO}) {
        const ServiceState state = whereNodeFailsWith(error);
        EXPECT_EQ(state.obstacle, Obstacle::NotLoaded) << error;
        EXPECT_EQ(state.remedy, "sudo modprobe snd-seq") << error;
    }
}

TEST(SequencerNode, ThatFailsOtherwiseHasTheSystemsOwnWords) {
    const ServiceState state = whereNodeFailsWith(EPERM);
    EXPECT_EQ(state.obstacle, Obstacle::Other);
    EXPECT_EQ(state.reason, "Operation not permitted");
    EXPECT_EQ(state.remedy, "");
}

TEST_F(SequencerNodeWatch, IsQuietWhileNothingHappens) {
    files::write(folder / "timer", "");
    const NodeWatch watch(folder / "seq");
    EXPECT_FALSE(hasNews(watch));
    EXPECT_EQ(tryToOpen(folder / "timer"), 0);
    EXPECT_FALSE(hasNews(watch)) << "looking is no news";
}

TEST_F(SequencerNodeWatch, NoticesTheNode) {
    NodeWatch watch(folder / "seq");
    files::write(folder / "seq", "");
    EXPECT_TRUE(hasNews(watch));
    watch.takeNews();
    EXPECT_FALSE(hasNews(watch));
}

TEST_F(SequencerNodeWatch, NoticesANodeThatIsMovedToItsPlace) {
    files::write(folder / "aside", "");
    const NodeWatch watch(folder / "seq");
    fs::rename(folder / "aside", folder / "seq");
    EXPECT_TRUE(hasNews(watch));
}

TEST_F(SequencerNodeWatch, NoticesThatItsRightsAreChanged) {
    files::write(folder / "seq", "");
    fs::permissions(folder / "seq", fs::perms::none);
    const NodeWatch watch(folder / "seq");
    fs::permissions(folder / "seq", fs::perms::owner_all);
    EXPECT_TRUE(hasNews(watch));
}

TEST_F(SequencerNodeWatch, NoticesTheNodeInAFolderThatComesLater) {
    NodeWatch watch(folder / "snd/seq");
    EXPECT_FALSE(hasNews(watch));
    fs::create_directory(folder / "snd");
    EXPECT_TRUE(hasNews(watch));
    watch.takeNews();
    EXPECT_FALSE(hasNews(watch));
    files::write(folder / "snd/seq", "");
    EXPECT_TRUE(hasNews(watch));
}

}  // namespace
}  // namespace platform::alsa
