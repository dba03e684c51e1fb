// The firmware window as a person sees it and works in it, over the simulated controller.

#include "qt/windows/FirmView.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <random>

#include "files/TemporaryFolder.h"
#include "midi/ZQMIDIProcess.h"
#include "platform/NotificationCentre.h"
#include "qt/desktop/MidiDispatcher.h"
#include "qt/desktop/QtDesktop.h"
#include "qt/widgets/ProgressView.h"
#include "qt/windows/views.h"
#include "sending/frames.h"
#include "simulator/SimulatedController.h"
#include "support/ScriptedMidiService.h"
#include "support/windows/hands.h"

namespace qt::windows {
namespace {

using support::hands::click;
using support::hands::find;
using support::hands::press;
using support::hands::whenDialogOpens;
using testing::ElementsAre;

/// The desktop for real, but that no sleep takes time.
class HastyDesktop final : public toolkit::Desktop {
public:
    HastyDesktop() { addEditorViews(real); }

    toolkit::AlertAnswer runAlertPanel(const toolkit::Alert& alert) override {
        return real.runAlertPanel(alert);
    }
    std::optional<std::filesystem::path> runSavePanel(const toolkit::SavePanel& panel) override {
        return real.runSavePanel(panel);
    }
    std::optional<std::filesystem::path> runOpenPanel(const toolkit::OpenPanel& panel) override {
        return real.runOpenPanel(panel);
    }
    int runModalForWindow(toolkit::WindowController& controller) override {
        return real.runModalForWindow(controller);
    }
    void stopModal() override { real.stopModal(); }
    void showWindow(toolkit::WindowController& controller) override { real.showWindow(controller); }
    void sleepForTimeInterval(std::chrono::duration<double> seconds) override {
        slept += seconds;
        if (onSleep) {
            onSleep();
        }
    }
    void exit(int status) override { exits.push_back(status); }

    desktop::QtDesktop real{[](int) {}};
    std::chrono::duration<double> slept{};
    std::function<void()> onSleep;
    std::vector<int> exits;
};

class FirmViewTest : public testing::Test {
protected:
    FirmViewTest()
        : device(service.addDevice("Tormelk")),
          source(device.addSource("Tormelk MIDI 1")),
          destination(device.addDestination("Tormelk MIDI 1")) {
        service.at(destination).keepReceived(false);
        destination.onReceive([this](const platform::MIDIPacketList& list) {
            platform::forEachPacket(list, [this](std::uint64_t, std::span<const std::uint8_t> b) {
                tormelk.receive(b);
            });
        });
    }

    /// Opens the window; the person must close it.
    void open(std::function<void(QDialog&)> person) {
        firmware::firm controller(state, devices, desktop);
        whenDialogOpens(QStringLiteral("Firmware Upgrade"), std::move(person));
        EXPECT_NE(desktop.runModalForWindow(controller), 0);
        EXPECT_FALSE(controller.window().isVisible());
    }

    static void pressInDialog(QDialog& window, const char* button, const char* title,
                              const char* inDialog) {
        whenDialogOpens(QString::fromLatin1(title),
                        [inDialog](QDialog& dialog) { click(find(dialog, inDialog)); });
        click(find(window, button));
    }
    /// Presses a button and reads the alert that comes.
    static std::string alertAfter(QDialog& window, const char* button, const char* title) {
        std::string said;
        whenDialogOpens(QString::fromLatin1(title), [&said](QDialog& dialog) {
            said = dynamic_cast<QMessageBox&>(dialog).text().toStdString();
            press(dialog, Qt::Key_Enter);
        });
        click(find(window, button));
        return said;
    }
    static void openFile(QDialog& window, const std::string& path) {
        whenDialogOpens(QStringLiteral("Open"), [path](QDialog& panel) {
            auto& name = find<QLineEdit>(panel, "fileNameEdit");
            name.setText(QString::fromStdString(path));
            press(name, Qt::Key_Enter);
        });
        click(find(window, "open"));
    }
    /// Confirms, and reads that it is completed, and what is said below that.
    static void upload(QDialog& window, const std::function<void(QDialog&)>& confirm,
                       const QString& truth = {}) {
        whenDialogOpens(QStringLiteral("Firmware Update"), [&](QDialog& dialog) {
            whenDialogOpens(QStringLiteral("Upload"), [&truth](QDialog& alert) {
                EXPECT_EQ(dynamic_cast<QMessageBox&>(alert).text(),
                          QStringLiteral("Upload completed.") +
                              (truth.isEmpty() ? QString() : QStringLiteral("\n\n") + truth));
                press(alert, Qt::Key_Enter);
            });
            confirm(dialog);
        });
        click(find(window, "upload"));
    }

    static QString line(const QDialog& window, const char* name) {
        return find<QLabel>(window, name).text();
    }
    /// The numbers of the steps that stand out.
    static std::vector<int> emphasised(const QDialog& window) {
        std::vector<int> numbers;
        int number = 0;
        for (const char* row : {"updateRow", "checkRow", "selectRow", "openRow", "uploadRow"}) {
            ++number;
            const auto& shown = dynamic_cast<const StepRow&>(find(window, row));
            if (shown.isNext()) {
                numbers.push_back(number);
            }
        }
        return numbers;
    }

    support::ScriptedMidiService service;
    platform::software::Device& device;
    platform::software::Source& source;
    platform::software::Destination& destination;
    simulator::SimulatedController tormelk;
    platform::NotificationCentre centre;
    midi::ZQMIDIProcess process{service, centre};
    devices::seldevChoice devices{process};
    firmware::FirmwareState state{process};
    desktop::MidiDispatcher dispatcher{service};
    HastyDesktop desktop;
    files::TemporaryFolder folder;
};

TEST_F(FirmViewTest, LeadsThroughAllStepsAndTheImageArrivesIdentical) {
    std::mt19937 random(40000);
    std::string image(40000, '\0');
    for (char& byte : image) {
        byte = static_cast<char>(random());
    }
    files::write(folder / "Tormelk_2.bin", image);
    open([&](QDialog& window) {
        EXPECT_THAT(emphasised(window), ElementsAre(1));
        pressInDialog(window, "chooseOutput", "MIDI Devices", "ok");
        EXPECT_THAT(emphasised(window), ElementsAre(1));
        EXPECT_EQ(line(window, "step1"), QStringLiteral("Output: Tormelk MIDI 1"));
        EXPECT_EQ(alertAfter(window, "update", "Tormelk Wyro"), "Send Done");
        EXPECT_TRUE(tormelk.isInUpdateMode());
        EXPECT_THAT(emphasised(window), ElementsAre(2));
        pressInDialog(window, "check", "MIDI Devices", "ok");
        EXPECT_THAT(emphasised(window), ElementsAre(3));
        pressInDialog(window, "select", "MIDI Devices", "ok");
        EXPECT_THAT(emphasised(window), ElementsAre(4));
        openFile(window, (folder / "Tormelk_2.bin").string());
        EXPECT_EQ(line(window, "step4"), QStringLiteral("Tormelk_2.bin, 40,000 bytes"));
        EXPECT_THAT(emphasised(window), ElementsAre(5));
        const auto before = desktop.slept;
        upload(window, [](QDialog& confirmation) {
            EXPECT_EQ(find<QLabel>(confirmation, "Blocks").text(),
                      QStringLiteral("79 of 512 bytes"));
            click(find(confirmation, "ok"));
        });
        EXPECT_NEAR((desktop.slept - before).count(), 92.091, 1e-6);
        EXPECT_THAT(emphasised(window), ElementsAre());
        EXPECT_TRUE(find<QPushButton>(window, "close").isDefault());
        click(find(window, "close"));
    });
    EXPECT_FALSE(tormelk.isInUpdateMode());
    ASSERT_EQ(tormelk.firmware().blocks(), 79U);
    const auto written = tormelk.firmware().written();
    EXPECT_EQ(std::string(written.begin(), written.begin() + 40000), image);
    for (const simulator::LogEntry& entry : tormelk.log()) {
        EXPECT_TRUE(entry.accepted) << entry.text;
    }
    EXPECT_EQ(service.openOutputPorts(), 0U);
    EXPECT_THAT(service.misuses(), testing::IsEmpty());
}

TEST_F(FirmViewTest, CanBeWorkedByTheEnterKeyAlone) {
    files::write(folder / "tormelk.bin", "firmware");
    open([&](QDialog& window) {
        pressInDialog(window, "chooseOutput", "MIDI Devices", "ok");
        const auto enter = [&window](const char* title) {
            whenDialogOpens(QString::fromLatin1(title),
                            [](QDialog& dialog) { press(dialog, Qt::Key_Enter); });
            press(window, Qt::Key_Enter);
        };
        window.setFocus();
        for (QPushButton* button : window.findChildren<QPushButton*>()) {
            button->clearFocus();
        }
        enter("Tormelk Wyro");
        EXPECT_THAT(emphasised(window), ElementsAre(2));
        enter("MIDI Devices");
        EXPECT_THAT(emphasised(window), ElementsAre(3));
        enter("MIDI Devices");
        EXPECT_THAT(emphasised(window), ElementsAre(4));
        press(window, Qt::Key_Escape);
    });
}

TEST_F(FirmViewTest, ShowsProgressAndPaintsItAtOnce) {
    files::write(folder / "tormelk.bin", std::string(2000, 'x'));
    open([&](QDialog& window) {
        pressInDialog(window, "select", "MIDI Devices", "ok");
        openFile(window, (folder / "tormelk.bin").string());
        tormelk.receive(sending::update);
        class Watch final : public QObject {
        public:
            explicit Watch(QLabel& label) : label_(label) {}
            QStringList painted;
            bool eventFilter(QObject*, QEvent* event) override {
                if (event->type() == QEvent::Paint &&
                    (painted.isEmpty() || painted.last() != label_.text())) {
                    painted.append(label_.text());
                }
                return false;
            }

        private:
            QLabel& label_;
        };
        auto& text = find<QLabel>(window, "step5");
        Watch watch(text);
        text.installEventFilter(&watch);
        upload(window, [&](QDialog& confirmation) {
            watch.painted.clear();
            click(find(confirmation, "ok"));
        });
        const QStringList expected = {QStringLiteral("0 %, block 0 of 4, 5 s left"),
                                      QStringLiteral("25 %, block 1 of 4, 4 s left"),
                                      QStringLiteral("50 %, block 2 of 4, 3 s left"),
                                      QStringLiteral("75 %, block 3 of 4, 2 s left"),
                                      QStringLiteral("100 %, block 4 of 4, 0 s left")};
        EXPECT_EQ(watch.painted.mid(watch.painted.indexOf(expected[0]), 5), expected)
            << watch.painted.join(u'|').toStdString();
        EXPECT_EQ(text.text(), QStringLiteral("Nothing is being sent."));
        EXPECT_EQ(find<QProgressBar>(window, "progress").value(), 0);
        press(window, Qt::Key_Escape);
    });
}

TEST_F(FirmViewTest, SaysWithTheExactTextsWhatIsMissing) {
    open([&](QDialog& window) {
        EXPECT_EQ(alertAfter(window, "update", "Tormelk Wyro"), "Please select MIDI device first");
        EXPECT_EQ(alertAfter(window, "open", " Tormelk Wyro"), "Please select MIDI device first");
        EXPECT_EQ(alertAfter(window, "upload", "Warning"),
                  "Please  select the MIDI Device and  open file.");
        state.m_bin_file = 1;
        EXPECT_EQ(alertAfter(window, "upload", "Warning"), "Please select the MIDI Device.");
        state.m_bin_file = 0;
        pressInDialog(window, "select", "MIDI Devices", "ok");
        EXPECT_EQ(alertAfter(window, "upload", "Warning"), "Please open file .");
        press(window, Qt::Key_Escape);
    });
}

TEST_F(FirmViewTest, ExitsFromTheNoticeOfTheCheckOnly) {
    open([&](QDialog& window) {
        pressInDialog(window, "check", "MIDI Devices", "ok");
        EXPECT_EQ(line(window, "step2"), QStringLiteral("Tormelk MIDI 1 is connected."));
        device.unplug();
        ASSERT_TRUE(QTest::qWaitFor(
            [this] { return !process.sharedInstance().realSources()[0]->isOnline(); }));
        for (const char* answer : {"Exit later", "Exit now"}) {
            whenDialogOpens(QStringLiteral("MIDI Devices"), [answer](QDialog& dialog) {
                whenDialogOpens(QStringLiteral("Notice"), [answer](QDialog& notice) {
                    for (QPushButton* button : notice.findChildren<QPushButton*>()) {
                        if (button->text() == QLatin1String(answer)) {
                            click(*button);
                            return;
                        }
                    }
                    ADD_FAILURE() << answer;
                });
                click(find(dialog, "ok"));
            });
            click(find(window, "check"));
            EXPECT_EQ(desktop.exits.size(), answer == std::string("Exit now") ? 1U : 0U);
        }
        EXPECT_THAT(desktop.exits, ElementsAre(1));
        press(window, Qt::Key_Escape);
    });
}

const QString twoOfTen = QStringLiteral(
    "Only 2 of 10 blocks left this computer: the controller went away. Its firmware is incomplete. "
    "Connect it and begin again at step 3.");

/// A part of a bar's whole length.
int partOf(const QProgressBar& bar, double part) {
    return qRound(bar.maximum() * part);
}

TEST_F(FirmViewTest, SaysWhatHasLeftWhenTheControllerGoesAwayInTheMiddle) {
    files::write(folder / "tormelk.bin", std::string(5000, 'x'));
    tormelk.receive(sending::update);
    tormelk.goOfflineAfter(34 + 2 * 530 + 77);
    tormelk.onOffline = [this] { device.unplug(); };
    open([&](QDialog& window) {
        pressInDialog(window, "select", "MIDI Devices", "ok");
        openFile(window, (folder / "tormelk.bin").string());
        upload(
            window, [](QDialog& confirmation) { click(find(confirmation, "ok")); }, twoOfTen);
        EXPECT_EQ(line(window, "step5"), twoOfTen);
        const auto& bar = find<QProgressBar>(window, "progress");
        EXPECT_EQ(bar.value(), partOf(bar, 0.2)) << "it stands where it stopped";
        EXPECT_THAT(emphasised(window), ElementsAre(3));
        press(window, Qt::Key_Escape);
    });
    EXPECT_EQ(tormelk.firmware().blocks(), 2U);
    EXPECT_EQ(service.openOutputPorts(), 0U);
    tormelk.goOnline();
    EXPECT_TRUE(tormelk.isInUpdateMode()) << "it waits, to be started again";
}

TEST_F(FirmViewTest, AWholeUploadAfterOneThatWasCutHasAFreshBar) {
    files::write(folder / "tormelk.bin", std::string(5000, 'x'));
    tormelk.receive(sending::update);
    tormelk.goOfflineAfter(34 + 2 * 530 + 77);
    tormelk.onOffline = [this] {
        device.unplug();
        service.dispatch();
    };
    const auto agree = [](QDialog& confirmation) { click(find(confirmation, "ok")); };
    open([&](QDialog& window) {
        const auto prepare = [&] {
            pressInDialog(window, "select", "MIDI Devices", "ok");
            openFile(window, (folder / "tormelk.bin").string());
        };
        prepare();
        upload(window, agree, twoOfTen);
        tormelk.goOnline();
        device.plug();
        service.dispatch();
        prepare();
        auto& bar = find<QProgressBar>(window, "progress");
        std::vector<int> values;
        desktop.onSleep = [&] {
            if (values.empty() || values.back() != bar.value()) {
                values.push_back(bar.value());
            }
        };
        upload(window, agree);
        desktop.onSleep = nullptr;
        ASSERT_EQ(values.size(), 11U);
        for (std::size_t block = 0; block <= 10; ++block) {
            EXPECT_EQ(values[block], partOf(bar, static_cast<double>(block) / 10));
        }
        EXPECT_EQ(line(window, "step5"), QStringLiteral("Nothing is being sent."));
        EXPECT_THAT(emphasised(window), ElementsAre());
        press(window, Qt::Key_Escape);
    });
    EXPECT_EQ(tormelk.firmware().blocks(), 10U);
}

TEST_F(FirmViewTest, FollowsTheEndOfAnUploadFromTheEventLoop) {
    files::write(folder / "tormelk.bin", std::string(1000, 'x'));
    service.at(destination).settleLater();
    open([&](QDialog& window) {
        pressInDialog(window, "select", "MIDI Devices", "ok");
        openFile(window, (folder / "tormelk.bin").string());
        const QString waiting = QStringLiteral(
            "All 2 blocks were handed over. Waiting until the controller has taken everything.");
        upload(window, [](QDialog& confirmation) { click(find(confirmation, "ok")); });
        EXPECT_EQ(line(window, "step5"), waiting);
        EXPECT_THAT(emphasised(window), ElementsAre(5));
        service.at(destination).settle();
        EXPECT_TRUE(QTest::qWaitFor([&window] {
            return line(window, "step5") == QStringLiteral("Nothing is being sent.");
        }));
        EXPECT_THAT(emphasised(window), ElementsAre());
        press(window, Qt::Key_Escape);
    });
}

TEST_F(FirmViewTest, HasSpaceForEveryWordOfAnUploadThatWasCut) {
    firmware::firm controller(state, devices, desktop);
    whenDialogOpens(QStringLiteral("Firmware Upgrade"), [&controller](QDialog& window) {
        const QSize size = window.size();
        for (const char* words :
             {"All 112 blocks left this computer, but not the reset at the end: the controller "
              "takes nothing. Its firmware may be incomplete. Disconnect it, connect it again and "
              "begin again at step 3.",
              "All 112 blocks left this computer. Whether the reset at the end did is not known: "
              "the controller went away. Its firmware may be incomplete. Connect it and begin "
              "again at step 3."}) {
            controller.step5.setStringValue(words);
            QTest::qWait(10);
            auto& text = find<QLabel>(window, "step5");
            EXPECT_LE(text.heightForWidth(text.width()), text.height()) << words;
        }
        EXPECT_EQ(window.size(), size);
        press(window, Qt::Key_Escape);
    });
    desktop.runModalForWindow(controller);
}

TEST_F(FirmViewTest, ALongNameIsCutNotTheWindow) {
    const std::string name = "tormelk" + std::string(200, 'x');
    files::write(folder / name, "firmware");
    open([&](QDialog& window) {
        const int width = window.width();
        pressInDialog(window, "select", "MIDI Devices", "ok");
        openFile(window, (folder / name).string());
        QTest::qWait(10);
        EXPECT_EQ(window.width(), width);
        press(window, Qt::Key_Escape);
    });
}

}  // namespace
}  // namespace qt::windows
