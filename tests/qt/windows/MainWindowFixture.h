#pragma once

// The main window over the editor's logic, for the tests of its parts.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QTest>

#include "qt/windows/MainWindowView.h"
#include "support/ScriptedEditor.h"
#include "support/windows/hands.h"

namespace qt::windows {

/// The main window over the editor's logic, with a scripted desktop behind.
class MainWindowFixture : public testing::Test, protected support::ScriptedEditor {
protected:
    MainWindowFixture() {
        controller.awakeFromNib();
        window.window.makeKeyAndOrderFront();
        (void)QTest::qWaitForWindowActive(&view);
    }

    QAbstractButton& button(const QString& outlet) {
        return support::hands::find<QAbstractButton>(view, outlet.toLatin1().constData());
    }
    QComboBox& box(const char* outlet) { return support::hands::find<QComboBox>(view, outlet); }
    QAction& action(const char* outlet) {
        auto* found = view.findChild<QAction*>(QString::fromLatin1(outlet));
        EXPECT_NE(found, nullptr) << outlet;
        return *found;
    }
    void enterUserDefinedMode() {
        support::hands::choose(box("combo_mode"), editor::userDefinedMode);
        ASSERT_EQ(state.modes.machn_mod, editor::userDefinedMode);
    }

    MainWindowView view{window, controller};
};

}  // namespace qt::windows
