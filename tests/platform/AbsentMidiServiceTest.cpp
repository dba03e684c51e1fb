#include "platform/AbsentMidiService.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

TEST(AbsentMidiService, ListsNothing) {
    AbsentMidiService service;
    EXPECT_EQ(service.MIDIGetNumberOfSources(), 0U);
    EXPECT_EQ(service.MIDIGetNumberOfDestinations(), 0U);
    EXPECT_EQ(service.MIDIGetSource(0), 0U);
    EXPECT_EQ(service.MIDIGetDestination(0), 0U);
}

TEST(AbsentMidiService, GivesNoClientAndNoPort) {
    AbsentMidiService service;
    MIDIClientRef client = 7;
    EXPECT_NE(service.MIDIClientCreate("a", nullptr, nullptr, &client), noErr);
    EXPECT_EQ(client, 0U);
    MIDIPortRef port = 0;
    EXPECT_NE(service.MIDIOutputPortCreate(client, "a", &port), noErr);
    EXPECT_NE(service.MIDIInputPortCreate(client, "a", nullptr, nullptr, &port), noErr);
    EXPECT_EQ(port, 0U);
    EXPECT_NE(service.MIDIClientDispose(client), noErr);
}

TEST(AbsentMidiService, HasNothingToWatch) {
    AbsentMidiService service;
    EXPECT_EQ(service.fileDescriptor(), -1);
    service.dispatch();
}

}  // namespace
}  // namespace platform
