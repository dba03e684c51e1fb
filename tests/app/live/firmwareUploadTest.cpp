// A whole firmware upload with its real pauses, on a display with a window manager and an impatient
// person in front of it.

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <random>
#include <thread>

#include "app/Editor.h"
#include "app/live/Person.h"
#include "app/live/Pings.h"
#include "platform/software/SoftwareMidiService.h"
#include "sending/pace.h"
#include "simulator/SimulatedController.h"
#include "support/windows/hands.h"

namespace live {
namespace {

using namespace std::chrono_literals;
using support::hands::click;
using support::hands::find;
using support::hands::press;
using support::hands::whenDialogOpens;
using Clock = std::chrono::steady_clock;

/// Longer, and a person wonders; window managers wait for seconds.
constexpr auto longestSilence = 1000ms;

std::string randomImage() {
    std::mt19937 random(40000);
    std::string image(40000, '\0');
    for (char& byte : image) {
        byte = static_cast<char>(random());
    }
    return image;
}

QString middleOf(const QWidget& widget) {
    const QPoint middle = widget.mapToGlobal(widget.rect().center());
    return QStringLiteral("%1 %2").arg(middle.x()).arg(middle.y());
}

/// Counts how often a window is painted.
class Paints final : public QObject {
public:
    int count = 0;
    bool eventFilter(QObject* watched, QEvent* event) override {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }
};

/// Has the person do something, and again should it not work, as long as it is wanted.
class Insisting {
public:
    Insisting(const QStringList& action, const std::function<bool()>& wanted) {
        QObject::connect(&timer_, &QTimer::timeout, [action, wanted] {
            if (wanted()) {
                std::thread([action] { act(action); }).detach();
            }
        });
        timer_.start(2000ms);
    }

private:
    QTimer timer_;
};

class FirmwareUpload : public testing::Test {
protected:
    FirmwareUpload()
        : device(midiService.addDevice("Tormelk")),
          destination(device.addDestination("Tormelk MIDI 1")) {
        device.addSource("Tormelk MIDI 1");
        destination.onReceive([this](const platform::MIDIPacketList& list) {
            platform::forEachPacket(list, [this](std::uint64_t, std::span<const std::uint8_t> b) {
                ++messages;
                tormelk.receive(b);
            });
        });
        editor.show();
    }
    void SetUp() override { ASSERT_TRUE(QTest::qWaitForWindowActive(&editor.view)); }

    [[nodiscard]] QAction& action(const char* name) const {
        return *editor.view.findChild<QAction*>(QString::fromLatin1(name));
    }
    /// The window that is modal now; none without one.
    static QDialog* modal() { return qobject_cast<QDialog*>(QApplication::activeModalWidget()); }

    /// Chooses the device, sends the update mode and opens the file, in the window.
    void prepare(QDialog& window, const std::string& file) const;

    platform::software::SoftwareMidiService midiService;
    platform::software::Device& device;
    platform::software::Destination& destination;
    simulator::SimulatedController tormelk;
    std::size_t messages = 0;
    std::vector<int> exits;
    qt::desktop::QtDesktop desktop{[this](int status) { exits.push_back(status); }};
    const QTemporaryDir folder;
    app::Editor editor{midiService, desktop,
                       folder.filePath(QStringLiteral("unsaved")).toStdString()};
};

void FirmwareUpload::prepare(QDialog& window, const std::string& file) const {
    const auto ok = [](QDialog& dialog) { click(find(dialog, "ok")); };
    whenDialogOpens(QStringLiteral("MIDI Devices"), ok);
    click(find(window, "chooseOutput"));
    whenDialogOpens(QStringLiteral("Tormelk Wyro"),
                    [](QDialog& alert) { press(alert, Qt::Key_Enter); });
    click(find(window, "update"));
    whenDialogOpens(QStringLiteral("MIDI Devices"), ok);
    click(find(window, "select"));
    whenDialogOpens(QStringLiteral("Open"), [&file](QDialog& panel) {
        auto& name = find<QLineEdit>(panel, "fileNameEdit");
        name.setText(QString::fromStdString(file));
        press(name, Qt::Key_Enter);
    });
    click(find(window, "open"));
}

TEST_F(FirmwareUpload, TheWatchSeesAWindowThatHangs) {
    const Pings pings(static_cast<xcb_window_t>(editor.view.winId()));
    QTest::qWait(500);
    EXPECT_GT(pings.answers(), 5);
    EXPECT_LT(pings.longestWait(), longestSilence);
    std::this_thread::sleep_for(1500ms);
    EXPECT_GE(pings.longestWait(), longestSilence);
}

TEST_F(FirmwareUpload, ThePersonsKeysClicksAndCloseRequestsReachAWindowThatIsNotSending) {
    int opened = 0;
    const auto isOpen = [] { return modal() != nullptr; };
    const auto devicesOpen = [&](const QStringList& action, const QStringList& closing) {
        whenDialogOpens(QStringLiteral("MIDI Devices"), [&opened](QDialog&) { ++opened; });
        const int before = opened;
        const Insisting open(action, [&] { return opened == before; });
        const Insisting close(closing, isOpen);
        EXPECT_TRUE(QTest::qWaitFor([&] { return opened > before && !isOpen(); }, 25000));
    };
    const QStringList altF4 = {QStringLiteral("key"), QStringLiteral("alt+F4")};
    devicesOpen({QStringLiteral("key"), QStringLiteral("ctrl+m")}, altF4);
    devicesOpen(QStringList(QStringLiteral("mousemove"))
                    << middleOf(find(editor.view, "midiDevices")).split(u' ')
                    << QStringLiteral("click") << QStringLiteral("1"),
                {QStringLiteral("key"), QStringLiteral("Escape")});
    EXPECT_TRUE(editor.view.isVisible());
}

TEST_F(FirmwareUpload, IsDeafAndAliveToItsEndAndArrivesIdentical) {
    const QTemporaryDir folder;
    const std::string path = folder.filePath(QStringLiteral("tormelk_2.bin")).toStdString();
    const std::string image = randomImage();
    std::ofstream(path, std::ios::binary) << image;

    bool completed = false;
    whenDialogOpens(QStringLiteral("Firmware Upgrade"), [&](QDialog& window) {
        prepare(window, path);
        ASSERT_TRUE(tormelk.isInUpdateMode());
        Paints paints;
        window.installEventFilter(&paints);
        const auto number = static_cast<unsigned long>(window.winId());
        const QStringList places = {
            middleOf(find(window, "close")), middleOf(find(window, "upload")),
            middleOf(find(window, "select")), middleOf(find(editor.view, "send"))};
        std::unique_ptr<Pings> pings;
        std::unique_ptr<ImpatientPerson> person;
        Clock::time_point start;
        Clock::time_point end;
        rusage before{};
        rusage after{};
        whenDialogOpens(QStringLiteral("Firmware Update"), [&](QDialog& confirmation) {
            whenDialogOpens(QStringLiteral("Upload"), [&](QDialog& alert) {
                end = Clock::now();
                ::getrusage(RUSAGE_SELF, &after);
                // What was kept from the upload would be acted on now.
                QTest::qWait(1000);
                EXPECT_TRUE(alert.isVisible());
                EXPECT_GT(person->actions(), 100);
                EXPECT_FALSE(person->sawItHang());
                EXPECT_LT(pings->longestWait(), longestSilence);
                EXPECT_GT(pings->answers(), 500);
                completed = true;
                EXPECT_EQ(dynamic_cast<QMessageBox&>(alert).text(),
                          QStringLiteral("Upload completed."));
                press(alert, Qt::Key_Enter);
            });
            click(find(confirmation, "ok"));
        });
        pings = std::make_unique<Pings>(static_cast<xcb_window_t>(number));
        // From the first byte on, not while the question is open.
        bool begun = false;
        destination.onReceive([&](const platform::MIDIPacketList& list) {
            if (!begun) {
                begun = true;
                start = Clock::now();
                ::getrusage(RUSAGE_SELF, &before);
                person = std::make_unique<ImpatientPerson>(number, places);
            }
            // Hands off before the end, so that nothing is meant for what comes after.
            if (++messages == 41000) {
                person->stop();
            }
            platform::forEachPacket(list, [this](std::uint64_t, std::span<const std::uint8_t> b) {
                tormelk.receive(b);
            });
        });
        click(find(window, "upload"));
        ASSERT_TRUE(completed);

        const std::chrono::duration<double> taken = end - start;
        const double pauses = sending::timeOfUpload(79).count();
        const auto seconds = [](const rusage& usage) {
            return static_cast<double>(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
                   static_cast<double>(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
        };
        std::printf(
            "%.3f s for pauses of %.3f s (%.4f), processor time %.2f s, longest silence "
            "%lld ms, %d actions, %d paints\n",
            taken.count(), pauses, taken.count() / pauses, seconds(after) - seconds(before),
            static_cast<long long>(pings->longestWait().count()), person->actions(), paints.count);
        EXPECT_GE(taken.count(), pauses - 0.01);
        EXPECT_LT(taken.count(), 1.25 * pauses) << "on a machine that does other things, too";
        EXPECT_GE(paints.count, 79);

        // Nothing that was done during the upload is done now.
        QTest::qWait(1000);
        EXPECT_TRUE(window.isVisible());
        EXPECT_TRUE(editor.view.isVisible());
        EXPECT_EQ(modal(), &window);
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
        EXPECT_EQ(messages, 1 + 34U + 79 * 530 + 17) << "nor was anything else sent";
        press(window, Qt::Key_Escape);
    });
    action("actionFirmwareUpdate").trigger();
    EXPECT_TRUE(completed);
    EXPECT_TRUE(exits.empty());
    const auto written = tormelk.firmware().written();
    ASSERT_EQ(written.size(), 79U * 512);
    EXPECT_EQ(std::string(written.begin(), written.begin() + 40000), image);
    for (const simulator::LogEntry& entry : tormelk.log()) {
        EXPECT_TRUE(entry.accepted) << entry.text;
    }
}

}  // namespace
}  // namespace live
