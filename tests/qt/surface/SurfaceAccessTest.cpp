// What assistive technology is told of the drawn controller.

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>

#include "config/layout.h"
#include "qt/desktop/InputShield.h"
#include "qt/surface/SurfaceEditor.h"

namespace tests {
namespace {

class SurfaceAccess : public testing::Test {
protected:
    SurfaceAccess() { editor.chooseMode(editor::userDefinedMode); }

    static QAccessibleInterface& of(QWidget& widget) {
        return *QAccessible::queryAccessibleInterface(&widget);
    }
    QAccessibleInterface& of(int tag) { return of(editor.faceOf(tag)); }

    SurfaceEditor editor;
};

TEST_F(SurfaceAccess, HearsWhatAControlIsAndWhatItSends) {
    editor.click(9);
    editor.window.combo_type.choose(editor::kindControlChange);
    editor.window.combo_cc.choose(64);
    EXPECT_EQ(of(9).text(QAccessible::Name), QStringLiteral("Strip 3, Solo"));
    EXPECT_EQ(of(9).text(QAccessible::Description),
              QStringLiteral("Control change 64 Sustain, channel 1, momentary"));
    EXPECT_EQ(of(64).text(QAccessible::Name), QStringLiteral("Master fader"));
    EXPECT_EQ(of(64).text(QAccessible::Description),
              QStringLiteral("Control change 64 Sustain, channel 9"));
    EXPECT_EQ(of(65).text(QAccessible::Name), QStringLiteral("Pad 1"));
    editor.chooseMode(editor::nuendoMode);
    EXPECT_EQ(of(9).text(QAccessible::Description),
              QStringLiteral("SOLO CH.3: note 10 A#-1, channel 1, momentary"));
}

TEST_F(SurfaceAccess, HearsNameAndDescriptionOfEveryControl) {
    for (int tag = 0; tag < config::buttonCount; ++tag) {
        EXPECT_FALSE(of(tag).text(QAccessible::Name).isEmpty()) << tag;
        EXPECT_TRUE(of(tag).text(QAccessible::Description).contains(QStringLiteral("channel")))
            << tag;
        EXPECT_EQ(of(tag).role(), QAccessible::RadioButton);
    }
    EXPECT_EQ(of(editor.panel).role(), QAccessible::Grouping);
    EXPECT_EQ(of(editor.panel).text(QAccessible::Name), QStringLiteral("Controller"));
    EXPECT_EQ(of(editor.face(QStringLiteral("moLa2"))).text(QAccessible::Name),
              QStringLiteral("Mode layer 2"));
    EXPECT_EQ(of(editor.face(QStringLiteral("paLa4"))).text(QAccessible::Name),
              QStringLiteral("Pad layer 4"));
}

TEST_F(SurfaceAccess, HearsWhichControlIsSelected) {
    editor.click(9);
    EXPECT_TRUE(of(9).state().selected);
    EXPECT_TRUE(of(9).state().checked);
    EXPECT_TRUE(of(9).state().selectable);
    EXPECT_TRUE(of(9).state().focusable);
    EXPECT_FALSE(of(10).state().selected);
    EXPECT_FALSE(of(10).state().checked);
    EXPECT_TRUE(of(editor.face(QStringLiteral("moLa1"))).state().checked);
    EXPECT_FALSE(of(editor.face(QStringLiteral("moLa2"))).state().checked);
}

TEST_F(SurfaceAccess, SelectsAControlByItsAction) {
    QAccessibleActionInterface* action = of(20).actionInterface();
    ASSERT_NE(action, nullptr);
    EXPECT_TRUE(action->actionNames().contains(QAccessibleActionInterface::pressAction()));
    action->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_NE(editor.state.selection.keyEvnt, 20) << "the answer comes first";
    QApplication::processEvents();
    EXPECT_EQ(editor.state.selection.keyEvnt, 20);
    EXPECT_TRUE(of(20).state().selected);
    action->doAction(QAccessibleActionInterface::pressAction());
    QApplication::processEvents();
    EXPECT_TRUE(of(20).state().selected) << "a second press puts nothing out";
}

TEST_F(SurfaceAccess, OffersNoPressWhereTheControllerIsSwitchedOff) {
    editor.panel.setEnabled(false);
    QAccessibleActionInterface* action = of(20).actionInterface();
    EXPECT_FALSE(action->actionNames().contains(QAccessibleActionInterface::pressAction()));
    action->doAction(QAccessibleActionInterface::pressAction());
    QApplication::processEvents();
    EXPECT_NE(editor.state.selection.keyEvnt, 20);
    EXPECT_TRUE(of(20).state().disabled);
}

TEST_F(SurfaceAccess, PressesNothingWhileALongSendIsShielded) {
    editor.click(9);
    qt::desktop::InputShield shield;
    {
        const qt::desktop::InputShield::Up up(shield);
        of(12).actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    }
    QApplication::processEvents();
    EXPECT_TRUE(of(9).state().checked);
    EXPECT_FALSE(of(12).state().checked);
}

}  // namespace
}  // namespace tests
