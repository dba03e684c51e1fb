#include "qt/MidiDispatcher.h"

#include <gtest/gtest.h>

#include <QEventLoop>
#include <QTest>
#include <QTimer>

#include "platform/AbsentMidiService.h"
#include "platform/software/SoftwareMidiService.h"

namespace qt {
namespace {

using platform::software::SoftwareMidiService;

/// A client of a service, which counts the setup changes it hears of.
struct Client {
    explicit Client(SoftwareMidiService& used) : service(used) {
        service.MIDIClientCreate("test", &Client::notify, this, &handle);
    }
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;
    ~Client() { service.MIDIClientDispose(handle); }

    static void notify(const platform::MIDINotification*, void* refCon) {
        ++static_cast<Client*>(refCon)->changes;
    }

    SoftwareMidiService& service;
    platform::MIDIClientRef handle = 0;
    int changes = 0;
};

TEST(MidiDispatcher, DeliversSetupChangesFromTheEventLoop) {
    SoftwareMidiService service;
    const Client client(service);
    const MidiDispatcher dispatcher(service);
    service.addDevice("Tormelk");
    EXPECT_EQ(client.changes, 0);
    EXPECT_TRUE(QTest::qWaitFor([&client] { return client.changes == 1; }, 1000));
}

TEST(MidiDispatcher, DeliversThemInANestedEventLoopToo) {
    SoftwareMidiService service;
    const Client client(service);
    const MidiDispatcher dispatcher(service);
    bool heard = false;
    QTimer::singleShot(0, qApp, [&] {
        service.addDevice("Tormelk");
        heard = QTest::qWaitFor([&client] { return client.changes == 1; }, 1000);
    });
    EXPECT_TRUE(QTest::qWaitFor([&heard] { return heard; }, 2000));
}

TEST(MidiDispatcher, StopsWhenItIsDestroyed) {
    SoftwareMidiService service;
    const Client client(service);
    { const MidiDispatcher dispatcher(service); }
    service.addDevice("Tormelk");
    QTest::qWait(20);
    EXPECT_EQ(client.changes, 0);
}

TEST(MidiDispatcher, WatchesNothingWhereThereIsNoMidi) {
    platform::AbsentMidiService service;
    const MidiDispatcher dispatcher(service);
    QTest::qWait(5);
}

}  // namespace
}  // namespace qt
