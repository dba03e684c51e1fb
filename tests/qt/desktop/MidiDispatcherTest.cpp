#include "qt/desktop/MidiDispatcher.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QEventLoop>
#include <QTest>
#include <QTimer>
#include <memory>

#include "qt/warnings.h"
#include "support/ScriptedMidiService.h"

namespace qt::desktop {
namespace {

using support::ScriptedMidiService;

/// A client of a service, which counts the setup changes it hears of.
struct Client {
    explicit Client(ScriptedMidiService& used) : service(used) {
        service.MIDIClientCreate("test", &Client::notify, this, &handle);
    }
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;
    ~Client() { service.MIDIClientDispose(handle); }

    static void notify(const platform::MIDINotification*, void* refCon) {
        ++static_cast<Client*>(refCon)->changes;
    }

    ScriptedMidiService& service;
    platform::MIDIClientRef handle = 0;
    int changes = 0;
};

TEST(MidiDispatcher, DeliversSetupChangesFromTheEventLoop) {
    ScriptedMidiService service;
    const Client client(service);
    const MidiDispatcher dispatcher(service);
    service.addDevice("Tormelk");
    EXPECT_EQ(client.changes, 0);
    EXPECT_TRUE(QTest::qWaitFor([&client] { return client.changes == 1; }, 1000));
}

TEST(MidiDispatcher, DeliversThemInANestedEventLoopToo) {
    ScriptedMidiService service;
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
    ScriptedMidiService service;
    const Client client(service);
    { const MidiDispatcher dispatcher(service); }
    service.addDevice("Tormelk");
    QTest::qWait(20);
    EXPECT_EQ(client.changes, 0);
}

/// A service that got no descriptor, because the process had none left.
std::unique_ptr<ScriptedMidiService> serviceWithoutDescriptor() {
    // The sanitizer looks at the first object of a class through a descriptor of its own.
    const ScriptedMidiService first;
    rlimit limit{};
    getrlimit(RLIMIT_NOFILE, &limit);
    const rlimit none{0, limit.rlim_max};
    setrlimit(RLIMIT_NOFILE, &none);
    auto service = std::make_unique<ScriptedMidiService>();
    setrlimit(RLIMIT_NOFILE, &limit);
    return service;
}

TEST(MidiDispatcher, WatchesNothingOfAServiceThatCannotBeWatched) {
    const auto service = serviceWithoutDescriptor();
    ASSERT_EQ(service->fileDescriptor(), -1);
    const Client client(*service);
    const MidiDispatcher dispatcher(*service);
    EXPECT_EQ(tests::takeWarnings(), QStringList()) << "of watching what is no descriptor";
    service->addDevice("Tormelk");
    QTest::qWait(5);
    EXPECT_EQ(client.changes, 0);
}

}  // namespace
}  // namespace qt::desktop
