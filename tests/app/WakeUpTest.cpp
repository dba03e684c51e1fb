#include "app/WakeUp.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include "support/ScriptedEditor.h"

namespace app {
namespace {

class WakeUpTest : public testing::Test, protected support::ScriptedEditor {
protected:
    WakeUpTest() { controller.awakeFromNib(); }

    const QTemporaryDir folder;
    const QString place = folder.filePath(QStringLiteral("unsaved"));
    editor::UnsavedWork unsavedWork{controller, window, place.toStdString()};
    WakeUp wakeUp{unsavedWork};
};

TEST_F(WakeUpTest, IsNotSetWhereThereIsNothingToDo) {
    EXPECT_FALSE(wakeUp.isSet());
    window.keysOrderedByTag[9].click();
    EXPECT_FALSE(wakeUp.isSet());
}

TEST_F(WakeUpTest, HasUnsavedWorkWrittenAndIsNotSetAnyMoreThen) {
    window.locker.click();
    EXPECT_TRUE(wakeUp.isSet());
    EXPECT_FALSE(QDir(place).exists());
    EXPECT_TRUE(QTest::qWaitFor([this] { return !wakeUp.isSet(); }, 30'000));
    EXPECT_TRUE(QDir(place).exists());
    controller.undo();
    EXPECT_TRUE(wakeUp.isSet());
    EXPECT_TRUE(QTest::qWaitFor([this] { return !wakeUp.isSet(); }, 30'000));
    EXPECT_FALSE(QDir(place).exists());
}

TEST_F(WakeUpTest, IsTakenBackWhenTheChangeIs) {
    window.locker.click();
    controller.undo();
    EXPECT_FALSE(wakeUp.isSet());
}

}  // namespace
}  // namespace app
