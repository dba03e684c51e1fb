// What becomes of unsaved work when a program ends, each in a process of its own.

#include <gmock/gmock.h>

#include <QFileInfo>
#include <QTest>

#include "app/Running.h"

namespace app {
namespace {

using testing::HasSubstr;

const QString keptIn = QStringLiteral("home/.local/state/tormelk-wyro");

/// The presets of what is kept, without the second one of each copy.
QStringList copiesIn(const Home& home) {
    return home.content().filter(
        QRegularExpression(QStringLiteral("tormelk-wyro/unsaved-[0-9a-f]*-[0-9]*\\.Tormelk$")));
}

std::string statusAtTheNextStart(const Home& home) {
    Running next(TORMELK_WYRO, QStringLiteral("tell-status-and-close"), home);
    EXPECT_EQ(next.status(), 0);
    return next.output();
}

void expectOffered(const Home& home) {
    EXPECT_EQ(copiesIn(home).size(), 1) << home.content().join(u'\n').toStdString();
    EXPECT_THAT(statusAtTheNextStart(home),
                testing::ContainsRegex("operator: status: Unsaved work from [0-9]+ [A-Z][a-z]+, "
                                       "[0-9][0-9]:[0-9][0-9] can be brought back: "
                                       "File > Bring Back Unsaved Work\n"));
    EXPECT_EQ(copiesIn(home).size(), 1) << "to look is to change nothing";
}

TEST(UnsavedWorkOfAProgram, OutlivesTheCloseBoxAndIsOfferedAtTheNextStart) {
    const Home home;
    Running program(TORMELK_WYRO, QStringLiteral("edit-and-close"), home);
    EXPECT_EQ(program.status(), 0) << program.output();
    expectOffered(home);
}

TEST(UnsavedWorkOfAProgram, IsForNobodyElse) {
    const Home home;
    Running program(TORMELK_WYRO, QStringLiteral("edit-and-close"), home);
    EXPECT_EQ(program.status(), 0) << program.output();
    const auto permissions = [&home](const QString& name) {
        return QFileInfo(home.file(name.toLatin1().constData())).permissions() &
               ~(QFile::ReadUser | QFile::WriteUser | QFile::ExeUser);
    };
    EXPECT_EQ(permissions(keptIn), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    const QStringList files = home.content().filter(keptIn + u'/');
    EXPECT_EQ(files.size(), 3);
    for (const QString& name : files) {
        EXPECT_EQ(permissions(name), QFile::ReadOwner | QFile::WriteOwner) << name.toStdString();
    }
}

TEST(UnsavedWorkOfAProgram, OutlivesEverySignalThatEndsIt) {
    for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
        const Home home;
        Running program(TORMELK_WYRO, QStringLiteral("edit"), home);
        ASSERT_TRUE(program.says("edited channel 4"));
        program.get(signal);
        EXPECT_EQ(program.status(), 128 + signal) << program.output();
        expectOffered(home);
    }
}

TEST(UnsavedWorkOfAProgram, OutlivesAKillOnceItIsOnDiskWhichItComesToByItself) {
    const Home home;
    Running program(TORMELK_WYRO, QStringLiteral("edit"), home);
    ASSERT_TRUE(program.says("edited channel 4"));
    EXPECT_TRUE(QTest::qWaitFor([&home] { return copiesIn(home).size() == 1; }, patience));
    program.get(SIGKILL);
    EXPECT_EQ(program.status(), 128 + SIGKILL) << program.output();
    expectOffered(home);
}

TEST(UnsavedWorkOfAProgram, IsLeftAloneByAnotherThatRunsAtTheSameTime) {
    const Home home;
    Running first(TORMELK_WYRO, QStringLiteral("edit"), home);
    ASSERT_TRUE(first.says("edited channel 4"));
    EXPECT_TRUE(QTest::qWaitFor([&home] { return copiesIn(home).size() == 1; }, patience));
    Running second(TORMELK_WYRO, QStringLiteral("edit"), home);
    ASSERT_TRUE(second.says("edited channel 4"));
    EXPECT_TRUE(QTest::qWaitFor([&home] { return copiesIn(home).size() == 2; }, patience));
    EXPECT_THAT(statusAtTheNextStart(home), HasSubstr("(being written), unsaved-"));
    first.get(SIGKILL);
    EXPECT_EQ(first.status(), 128 + SIGKILL);
    EXPECT_THAT(statusAtTheNextStart(home), HasSubstr("operator: status: Unsaved work from "));
    second.get(SIGTERM);
    EXPECT_EQ(second.status(), 128 + SIGTERM);
    EXPECT_EQ(copiesIn(home).size(), 2);
}

TEST(UnsavedWorkOfAProgram, IsNotMissedWhereThereIsNoHome) {
    const Home home;
    QProcessEnvironment none;
    none.insert(QStringLiteral("HOME"), QString());
    Running program(TORMELK_WYRO, QStringLiteral("edit-and-close"), home, none);
    EXPECT_EQ(program.status(), 0) << program.output();
    EXPECT_EQ(home.content(), emptyHome) << home.content().join(u'\n').toStdString();
}

TEST(UnsavedWorkOfTheDemo, GoesWithIt) {
    const Home home;
    Running program(TORMELK_DEMO, QStringLiteral("edit-and-close"), home);
    EXPECT_EQ(program.status(), 0) << program.output();
    EXPECT_EQ(home.content(), emptyHome) << home.content().join(u'\n').toStdString();
    Running ended(TORMELK_DEMO, QStringLiteral("edit"), home);
    ASSERT_TRUE(ended.says("edited channel 4"));
    const auto isKept = [&home] {
        return !home.content().filter(QStringLiteral("unsaved-")).isEmpty();
    };
    EXPECT_TRUE(QTest::qWaitFor(isKept, patience));
    ended.get(SIGTERM);
    EXPECT_EQ(ended.status(), 128 + SIGTERM) << ended.output();
    EXPECT_EQ(home.content(), emptyHome) << home.content().join(u'\n').toStdString();
}

}  // namespace
}  // namespace app
