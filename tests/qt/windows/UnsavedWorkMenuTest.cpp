// File > Bring Back Unsaved Work and Discard Unsaved Work.

#include "qt/windows/UnsavedWorkMenu.h"

#include <QAccessible>
#include <QMenuBar>
#include <QTemporaryDir>

#include "config/control.h"
#include "qt/windows/MainWindowFixture.h"
#include "rescue/words.h"

namespace qt::windows {
namespace {

using support::hands::press;

class UnsavedWorkInTheMenu : public MainWindowFixture {
protected:
    UnsavedWorkInTheMenu() { view.offer(unsavedWork); }

    /// Another editor turns the lock off and chooses a channel, and comes to its end.
    void leaveBehind(int channel) {
        support::ScriptedEditor other;
        editor::UnsavedWork its(other.controller, other.window, place);
        other.controller.awakeFromNib();
        other.window.combo_mode.choose(editor::userDefinedMode);
        other.window.combo_chan.choose(channel);
        its.end();
    }
    QMenu& file() {
        QMenu* menu = view.menuBar()->actions().front()->menu();
        EXPECT_EQ(menu->title(), QStringLiteral("&File"));
        return *menu;
    }
    /// What a person sees who opens the menu.
    void open() { file().popup(view.mapToGlobal(QPoint(10, 30))); }
    QMenu& list(const char* outlet) { return *view.findChild<QMenu*>(QString::fromLatin1(outlet)); }
    /// The entries to be seen, and whether they are enabled.
    QStringList entries() {
        QStringList texts;
        for (const QAction* action : file().actions()) {
            if (action->isVisible()) {
                const QString mark = action->isSeparator() || action->isEnabled()
                                         ? QString()
                                         : QStringLiteral("grey ");
                texts.append(action->isSeparator() ? QStringLiteral("-") : mark + action->text());
            }
        }
        return texts;
    }
    std::string wordsOf(std::size_t index) {
        unsavedWork.look();
        return rescue::menuWords(unsavedWork.offers().at(index), std::chrono::system_clock::now());
    }
    [[nodiscard]] int channel() const { return config::channel(state.sysData, 0, 0); }

    const QTemporaryDir folder;
    const std::string place = folder.filePath(QStringLiteral("unsaved")).toStdString();
    editor::UnsavedWork unsavedWork{controller, window, place};
};

TEST_F(UnsavedWorkInTheMenu, IsGreyWhereThereIsNone) {
    const QStringList expected = {QStringLiteral("&Load Preset..."),
                                  QStringLiteral("&Save Preset..."),
                                  QStringLiteral("-"),
                                  QStringLiteral("grey &Bring Back Unsaved Work"),
                                  QStringLiteral("grey &Discard Unsaved Work"),
                                  QStringLiteral("-"),
                                  QStringLiteral("&Quit")};
    EXPECT_EQ(entries(), expected) << "before it was ever opened too";
    open();
    EXPECT_EQ(entries(), expected);
}

TEST_F(UnsavedWorkInTheMenu, IsACommandWhereThereIsOne) {
    leaveBehind(7);
    open();
    EXPECT_TRUE(entries().contains(QStringLiteral("&Bring Back Unsaved Work")));
    EXPECT_TRUE(entries().contains(QStringLiteral("&Discard Unsaved Work")));
    press(file(), Qt::Key_B);
    EXPECT_EQ(channel(), 7);
    EXPECT_TRUE(view.isWindowModified());
    EXPECT_EQ(action("actionUndo").text().left(32),
              QStringLiteral("&Undo Bring back unsaved work fr"));
    press(view, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_NE(channel(), 7);
    EXPECT_FALSE(view.isWindowModified());
}

TEST_F(UnsavedWorkInTheMenu, IsAListWhereThereAreSeveral) {
    leaveBehind(7);
    leaveBehind(8);
    leaveBehind(9);
    open();
    EXPECT_FALSE(action("actionBringBack").isVisible());
    EXPECT_FALSE(action("actionDiscard").isVisible());
    for (const char* outlet : {"listBringBack", "listDiscard"}) {
        EXPECT_TRUE(list(outlet).menuAction()->isVisible());
        ASSERT_EQ(list(outlet).actions().size(), 3) << outlet;
        for (int index = 0; index < 3; ++index) {
            EXPECT_EQ(list(outlet).actions().at(index)->text().toStdString(),
                      wordsOf(static_cast<std::size_t>(index)));
        }
    }
    const rescue::Work wanted = unsavedWork.offers().at(1).work;
    list("listBringBack").actions().at(1)->trigger();
    EXPECT_EQ(rescue::workOf(state.sysData, state.stores), wanted);
    list("listDiscard").actions().at(0)->trigger();
    EXPECT_TRUE(QTest::qWaitFor([this] { return list("listDiscard").actions().size() == 2; }));
    list("listDiscard").actions().at(1)->trigger();
    EXPECT_TRUE(QTest::qWaitFor([this] { return action("actionDiscard").isEnabled(); }));
    EXPECT_TRUE(action("actionDiscard").isVisible());
    EXPECT_FALSE(list("listDiscard").menuAction()->isVisible());
    action("actionDiscard").trigger();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !action("actionDiscard").isEnabled(); }));
    EXPECT_FALSE(QDir(QString::fromStdString(place)).exists());
    EXPECT_EQ(rescue::workOf(state.sysData, state.stores), wanted) << "what is shown stays";
}

TEST_F(UnsavedWorkInTheMenu, IsLookedForWheneverTheMenuOpens) {
    open();
    EXPECT_FALSE(action("actionBringBack").isEnabled());
    file().close();
    leaveBehind(7);
    open();
    EXPECT_TRUE(action("actionBringBack").isEnabled());
    file().close();
    QDir(QString::fromStdString(place)).removeRecursively();
    open();
    EXPECT_FALSE(action("actionBringBack").isEnabled());
}

TEST_F(UnsavedWorkInTheMenu, CanBeReadByAScreenReader) {
    leaveBehind(7);
    leaveBehind(8);
    open();
    for (const char* outlet : {"listBringBack", "listDiscard"}) {
        QAction* entry = list(outlet).actions().at(0);
        QAccessibleInterface* access = QAccessible::queryAccessibleInterface(entry);
        ASSERT_NE(access, nullptr);
        EXPECT_EQ(access->role(), QAccessible::MenuItem);
        EXPECT_EQ(access->text(QAccessible::Name).toStdString(), wordsOf(0));
    }
    const auto isHidden = [this](const char* outlet) {
        return QAccessible::queryAccessibleInterface(&action(outlet))->state().invisible;
    };
    EXPECT_TRUE(isHidden("actionBringBack")) << "the list is there instead";
    EXPECT_FALSE(isHidden("actionQuit"));
}

}  // namespace
}  // namespace qt::windows
