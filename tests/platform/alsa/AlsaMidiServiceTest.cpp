#include "platform/alsa/AlsaMidiService.h"

#include <gtest/gtest.h>
#include <poll.h>

#include <cerrno>
#include <filesystem>
#include <string>

#include "files/TemporaryFolder.h"

// The service on a computer whose sequencer cannot be opened. With one: tests/kernel.

namespace platform::alsa {
namespace {

using Obstacle = ServiceState::Obstacle;

class WithoutASequencer : public testing::Test {
protected:
    [[nodiscard]] bool hasSomethingToDo() const {
        pollfd descriptor{service.fileDescriptor(), POLLIN, 0};
        return poll(&descriptor, 1, 0) == 1;
    }
    NotificationCentre::Registration countChanges() {
        return service.stateChanges().addObserver(MIDIServiceStateChanged,
                                                  [this](const void*) { ++changes; });
    }

    const files::TemporaryFolder around;  // is watched, too, and nobody else may use it
    const files::TemporaryFolder folder{around.path()};
    int error = ENOENT;
    int looks = 0;
    int changes = 0;
    AlsaMidiService service{"Tormelk Wyro", {folder / "seq", [this](const std::string&) {
                                                 ++looks;
                                                 return error;
                                             }}};
};

TEST_F(WithoutASequencer, NothingIsListedAndNothingCanBeOpened) {
    MIDIClientRef client = 0;
    EXPECT_EQ(service.MIDIClientCreate("a", nullptr, nullptr, &client), noErr);
    EXPECT_EQ(service.MIDIGetNumberOfSources(), 0U);
    EXPECT_EQ(service.MIDIGetNumberOfDestinations(), 0U);
    EXPECT_EQ(service.MIDIGetSource(0), 0U);
    EXPECT_EQ(service.MIDIGetDestination(0), 0U);
    EXPECT_EQ(service.MIDIClientDispose(client), noErr);
}

TEST_F(WithoutASequencer, TheStateTellsTheCause) {
    EXPECT_EQ(service.state(), whereNodeFailsWith(ENOENT));
    error = EACCES;
    service.rescan();
    EXPECT_EQ(service.state(), whereNodeFailsWith(EACCES));
    error = EPERM;
    service.rescan();
    EXPECT_EQ(service.state(), whereNodeFailsWith(EPERM));
}

TEST_F(WithoutASequencer, ItIsNotLookedForBeforeSomebodyAsks) {
    EXPECT_EQ(looks, 0);
    (void)service.state();
    EXPECT_EQ(looks, 1);
    (void)service.state();
    EXPECT_EQ(looks, 1) << "what comes is heard of";
}

TEST_F(WithoutASequencer, ThereIsNothingToDoWhileNothingComes) {
    const auto registration = countChanges();
    (void)service.state();
    EXPECT_FALSE(hasSomethingToDo());
    service.dispatch();
    EXPECT_EQ(changes, 0);
}

TEST_F(WithoutASequencer, WhatComesIsNoticedByItself) {
    const auto registration = countChanges();
    (void)service.state();
    error = EACCES;
    files::write(folder / "seq", "");
    EXPECT_TRUE(hasSomethingToDo());
    service.dispatch();
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(service.state().obstacle, Obstacle::NotAllowed);
    EXPECT_FALSE(hasSomethingToDo());

    error = EPERM;
    std::filesystem::permissions(folder / "seq", std::filesystem::perms::owner_read);
    EXPECT_TRUE(hasSomethingToDo());
    service.dispatch();
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(service.state().obstacle, Obstacle::Other);
}

TEST_F(WithoutASequencer, SomethingElseThatComesIsNoChange) {
    const auto registration = countChanges();
    (void)service.state();
    files::write(folder / "timer", "");
    EXPECT_TRUE(hasSomethingToDo());
    service.dispatch();
    EXPECT_EQ(looks, 2);
    EXPECT_EQ(changes, 0);
}

TEST_F(WithoutASequencer, ARescanLooksAtOnce) {
    const auto registration = countChanges();
    (void)service.state();
    error = EACCES;
    service.rescan();
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(service.state().obstacle, Obstacle::NotAllowed);
}

}  // namespace
}  // namespace platform::alsa
