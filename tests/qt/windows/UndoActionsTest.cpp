// Edit > Undo and Redo, in the menu and by their keys, also within the pad editor.

#include "qt/windows/UndoActions.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QDialog>
#include <QLabel>

#include "config/control.h"
#include "qt/desktop/QtDesktop.h"
#include "qt/windows/MainWindowFixture.h"
#include "qt/windows/views.h"

namespace qt::windows {
namespace {

using support::hands::choose;
using support::hands::click;
using support::hands::find;
using support::hands::press;

class UndoMenu : public MainWindowFixture {
protected:
    UndoMenu() {
        enterUserDefinedMode();
        click(button(QStringLiteral("encoder9")));
        click(button(QStringLiteral("moLa1")));
        click(button(QStringLiteral("encoder9")));
        choose(box("combo_chan"), 7);
    }
    [[nodiscard]] int channel() const { return config::channel(state.sysData, 0, 9); }
    std::string textOf(const char* outlet) { return action(outlet).text().toStdString(); }
    std::string status() { return find<QLabel>(view, "status").text().toStdString(); }
};

TEST_F(UndoMenu, NamesWhatWouldBeUndoneAndDoneAgain) {
    EXPECT_EQ(textOf("actionUndo"), "&Undo Strip 3, Solo: channel 8");
    EXPECT_EQ(textOf("actionRedo"), "&Redo");
    EXPECT_FALSE(action("actionRedo").isEnabled());
    action("actionUndo").trigger();
    EXPECT_NE(channel(), 7);
    EXPECT_EQ(textOf("actionUndo"), "&Undo DAW mode: User Defined");
    EXPECT_EQ(textOf("actionRedo"), "&Redo Strip 3, Solo: channel 8");
    EXPECT_EQ(status(), "Undone: Strip 3, Solo: channel 8");
    action("actionRedo").trigger();
    EXPECT_EQ(channel(), 7);
    EXPECT_EQ(status(), "Done again: Strip 3, Solo: channel 8");
}

TEST_F(UndoMenu, IsGreyWhereThereIsNothingToUndo) {
    while (action("actionUndo").isEnabled()) {
        action("actionUndo").trigger();
    }
    EXPECT_FALSE(controller.canUndo());
    EXPECT_EQ(textOf("actionUndo"), "&Undo");
    EXPECT_TRUE(action("actionRedo").isEnabled());
    EXPECT_FALSE(view.isWindowModified()) << "it is as it was at the start";
}

TEST_F(UndoMenu, WorksByItsKeys) {
    const int before = state.sysData.at(0);
    press(view, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_NE(channel(), 7);
    press(view, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(channel(), 7);
    press(box("combo_chan"), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_NE(channel(), 7);
    press(button(QStringLiteral("encoder3")), Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(channel(), 7);
    EXPECT_EQ(state.sysData.at(0), before);
}

TEST_F(UndoMenu, ShowsTheControlOnWhoseFaceTheChangeIs) {
    click(button(QStringLiteral("moLa3")));
    click(button(QStringLiteral("encoder30")));
    press(view, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(button(QStringLiteral("moLa1")).isChecked());
    EXPECT_TRUE(button(QStringLiteral("encoder9")).isChecked());
    EXPECT_FALSE(button(QStringLiteral("encoder30")).isChecked());
    EXPECT_EQ(box("combo_chan").currentIndex(), channel());
}

TEST_F(UndoMenu, TakesTheArrowKeysInABoxForOneStep) {
    const std::size_t steps = controller.document().numberOfSteps();
    for (int time = 0; time < 5; ++time) {
        press(box("combo_cc"), Qt::Key_Down);
    }
    EXPECT_EQ(controller.document().numberOfSteps(), steps + 1);
    press(view, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(controller.document().numberOfSteps(), steps + 1);
    EXPECT_EQ(box("combo_cc").currentIndex(), config::number(state.sysData, 0, 9));
    EXPECT_EQ(channel(), 7);
}

TEST_F(UndoMenu, ShowsAnAmpersandAndCutsALongName) {
    controller.takeOver(editor::EditorState{}, "Load R&B.Tormelk");
    EXPECT_EQ(textOf("actionUndo"), "&Undo Load R&&B.Tormelk");
    config::Configuration other;
    other.sysData[10] = 1;
    controller.takeOver(other, "Load " + std::string(300, 'a'));
    EXPECT_LT(action("actionUndo").text().size(), 150);
}

TEST_F(UndoMenu, CanBeReadByAScreenReader) {
    const auto nameOf = [](QObject& object) {
        return QAccessible::queryAccessibleInterface(&object)
            ->text(QAccessible::Name)
            .toStdString();
    };
    auto& label = find<QLabel>(view, "status");
    EXPECT_EQ(nameOf(label), "Strip 3, Solo: channel 8");
    EXPECT_EQ(nameOf(action("actionUndo")), "Undo Strip 3, Solo: channel 8");
    action("actionUndo").trigger();
    EXPECT_EQ(nameOf(label), "Undone: Strip 3, Solo: channel 8");
    EXPECT_EQ(nameOf(action("actionRedo")), "Redo Strip 3, Solo: channel 8");
}

/// The editor with its real windows.
class UndoInPadEditor : public testing::Test, protected support::EditorParts {
protected:
    UndoInPadEditor() {
        addEditorViews(desktop);
        controller.awakeFromNib();
        window.combo_mode.choose(editor::userDefinedMode);
        window.window.makeKeyAndOrderFront();
    }
    void open(std::function<void(QDialog&)> person) {
        support::hands::whenDialogOpens(QStringLiteral("Pad Editor"), std::move(person));
        click(find(main, "paLa2"));
    }

    desktop::QtDesktop desktop{[](int) {}};
    editor::mainController controller{state, window, desktop, devices, firmware};
    MainWindowView main{window, controller};
};

TEST_F(UndoInPadEditor, WorksByTheSameKeysEditByEdit) {
    open([](QDialog& dialog) {
        ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
        auto& interval = find<QComboBox>(dialog, "combo_intervl");
        const int before = interval.currentIndex();
        choose(interval, 10);
        choose(interval, 20);
        press(dialog, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(interval.currentIndex(), 10);
        EXPECT_EQ(find<QLabel>(dialog, "status").text(),
                  QStringLiteral("Undone: Pad layer 2: interval 45 ms"));
        press(interval, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(interval.currentIndex(), before);
        press(dialog, Qt::Key_Y, Qt::ControlModifier);
        press(dialog, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_EQ(interval.currentIndex(), 20);
        click(find<QAbstractButton>(dialog, "finish"));
    });
    EXPECT_EQ(config::trailer(state.sysData, 1, config::intervalOffset), 45);
    EXPECT_EQ(controller.undoName(), "Pad layer 2");
    ASSERT_TRUE(QTest::qWaitForWindowActive(&main));
    press(main, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(config::trailer(state.sysData, 1, config::intervalOffset), 0x40);
}

}  // namespace
}  // namespace qt::windows
