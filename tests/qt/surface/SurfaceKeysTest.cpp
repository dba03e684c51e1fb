// The drawn controller by keyboard.

#include <gtest/gtest.h>

#include <QApplication>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QTest>

#include "editor/pad.h"
#include "qt/surface/SurfaceEditor.h"

namespace tests {
namespace {

/// The controller between two fields, as a window has it.
class SurfaceKeys : public testing::Test {
public:
    SurfaceKeys() {
        auto* layout = new QHBoxLayout(&frame);
        layout->addWidget(&before);
        layout->addWidget(&editor.panel);
        layout->addWidget(&after);
        editor.chooseMode(editor::userDefinedMode);
        editor.click(9);
        frame.show();
        (void)QTest::qWaitForWindowActive(&frame);
        editor.faceOf(9).setFocus();
    }
    SurfaceKeys(const SurfaceKeys&) = delete;
    SurfaceKeys& operator=(const SurfaceKeys&) = delete;
    ~SurfaceKeys() override {
        editor.panel.setParent(nullptr);
        before.setParent(nullptr);
        after.setParent(nullptr);
    }

protected:
    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    [[nodiscard]] static std::string focused() {
        const QWidget* widget = QApplication::focusWidget();
        return widget == nullptr ? "" : widget->objectName().toStdString();
    }
    [[nodiscard]] int selected() const { return editor.state.selection.keyEvnt; }

    SurfaceEditor editor;
    QWidget frame;
    QLineEdit before;
    QLineEdit after;
};

TEST_F(SurfaceKeys, ArrowsMoveTheSelection) {
    press(Qt::Key_Right);
    EXPECT_EQ(selected(), 13);
    EXPECT_EQ(focused(), "encoder13");
    press(Qt::Key_Down);
    EXPECT_EQ(selected(), 14);
    press(Qt::Key_Left);
    EXPECT_EQ(selected(), 10);
    press(Qt::Key_Up);
    EXPECT_EQ(selected(), 9);
    press(Qt::Key_Home);
    EXPECT_EQ(selected(), 1);
    press(Qt::Key_End);
    EXPECT_EQ(selected(), 29);
    EXPECT_EQ(focused(), "encoder29");
}

TEST_F(SurfaceKeys, ArrowsReachThePadsAndSelectTheControlBehindThem) {
    editor.click(31);
    EXPECT_EQ(focused(), "encoder31") << "the focus goes with the selection";
    press(Qt::Key_Right);
    EXPECT_EQ(focused(), "encoder65");
    EXPECT_EQ(selected(), 70);
    press(Qt::Key_Left);
    EXPECT_EQ(selected(), 31);
}

TEST_F(SurfaceKeys, PassingALayerButtonChangesNoLayer) {
    editor.click(37);
    press(Qt::Key_Down);
    EXPECT_EQ(focused(), "moLa2");
    EXPECT_EQ(selected(), 37);
    EXPECT_EQ(editor.state.layers.m_moLa, 0);
    press(Qt::Key_Down);
    EXPECT_EQ(focused(), "paLa2") << "and no pad editor opens";
    press(Qt::Key_Up);
    press(Qt::Key_Return);
    EXPECT_EQ(editor.state.layers.m_moLa, 1);
    EXPECT_EQ(focused(), "moLa2");
}

TEST_F(SurfaceKeys, EnterAndSpaceClick) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        editor.click(9);
        qt::surface::FaceButton& other = editor.faceOf(20);
        other.setFocus();
        QTest::keyClick(&other, key, key == Qt::Key_Enter ? Qt::KeypadModifier : Qt::NoModifier);
        EXPECT_EQ(selected(), 20) << key;
    }
    editor.faceOf(9).setFocus();
    QTest::keyClick(&editor.faceOf(9), Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(selected(), 20) << "that is somebody else's key";
}

TEST_F(SurfaceKeys, DigitsSwitchTheModeLayer) {
    press(Qt::Key_3);
    EXPECT_EQ(editor.state.layers.m_moLa, 2);
    EXPECT_EQ(focused(), "encoder0") << "the layer's own last control";
    press(Qt::Key_2, Qt::KeypadModifier);
    EXPECT_EQ(editor.state.layers.m_moLa, 1);
    press(Qt::Key_4, Qt::ShiftModifier);
    EXPECT_EQ(editor.state.layers.m_moLa, 3);
    press(Qt::Key_1);
    EXPECT_EQ(editor.state.layers.m_moLa, 0);
    EXPECT_EQ(selected(), 9);
    EXPECT_EQ(focused(), "encoder9");
    for (const Qt::Key other : {Qt::Key_0, Qt::Key_5, Qt::Key_9}) {
        press(other);
        EXPECT_EQ(editor.state.layers.m_moLa, 0);
    }
    press(Qt::Key_2, Qt::ControlModifier);
    EXPECT_EQ(editor.state.layers.m_moLa, 0);
}

TEST_F(SurfaceKeys, AltAndADigitSwitchThePadLayer) {
    for (int layer = 2; layer <= 4; ++layer) {
        int opened = 0;
        editor.desktop.onModal<editor::pad>([&](editor::pad& pad) {
            opened = editor.state.pads.m_zPaLayer_CurSel + 1;
            pad.finish.click();
        });
        press(static_cast<Qt::Key>(Qt::Key_0 + layer), Qt::AltModifier);
        EXPECT_EQ(opened, layer);
    }
    editor.window.moLaCtrls[2].click();
    editor.faceOf(0).setFocus();
    press(Qt::Key_1, Qt::AltModifier);
    EXPECT_EQ(editor.state.layers.layrData, 0);
}

TEST_F(SurfaceKeys, DigitsTypedElsewhereSwitchNothing) {
    before.setFocus();
    press(Qt::Key_3);
    EXPECT_EQ(before.text(), QStringLiteral("3"));
    EXPECT_EQ(editor.state.layers.m_moLa, 0);
}

TEST_F(SurfaceKeys, TheControllerIsASingleTabStop) {
    before.setFocus();
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), "encoder9") << "the selected control";
    press(Qt::Key_Tab);
    EXPECT_TRUE(after.hasFocus());
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(focused(), "encoder9");
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(before.hasFocus());
}

TEST_F(SurfaceKeys, TheTabStopFollowsTheSelection) {
    before.setFocus();
    editor.click(58);
    EXPECT_TRUE(before.hasFocus()) << "a selection elsewhere does not take the focus";
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), "encoder58");
}

TEST_F(SurfaceKeys, TheFocusStaysWhereItIsWhenNothingIsSelected) {
    editor.chooseMode(editor::nuendoMode);
    EXPECT_EQ(selected(), editor::noControl);
    EXPECT_EQ(focused(), "encoder9");
    press(Qt::Key_Right);
    EXPECT_EQ(selected(), 13);
}

}  // namespace
}  // namespace tests
