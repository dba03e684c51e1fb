// The names of MIDI ports can be long. No window grows with them: they are cut with dots, and whole
// in the tool tip and for a screen reader.

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QAccessible>
#include <QHelpEvent>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <QToolTip>

#include "app/Editor.h"
#include "firmware/firm.h"
#include "qt/desktop/QtDesktop.h"
#include "qt/widgets/TextFieldView.h"
#include "support/ScriptedMidiService.h"
#include "support/windows/hands.h"

namespace qt {
namespace {

using support::hands::choose;
using support::hands::click;
using support::hands::find;
using support::hands::press;
using support::hands::whenDialogOpens;

/// As many as the sequencer takes, of the widest letters.
const QString longName(127, QLatin1Char('W'));

/// What is in the tool tip over the middle of a widget.
QString toolTipOf(QWidget& widget) {
    QToolTip::hideText();
    EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }, 5000));
    const QPoint middle = widget.rect().center();
    QHelpEvent event(QEvent::ToolTip, middle, widget.mapToGlobal(middle));
    QCoreApplication::sendEvent(&widget, &event);
    return QToolTip::text();
}

QString readOut(QWidget& widget) {
    return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Name);
}

/// The narrowest and the usual width of a window.
std::pair<int, int> widthsOf(const QWidget& window) {
    return {window.minimumSizeHint().width(), window.sizeHint().width()};
}

/// An editor on a computer with two devices, with the second of them chosen.
class LongNames : public testing::Test {
protected:
    LongNames() { editor.show(); }

    void plug(const QString& name) {
        const std::string text = name.toStdString();
        platform::software::Device& device = service.addDevice(text);
        device.addSource(text);
        device.addDestination(text);
        service.dispatch();
    }
    void inDeviceDialog(const std::function<void(QDialog&)>& visit) {
        whenDialogOpens(QStringLiteral("MIDI Devices"), [&visit](QDialog& dialog) {
            visit(dialog);
            click(find(dialog, "ok"));
        });
        click(find(editor.view, "midiDevices"));
    }
    void chooseTheLongOne() {
        inDeviceDialog([](QDialog& dialog) {
            choose(find<QComboBox>(dialog, "combo_in"), 1);
            choose(find<QComboBox>(dialog, "combo_out"), 1);
        });
    }

    support::ScriptedMidiService service;
    desktop::QtDesktop desktop{[](int) {}};
    const QTemporaryDir folder;
    app::Editor editor{service, desktop, folder.filePath(QStringLiteral("unsaved")).toStdString()};
};

TEST_F(LongNames, DoNotMakeTheMainWindowWider) {
    plug(QStringLiteral("Alpha"));
    const auto before = widthsOf(editor.view);
    plug(longName);
    chooseTheLongOne();
    const auto after = widthsOf(editor.view);
    EXPECT_EQ(after.first, before.first);
    EXPECT_LT(after.second, before.second + 200);
    EXPECT_LT(after.second, 1280);
}

TEST_F(LongNames, AreWholeInTheToolTipAndForAScreenReaderOfTheMainWindow) {
    plug(QStringLiteral("Alpha"));
    plug(longName);
    chooseTheLongOne();
    auto& output = find<widgets::TextFieldView>(editor.view, "output");
    EXPECT_LT(output.width(), output.fontMetrics().horizontalAdvance(longName));
    EXPECT_EQ(toolTipOf(output), longName);
    EXPECT_EQ(readOut(output), longName);
    auto& status = find<widgets::TextFieldView>(editor.view, "status");
    const QString said = QStringLiteral("Output: ") + longName;
    EXPECT_EQ(status.text(), said);
    EXPECT_LT(status.width(), status.fontMetrics().horizontalAdvance(said));
    EXPECT_EQ(toolTipOf(status), said);
    EXPECT_EQ(readOut(status), said);
}

TEST_F(LongNames, AreNoToolTipWhereTheyFit) {
    plug(QStringLiteral("Alpha"));
    plug(QStringLiteral("Beta"));
    chooseTheLongOne();
    EXPECT_EQ(toolTipOf(find(editor.view, "output")), QStringLiteral("Where a Send goes"));
    EXPECT_EQ(toolTipOf(find(editor.view, "status")), QString());
}

TEST_F(LongNames, DoNotMakeTheDeviceDialogWiderAndAreWholeInItsToolTips) {
    plug(QStringLiteral("Alpha"));
    std::pair<int, int> before;
    inDeviceDialog([&](QDialog& dialog) {
        before = widthsOf(dialog);
        EXPECT_EQ(toolTipOf(find(dialog, "combo_out")),
                  QStringLiteral("MIDI output: where the controller listens"));
    });
    plug(longName);
    inDeviceDialog([&](QDialog& dialog) {
        auto& outputs = find<QComboBox>(dialog, "combo_out");
        choose(outputs, 1);
        EXPECT_EQ(widthsOf(dialog), before);
        EXPECT_EQ(toolTipOf(outputs), longName);
        EXPECT_EQ(readOut(outputs), longName);
    });
}

TEST_F(LongNames, StayOnTheScreenInTheOpenListAndHaveAToolTipThere) {
    plug(QStringLiteral("Alpha"));
    plug(longName);
    inDeviceDialog([](QDialog& dialog) {
        auto& outputs = find<QComboBox>(dialog, "combo_out");
        outputs.showPopup();
        EXPECT_LE(outputs.view()->width(), outputs.screen()->availableGeometry().width());
        EXPECT_EQ(outputs.itemData(0, Qt::ToolTipRole), QVariant());
        EXPECT_EQ(outputs.itemData(1, Qt::ToolTipRole), longName);
        outputs.hidePopup();
    });
}

TEST_F(LongNames, DoNotMakeTheFirmwareWindowWiderAndAreWholeInItsToolTips) {
    plug(QStringLiteral("Alpha"));
    plug(longName);
    std::pair<int, int> before;
    const auto inFirmwareWindow = [this](const std::function<void(QDialog&)>& visit) {
        firmware::firm controller(editor.firmware, editor.devices, desktop);
        whenDialogOpens(QStringLiteral("Firmware Upgrade"), [&visit](QDialog& dialog) {
            visit(dialog);
            press(dialog, Qt::Key_Escape);
        });
        desktop.runModalForWindow(controller);
    };
    inFirmwareWindow([&](QDialog& dialog) { before = widthsOf(dialog); });
    chooseTheLongOne();
    inFirmwareWindow([&](QDialog& dialog) {
        EXPECT_EQ(widthsOf(dialog), before);
        auto& line = find<widgets::TextFieldView>(dialog, "step1");
        ASSERT_TRUE(line.text().contains(longName)) << line.text().toStdString();
        EXPECT_EQ(toolTipOf(line), line.text());
        EXPECT_EQ(readOut(line), line.text());
    });
}

}  // namespace
}  // namespace qt
