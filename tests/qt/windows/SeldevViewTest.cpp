#include "qt/windows/SeldevView.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <memory>

#include "devices/seldev.h"
#include "devices/seldev2.h"
#include "midi/ZQMIDIProcess.h"
#include "platform/NotificationCentre.h"
#include "qt/desktop/MidiDispatcher.h"
#include "qt/desktop/QtDesktop.h"
#include "qt/windows/views.h"
#include "support/ScriptedMidiService.h"
#include "support/windows/hands.h"

namespace qt::windows {
namespace {

using support::hands::choose;
using support::hands::click;
using support::hands::find;
using support::hands::press;
using support::hands::whenDialogOpens;

/// The device dialogs in their windows, over a MIDI service in software.
class SeldevViewTest : public testing::Test {
protected:
    SeldevViewTest() { addEditorViews(desktop); }

    platform::software::Device& plug(const char* name) {
        platform::software::Device& device = service.addDevice(name);
        device.addSource(name);
        device.addDestination(name);
        return device;
    }

    /// Runs the dialog; `person` operates it and must close it.
    void run(std::function<void(QDialog&)> person) {
        devices::seldev dialog(choice, desktop);
        whenDialogOpens(QStringLiteral("MIDI Devices"), std::move(person));
        desktop.runModalForWindow(dialog);
    }

    std::string chosenOutput() const {
        return choice.OutDevice() == nullptr ? "none" : choice.OutDevice()->displayName();
    }
    std::string chosenInput() const {
        return choice.InDevice() == nullptr ? "none" : choice.InDevice()->displayName();
    }

    support::ScriptedMidiService service;
    platform::NotificationCentre centre;
    midi::ZQMIDIProcess process{service, centre};
    devices::seldevChoice choice{process};
    desktop::QtDesktop desktop{[](int) {}};
    desktop::MidiDispatcher dispatcher{service};
};

QComboBox& inputs(QDialog& dialog) {
    return find<QComboBox>(dialog, "combo_in");
}
QComboBox& outputs(QDialog& dialog) {
    return find<QComboBox>(dialog, "combo_out");
}
QPushButton& ok(QDialog& dialog) {
    return find<QPushButton>(dialog, "ok");
}
QString hint(QDialog& dialog) {
    const auto& label = find<QLabel>(dialog, "hint");
    return label.isVisible() ? label.text() : QString();
}

TEST_F(SeldevViewTest, ChoosesByMouse) {
    plug("Alpha");
    plug("Beta");
    run([](QDialog& dialog) {
        EXPECT_EQ(outputs(dialog).currentText(), QStringLiteral("Alpha"));
        choose(inputs(dialog), 0);
        choose(outputs(dialog), 1);
        click(ok(dialog));
    });
    EXPECT_EQ(chosenInput(), "Alpha");
    EXPECT_EQ(chosenOutput(), "Beta");
    EXPECT_EQ(choice.midi_device_open, 1);
}

TEST_F(SeldevViewTest, ChoosesByKeyboardAlone) {
    plug("Alpha");
    plug("Beta");
    run([](QDialog& dialog) {
        ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
        press(dialog, Qt::Key_U, Qt::AltModifier);
        ASSERT_TRUE(outputs(dialog).hasFocus());
        press(outputs(dialog), Qt::Key_Down);
        press(dialog, Qt::Key_Enter);
    });
    EXPECT_EQ(chosenInput(), "Alpha");
    EXPECT_EQ(chosenOutput(), "Beta");
}

TEST_F(SeldevViewTest, KeepsTheEarlierChoiceOnCancelEscapeAndClose) {
    plug("Alpha");
    plug("Beta");
    run([](QDialog& dialog) {
        choose(outputs(dialog), 1);
        click(ok(dialog));
    });
    const std::vector<std::function<void(QDialog&)>> waysOut = {
        [](QDialog& dialog) { click(find(dialog, "cancel")); },
        [](QDialog& dialog) { press(dialog, Qt::Key_Escape); },
        [](QDialog& dialog) { dialog.close(); },
    };
    for (const auto& leave : waysOut) {
        run([&leave](QDialog& dialog) {
            EXPECT_EQ(outputs(dialog).currentText(), QStringLiteral("Beta"));
            choose(outputs(dialog), 0);
            leave(dialog);
        });
        EXPECT_EQ(chosenOutput(), "Beta");
    }
}

TEST_F(SeldevViewTest, TakesNoTypedText) {
    plug("Alpha");
    run([](QDialog& dialog) {
        EXPECT_FALSE(inputs(dialog).isEditable());
        EXPECT_FALSE(outputs(dialog).isEditable());
        QTest::keyClicks(&outputs(dialog), QStringLiteral("something else"));
        EXPECT_EQ(outputs(dialog).currentText(), QStringLiteral("Alpha"));
        click(ok(dialog));
    });
    EXPECT_EQ(chosenOutput(), "Alpha");
}

TEST_F(SeldevViewTest, SaysSoInPlainWordsWhenThereIsNothingToChoose) {
    run([](QDialog& dialog) {
        EXPECT_EQ(inputs(dialog).count(), 0);
        EXPECT_EQ(outputs(dialog).count(), 0);
        EXPECT_EQ(hint(dialog),
                  QStringLiteral("There is no MIDI device. Connect the controller and switch it "
                                 "on: it appears here by itself."));
        EXPECT_TRUE(ok(dialog).isEnabled());
        click(ok(dialog));
    });
    EXPECT_EQ(chosenOutput(), "none");
    EXPECT_EQ(choice.midi_device_open, 0);
}

TEST_F(SeldevViewTest, SaysWhyNothingCanBeListedAndLetsTheCommandBeCopied) {
    service.obstruct({platform::ServiceState::Obstacle::NotLoaded, "load it"});
    run([this](QDialog& dialog) {
        EXPECT_TRUE(hint(dialog).startsWith(
            QStringLiteral("The computer's MIDI sequencer is not loaded. ")));
        EXPECT_TRUE(hint(dialog).endsWith(QStringLiteral("\nload it")));
        EXPECT_TRUE(find<QLabel>(dialog, "hint").textInteractionFlags() &
                    Qt::TextSelectableByMouse);
        const int heightWithHint = dialog.sizeHint().height();
        plug("Alpha");
        service.recover();
        EXPECT_TRUE(QTest::qWaitFor([&dialog] { return hint(dialog).isEmpty(); }, 1000));
        EXPECT_LT(dialog.sizeHint().height(), heightWithHint);
        EXPECT_EQ(outputs(dialog).currentText(), QStringLiteral("Alpha"));
        click(ok(dialog));
    });
    EXPECT_EQ(chosenOutput(), "Alpha");
}

TEST_F(SeldevViewTest, SaysWhichOfTheTwoIsMissing) {
    service.addDevice("Keyboard").addSource("Keyboard");
    run([](QDialog& dialog) {
        EXPECT_TRUE(hint(dialog).startsWith(QStringLiteral("There is no MIDI output.")));
        dialog.close();
    });
}

TEST_F(SeldevViewTest, ShowsADeviceThatIsPluggedInMeanwhile) {
    run([this](QDialog& dialog) {
        EXPECT_NE(hint(dialog), QString());
        plug("Alpha");
        EXPECT_TRUE(QTest::qWaitFor([&dialog] { return outputs(dialog).count() == 1; }, 1000));
        EXPECT_EQ(hint(dialog), QString());
        EXPECT_EQ(outputs(dialog).currentText(), QStringLiteral("Alpha"));
        click(ok(dialog));
    });
    EXPECT_EQ(chosenOutput(), "Alpha");
}

TEST_F(SeldevViewTest, KeepsWhatIsSelectedWhenTheListsAreSortedAnew) {
    plug("Beta");
    plug("Gamma");
    run([this](QDialog& dialog) {
        choose(outputs(dialog), 1);
        plug("Alpha");
        EXPECT_TRUE(QTest::qWaitFor([&dialog] { return outputs(dialog).count() == 3; }, 1000));
        EXPECT_EQ(outputs(dialog).currentText(), QStringLiteral("Gamma"));
        EXPECT_EQ(outputs(dialog).currentIndex(), 2);
        click(ok(dialog));
    });
    EXPECT_EQ(chosenOutput(), "Gamma");
}

TEST_F(SeldevViewTest, ClosesAnOpenListWhenDevicesComeAndTakesNoPickFromTheOldOne) {
    plug("Beta");
    plug("Gamma");
    run([this](QDialog& dialog) {
        outputs(dialog).showPopup();
        plug("Alpha");
        EXPECT_TRUE(QTest::qWaitFor([&dialog] { return outputs(dialog).count() == 3; }, 1000));
        EXPECT_FALSE(outputs(dialog).view()->isVisible());
        EXPECT_EQ(outputs(dialog).currentText(), QStringLiteral("Beta"));
        click(ok(dialog));
    });
    EXPECT_EQ(chosenOutput(), "Beta");
}

TEST_F(SeldevViewTest, ListsADeviceThatVanishesMeanwhileAsOffline) {
    platform::software::Device& device = plug("Alpha");
    run([&device](QDialog& dialog) {
        device.unplug();
        EXPECT_TRUE(QTest::qWaitFor(
            [&dialog] {
                return outputs(dialog).currentText() == QStringLiteral("Alpha (offline)");
            },
            1000));
        click(ok(dialog));
    });
    EXPECT_EQ(chosenOutput(), "Alpha (offline)");
}

TEST_F(SeldevViewTest, GreysOkWhileNothingIsSelected) {
    plug("Alpha");
    devices::seldev dialog(choice, desktop);
    whenDialogOpens(QStringLiteral("MIDI Devices"), [&dialog](QDialog& shown) {
        dialog.combo_out.selectItemAtIndex(-1);
        dialog.ok();
        EXPECT_TRUE(shown.isVisible());
        EXPECT_FALSE(ok(shown).isEnabled());
        choose(outputs(shown), 0);
        EXPECT_TRUE(ok(shown).isEnabled());
        click(ok(shown));
    });
    desktop.runModalForWindow(dialog);
    EXPECT_EQ(chosenOutput(), "Alpha");
}

TEST_F(SeldevViewTest, ShowsTheSecondDialogTheSameWayWithAChoiceOfItsOwn) {
    plug("Alpha");
    plug("Beta");
    devices::seldev2Choice choice2(process);
    devices::seldev2 dialog(choice2, desktop);
    whenDialogOpens(QStringLiteral("MIDI Devices"), [](QDialog& shown) {
        choose(outputs(shown), 1);
        click(ok(shown));
    });
    desktop.runModalForWindow(dialog);
    ASSERT_NE(choice2.OutDevice(), nullptr);
    EXPECT_EQ(choice2.OutDevice()->displayName(), "Beta");
    EXPECT_EQ(choice2.sd2_out_indx, 1);
    EXPECT_EQ(chosenOutput(), "none");
}

TEST_F(SeldevViewTest, MakesOkTheDefaultButton) {
    run([](QDialog& dialog) {
        EXPECT_TRUE(ok(dialog).isDefault());
        dialog.close();
    });
}

}  // namespace
}  // namespace qt::windows
